#include <gtest/gtest.h>

#include "support/SchemaStubs.h"
#include "support/StatusOf.h"
#include "support/VirtualSlots.h"

using hwxtest::SlotTable;
using hwxtest::StatusOf;

using NQORHWX20::ICIMMethodDecl;
using NQORHWX20::ICIMParameterDecl;
using NQORHWX20::ICIMPropertyDecl;
using NQORHWX20::ICIMQualifiedElement;

namespace {

// The declarations continue the table of their base.
constexpr std::size_t kBaseSlots = 9;

TEST(ICIMQualifiedElement, HasItsOperationsInTheSlotsOfTheInterface) {
  const SlotTable table =
      SlotTable()
          .Has(&ICIMQualifiedElement::GetQualifierCount)
          .Has(&ICIMQualifiedElement::CreateQualifier)
          .Has(&ICIMQualifiedElement::DeleteQualifier)
          .Has(&ICIMQualifiedElement::GetQualifier, &ICIMQualifiedElement::EnumerateQualifiers)
          .Has(&ICIMQualifiedElement::HasQualifier, &ICIMQualifiedElement::SetQualifierValue);
  EXPECT_EQ(table.Size(), kBaseSlots);
}

TEST(ICIMPropertyDecl, HasItsOperationsBehindThoseOfItsBase) {
  SlotTable(kBaseSlots)
      .Has(&ICIMPropertyDecl::Commit)
      .Has(&ICIMPropertyDecl::Rename)
      .Has(&ICIMPropertyDecl::GetName)
      .Has(&ICIMPropertyDecl::GetClass)
      .Has(&ICIMPropertyDecl::GetType)
      .Has(&ICIMPropertyDecl::SetDefaultValue)
      .Has(&ICIMPropertyDecl::GetDefaultValue);
}

TEST(ICIMMethodDecl, HasItsOperationsBehindThoseOfItsBase) {
  SlotTable(kBaseSlots)
      .Has(&ICIMMethodDecl::Rename)
      .Has(&ICIMMethodDecl::GetName)
      .Has(&ICIMMethodDecl::GetClass)
      .Has(&ICIMMethodDecl::GetReturnType, &ICIMMethodDecl::CreateParameterDecl)
      .Has(&ICIMMethodDecl::GetParameterDecl)
      .Has(&ICIMMethodDecl::EnumerateParameterDecls);
}

TEST(ICIMParameterDecl, HasItsOperationsBehindThoseOfItsBase) {
  SlotTable(kBaseSlots)
      .Has(&ICIMParameterDecl::Commit, &ICIMParameterDecl::GetName)
      .Has(&ICIMParameterDecl::GetMethodDecl)
      .Has(&ICIMParameterDecl::GetType);
}

void ExpectQualifierDefaults(ICIMQualifiedElement& element) {
  const auto expectNotImplemented = [](auto call) {
    EXPECT_EQ(StatusOf(call), NQORHWX20::kHWXStatusNotImplemented);
  };
  expectNotImplemented([&] { element.GetQualifierCount({}); });
  expectNotImplemented([&] { element.DeleteQualifier("", {}); });
  expectNotImplemented([&] { element.HasQualifier("", {}); });
  expectNotImplemented([&] { element.SetQualifierValue("", 5, {}); });
}

TEST(ICIMQualifiedElement, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubQualifiedElement element;
  hwxtest::StubClass cimClass;
  hwxtest::StubMethodDecl method;
  ExpectQualifierDefaults(element);
  ExpectQualifierDefaults(cimClass);
  ExpectQualifierDefaults(method);
}

TEST(ICIMPropertyDecl, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubPropertyDecl stub;
  ICIMPropertyDecl& decl = stub;
  EXPECT_EQ(StatusOf([&] { decl.Rename("", {}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { decl.GetClass({}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { decl.SetDefaultValue(5, {}); }), NQORHWX20::kHWXStatusNotImplemented);
}

TEST(ICIMMethodDecl, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubMethodDecl stub;
  ICIMMethodDecl& decl = stub;
  EXPECT_EQ(StatusOf([&] { decl.Rename("", {}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { decl.GetClass({}); }), NQORHWX20::kHWXStatusNotImplemented);
  EXPECT_EQ(StatusOf([&] { decl.GetParameterDecl("", {}); }), NQORHWX20::kHWXStatusNotImplemented);
}

TEST(ICIMParameterDecl, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubParameterDecl stub;
  ICIMParameterDecl& decl = stub;
  EXPECT_EQ(StatusOf([&] { decl.GetMethodDecl({}); }), NQORHWX20::kHWXStatusNotImplemented);
}

template <typename Stub>
void ExpectBaseWithoutAdjustment() {
  Stub stub;
  ICIMQualifiedElement* const element = &stub;
  EXPECT_EQ(static_cast<void*>(element), static_cast<void*>(&stub));
  EXPECT_EQ(sizeof stub, sizeof(void*));
}

TEST(ICIMQualifiedElement, IsTheFirstBaseOfTheDeclarations) {
  ExpectBaseWithoutAdjustment<hwxtest::StubPropertyDecl>();
  ExpectBaseWithoutAdjustment<hwxtest::StubMethodDecl>();
  ExpectBaseWithoutAdjustment<hwxtest::StubParameterDecl>();
  EXPECT_TRUE(std::has_virtual_destructor<ICIMQualifiedElement>::value);
}

}  // namespace
