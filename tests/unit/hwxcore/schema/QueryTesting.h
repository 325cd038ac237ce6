#ifndef HWXTESTS_UNIT_HWXCORE_SCHEMA_QUERYTESTING_H
#define HWXTESTS_UNIT_HWXCORE_SCHEMA_QUERYTESTING_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "support/RecordingNamespace.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"

namespace hwxtest {

/// Tests of queries, which ask a namespace without classes until a test adds some.
class QueryTest : public ::testing::Test {
 protected:
  using Calls = std::vector<std::string>;

  /// A caller's context, with another provider in it.
  static NQORHWX20::TCIMContext CallersContext() {
    return {{"nspID", "cmpi"}, {"user", "someone"}};
  }

  static void ExpectUnchanged(const NQORHWX20::TCIMContext& context) {
    ASSERT_EQ(context.size(), 2u);
    EXPECT_EQ(context.at("nspID").ToString(10), "cmpi");
    EXPECT_EQ(context.at("user").ToString(10), "someone");
  }

  /// Each makes the calls go wrong, one after another, and tells what that does to `query`. The
  /// calls stand from the last to the first, as each hides those behind it.
  template <typename Query>
  void ExpectStatusToPass(const Calls& calls, const Query& query) {
    for (const std::string& call : calls) {
      fNamespace.Fail(call, NQORHWX20::kHWXStatusAccessDenied);
      EXPECT_EQ(StatusOf(query), NQORHWX20::kHWXStatusAccessDenied) << call;
    }
  }
  template <typename Query>
  void ExpectOtherExceptionsToPass(const Calls& calls, const Query& query) {
    for (const std::string& call : calls) {
      fNamespace.Do(call, [] { throw std::runtime_error("broken"); });
      EXPECT_THROW(query(), std::runtime_error) << call;
    }
  }
  template <typename Query>
  void ExpectEmptyPointerNotFound(const Calls& calls, const Query& query) {
    for (const std::string& call : calls) {
      fNamespace.HandOutNothing(call);
      EXPECT_EQ(StatusOf(query), NQORHWX20::kHWXStatusNotFound) << call;
    }
  }

  RecordingNamespace fNamespace;
  ScopedLogCapture fLog;
};

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_HWXCORE_SCHEMA_QUERYTESTING_H
