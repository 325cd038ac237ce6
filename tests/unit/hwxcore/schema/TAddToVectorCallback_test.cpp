#include "hwxcore/schema/TAddToVectorCallback.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/function.hpp>

#include "hwxcore/schema/ICIMInstance.h"
#include "support/SchemaStubs.h"

using NQORHWX20::ICIMInstance;
using NQORHWX20::TAddToVectorCallback;

namespace {

TEST(TAddToVectorCallback, AppendsEachElementAndGoesOn) {
  using InstancePtr = boost::shared_ptr<ICIMInstance>;
  const InstancePtr first(new hwxtest::StubInstance);
  const InstancePtr second(new hwxtest::StubInstance);
  std::vector<InstancePtr> instances;
  const boost::function<bool(InstancePtr)> callback =
      TAddToVectorCallback<ICIMInstance>(&instances);
  EXPECT_TRUE(callback(first));
  EXPECT_TRUE(callback(second));
  EXPECT_TRUE(callback(InstancePtr()));
  EXPECT_THAT(instances, testing::ElementsAre(first, second, InstancePtr()));
}

}  // namespace
