#include <gtest/gtest.h>

#include "support/SchemaStubs.h"
#include "support/StatusOf.h"
#include "support/VirtualSlots.h"

using hwxtest::SlotTable;
using hwxtest::StatusOf;

using NQORHWX20::ICIMQualifier;
using NQORHWX20::ICIMQualifierDecl;

namespace {

TEST(ICIMQualifier, HasItsOperationsInTheSlotsOfTheInterface) {
  SlotTable()
      .Has(&ICIMQualifier::Delete)
      .Has(&ICIMQualifier::Commit)
      .Has(&ICIMQualifier::GetName, &ICIMQualifier::GetType, &ICIMQualifier::IsInherited,
           &ICIMQualifier::GetElement, &ICIMQualifier::SetValue)
      .Has(&ICIMQualifier::GetQualifierDecl, &ICIMQualifier::GetValue);
  EXPECT_EQ(hwxtest::SlotOf(&ICIMQualifier::GetValue), 10u);
}

TEST(ICIMQualifier, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubQualifier stub;
  ICIMQualifier& qualifier = stub;
  EXPECT_EQ(StatusOf([&] { qualifier.Delete({}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { qualifier.GetName({}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { qualifier.GetType({}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { qualifier.IsInherited({}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { qualifier.GetElement({}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { qualifier.SetValue(5, {}); }), NQORHWX20::kHWXStatusNotImplemented);
}

TEST(ICIMQualifierDecl, HasItsOperationsInTheSlotsOfTheInterface) {
  SlotTable()
      .Has(&ICIMQualifierDecl::Delete)
      .Has(&ICIMQualifierDecl::Commit)
      .Has(&ICIMQualifierDecl::GetNamespace)
      .Has(&ICIMQualifierDecl::GetName)
      .Has(&ICIMQualifierDecl::Rename, &ICIMQualifierDecl::GetType,
           &ICIMQualifierDecl::SetDefaultValue)
      .Has(&ICIMQualifierDecl::GetDefaultValue)
      .Has(&ICIMQualifierDecl::SetScope)
      .Has(&ICIMQualifierDecl::GetScope)
      .Has(&ICIMQualifierDecl::SetFlavor, &ICIMQualifierDecl::IsOverridable)
      .Has(&ICIMQualifierDecl::GetFlavor);
  EXPECT_EQ(hwxtest::SlotOf(&ICIMQualifierDecl::GetFlavor), 14u);
}

TEST(ICIMQualifierDecl, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubQualifierDecl stub;
  ICIMQualifierDecl& decl = stub;
  const auto expectNotImplemented = [](auto call) {
    EXPECT_EQ(StatusOf(call), NQORHWX20::kHWXStatusNotImplemented);
  };
  expectNotImplemented([&] { decl.Delete({}); });
  expectNotImplemented([&] { decl.GetNamespace({}); });
  expectNotImplemented([&] { decl.Rename("", {}); });
  expectNotImplemented([&] { decl.GetType({}); });
  expectNotImplemented([&] { decl.SetDefaultValue(5, {}); });
  expectNotImplemented([&] { decl.SetScope(1, {}); });
  expectNotImplemented([&] { decl.SetFlavor(1, {}); });
  expectNotImplemented([&] { decl.IsOverridable({}); });
}

TEST(ICIMQualifierDecl, HasNoDataMembersAndAVirtualDestructor) {
  EXPECT_EQ(sizeof(ICIMQualifier), sizeof(void*));
  EXPECT_EQ(sizeof(ICIMQualifierDecl), sizeof(void*));
  EXPECT_TRUE(std::has_virtual_destructor<ICIMQualifier>::value);
  EXPECT_TRUE(std::has_virtual_destructor<ICIMQualifierDecl>::value);
}

}  // namespace
