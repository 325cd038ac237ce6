#include <gtest/gtest.h>

#include "support/SchemaStubs.h"
#include "support/StatusOf.h"
#include "support/VirtualSlots.h"

using hwxtest::SlotTable;
using hwxtest::StatusOf;

using NQORHWX20::ICIMElement;
using NQORHWX20::ICIMInstance;

namespace {

TEST(ICIMInstance, HasItsOperationsInTheSlotsOfTheInterface) {
  SlotTable()
      .Has(&ICIMInstance::Delete, &ICIMInstance::Refresh, &ICIMInstance::Clone,
           &ICIMInstance::IsInstanceOf, &ICIMInstance::GetClassName, &ICIMInstance::GetNamespace)
      .Has(&ICIMInstance::GetClass)
      .Has(&ICIMInstance::GetPropertyCount, &ICIMInstance::HasProperty,
           &ICIMInstance::EnumerateKeyProperties)
      .Has(&ICIMInstance::GetProperty, &ICIMInstance::SetPropertyValue,
           &ICIMInstance::EnumerateProperties);
  EXPECT_EQ(hwxtest::SlotOf(&ICIMInstance::EnumerateProperties), 14u);
}

TEST(ICIMInstance, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubInstance stub;
  ICIMInstance& instance = stub;
  const auto expectNotImplemented = [](auto call) {
    EXPECT_EQ(StatusOf(call), NQORHWX20::kHWXStatusNotImplemented);
  };
  expectNotImplemented([&] { instance.Delete({}); });
  expectNotImplemented([&] { instance.Refresh({}); });
  expectNotImplemented([&] { instance.Clone({}); });
  expectNotImplemented([&] { instance.IsInstanceOf("", {}); });
  expectNotImplemented([&] { instance.GetClassName({}); });
  expectNotImplemented([&] { instance.GetNamespace({}); });
  expectNotImplemented([&] { instance.GetPropertyCount({}); });
  expectNotImplemented([&] { instance.HasProperty("", {}); });
  expectNotImplemented([&] { instance.EnumerateKeyProperties({}, {}); });
}

TEST(ICIMInstance, ConvertsToItsFirstBaseWithoutAdjustment) {
  const boost::shared_ptr<ICIMInstance> instance(new hwxtest::StubInstance);
  const boost::shared_ptr<ICIMElement> element = instance;
  EXPECT_EQ(static_cast<void*>(element.get()), static_cast<void*>(instance.get()));
  EXPECT_EQ(sizeof(ICIMInstance), sizeof(void*));
}

}  // namespace
