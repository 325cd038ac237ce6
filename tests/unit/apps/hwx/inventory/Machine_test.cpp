#include "hwx/inventory/Machine.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <stdexcept>

#include "hwx/text/Failure.h"
#include "hwxcore/schema/INamespaceProviderManager.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/schema/TRootObject.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryProvider.h"
#include "support/ChildProcess.h"
#include "support/TextOf.h"

namespace hwx {
namespace {

using namespace NQORHWX20;

class TSourcelessProvider : public INamespaceProvider {
 public:
  const std::string& GetName(TCIMContext) override { return TCIMSchemaHelper::kPluginNSPName; }
};

// In a process of its own: nobody leaves the registry again. The first of a name stays, so the live
// provider that is loaded meanwhile doesn't replace `provider`.
void ExpectFailureWith(const boost::shared_ptr<INamespaceProvider>& provider,
                       const std::string& message) {
  const int status = hwxtest::RunInChild([&] {
    TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(provider);
    EXPECT_EQ(hwxtest::TextOf<TFailure>([] { OpenMachine(); }), message);
    return 0;
  });
  EXPECT_EQ(status, 0);
}

boost::shared_ptr<INamespaceProvider> Plugin(const TNamespaceFactory& factory) {
  return boost::make_shared<TMemoryProvider>("plugin", factory);
}

TEST(OpenMachine, OpensTheNamespaceOfTheProvider) {
  const int status = hwxtest::RunInChild([] {
    EXPECT_TRUE(OpenMachine()->GetClass("QORSG_ComputerSystem", TCIMContext()));
    return 0;
  });
  EXPECT_EQ(status, 0);
}

TEST(OpenMachine, FailsOnAProviderThatIsNoSource) {
  ExpectFailureWith(boost::make_shared<TSourcelessProvider>(),
                    "the provider \"plugin\" opens no namespace");
}

TEST(OpenMachine, FailsOnASourceThatFails) {
  const auto fail = []() -> boost::shared_ptr<ICIMNamespace> {
    throw THWXException(kHWXStatusAccessDenied);
  };
  ExpectFailureWith(Plugin(fail), "the provider can't open its namespace: access denied");
}

TEST(OpenMachine, FailsOnASourceThatThrowsItsOwnException) {
  const auto fail = []() -> boost::shared_ptr<ICIMNamespace> {
    throw std::runtime_error("no more ink");
  };
  ExpectFailureWith(Plugin(fail), "the provider can't open its namespace: no more ink");
}

TEST(OpenMachine, FailsOnASourceThatGivesNothing) {
  const auto giveNothing = [] { return boost::shared_ptr<ICIMNamespace>(); };
  ExpectFailureWith(Plugin(giveNothing), "the provider has no namespace to open");
}

}  // namespace
}  // namespace hwx
