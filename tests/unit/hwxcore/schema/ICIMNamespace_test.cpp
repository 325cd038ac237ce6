#include <gtest/gtest.h>

#include "support/SchemaStubs.h"
#include "support/StatusOf.h"
#include "support/VirtualSlots.h"

using hwxtest::SlotTable;
using hwxtest::StatusOf;

using NQORHWX20::ICIMNamespace;

namespace {

TEST(ICIMNamespace, HasItsOperationsInTheSlotsOfTheInterface) {
  SlotTable()
      .Has(&ICIMNamespace::GetName, &ICIMNamespace::Rename, &ICIMNamespace::GetClassCount)
      .Has(&ICIMNamespace::CreateClass, &ICIMNamespace::GetClass, &ICIMNamespace::EnumerateClasses)
      .Has(&ICIMNamespace::DeleteClass)
      .Has(&ICIMNamespace::CreateQualifierDecl, &ICIMNamespace::GetQualifierDecl,
           &ICIMNamespace::EnumerateQualifierDecls)
      .Has(&ICIMNamespace::DeleteQualifierDecl)
      .Has(&ICIMNamespace::GetInstance);
  EXPECT_EQ(hwxtest::SlotOf(&ICIMNamespace::GetInstance), 13u);
}

TEST(ICIMNamespace, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubNamespace stub;
  ICIMNamespace& ns = stub;
  EXPECT_EQ(StatusOf([&] { ns.GetName({}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { ns.Rename("", {}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { ns.GetClassCount({}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { ns.DeleteClass("", {}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { ns.DeleteQualifierDecl("", {}); }), NQORHWX20::kHWXStatusNotImplemented);
}

TEST(ICIMNamespace, HasNoDataMembersAndAVirtualDestructor) {
  EXPECT_EQ(sizeof(ICIMNamespace), sizeof(void*));
  EXPECT_TRUE(std::has_virtual_destructor<ICIMNamespace>::value);
}

}  // namespace
