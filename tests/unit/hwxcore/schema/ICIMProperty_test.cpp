#include <gtest/gtest.h>

#include "support/SchemaStubs.h"
#include "support/StatusOf.h"
#include "support/VirtualSlots.h"

using hwxtest::SlotTable;
using hwxtest::StatusOf;

using NQORHWX20::ICIMProperty;

namespace {

TEST(ICIMProperty, HasItsOperationsInTheSlotsOfTheInterface) {
  SlotTable()
      .Has(&ICIMProperty::GetName, &ICIMProperty::GetType, &ICIMProperty::IsNull)
      .Has(&ICIMProperty::GetValue)
      .Has(&ICIMProperty::SetValue, &ICIMProperty::GetInstance)
      .Has(&ICIMProperty::GetPropertyDecl)
      .Has(&ICIMProperty::GetBooleanValue, &ICIMProperty::GetUInt16Value,
           &ICIMProperty::GetUInt32Value, &ICIMProperty::GetUInt64Value,
           &ICIMProperty::GetSInt32Value, &ICIMProperty::GetSInt64Value,
           &ICIMProperty::GetReal64Value)
      .Has(&ICIMProperty::GetStringValue)
      .Has(&ICIMProperty::GetDateTimeValue)
      .Has(&ICIMProperty::GetStringArrayValue);
  EXPECT_EQ(hwxtest::SlotOf(&ICIMProperty::GetStringArrayValue), 18u);
}

TEST(ICIMProperty, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubProperty stub;
  ICIMProperty& property = stub;
  const auto expectNotImplemented = [](auto call) {
    EXPECT_EQ(StatusOf(call), NQORHWX20::kHWXStatusNotImplemented);
  };
  expectNotImplemented([&] { property.GetName({}); });
  expectNotImplemented([&] { property.GetType({}); });
  expectNotImplemented([&] { property.IsNull({}); });
  expectNotImplemented([&] { property.SetValue(5, {}); });
  expectNotImplemented([&] { property.GetInstance({}); });
  expectNotImplemented([&] { property.GetBooleanValue(); });
  expectNotImplemented([&] { property.GetUInt16Value(); });
  expectNotImplemented([&] { property.GetUInt32Value(); });
  expectNotImplemented([&] { property.GetUInt64Value(); });
  expectNotImplemented([&] { property.GetSInt32Value(); });
  expectNotImplemented([&] { property.GetSInt64Value(); });
  expectNotImplemented([&] { property.GetReal64Value(); });
  expectNotImplemented([&] { property.GetDateTimeValue(); });
}

TEST(ICIMProperty, HasNoDataMembersAndAVirtualDestructor) {
  EXPECT_EQ(sizeof(ICIMProperty), sizeof(void*));
  EXPECT_TRUE(std::has_virtual_destructor<ICIMProperty>::value);
}

}  // namespace
