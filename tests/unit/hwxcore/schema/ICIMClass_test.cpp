#include <gtest/gtest.h>

#include <boost/weak_ptr.hpp>

#include "support/SchemaStubs.h"
#include "support/StatusOf.h"
#include "support/VirtualSlots.h"

using hwxtest::SlotTable;
using hwxtest::StatusOf;

using NQORHWX20::ICIMClass;
using NQORHWX20::ICIMElement;
using NQORHWX20::ICIMQualifiedElement;

namespace {

TEST(ICIMClass, HasItsOperationsInTheSlotsOfTheInterface) {
  SlotTable()
      .Has(&ICIMClass::Delete)
      .Has(&ICIMClass::Commit)
      .Has(&ICIMClass::IsCommitted, &ICIMClass::Rename)
      .Has(&ICIMClass::GetName, &ICIMClass::GetNamespace, &ICIMClass::IsAssociation,
           &ICIMClass::IsAbstract, &ICIMClass::IsRootClass, &ICIMClass::GetSuperClass,
           &ICIMClass::EnumerateSubClasses)
      .Has(&ICIMClass::GetSubClassCount, &ICIMClass::HasSubClasses, &ICIMClass::IsSubClassOf,
           &ICIMClass::IsSuperClassOf)
      .Has(&ICIMClass::CreatePropertyDecl, &ICIMClass::GetPropertyDecl,
           &ICIMClass::EnumeratePropertyDecls)
      .Has(&ICIMClass::DeletePropertyDecl)
      .Has(&ICIMClass::SetStaticPropertyValue, &ICIMClass::EnumerateStaticProperties,
           &ICIMClass::CreateInstance, &ICIMClass::EnumerateInstances, &ICIMClass::CreateMethodDecl)
      .Has(&ICIMClass::GetMethodDecl)
      .Has(&ICIMClass::EnumerateMethodDecls)
      .Has(&ICIMClass::DeleteMethodDecl, &ICIMClass::GetPropertyDeclCount,
           &ICIMClass::GetMethodDeclCount, &ICIMClass::GetStaticProperty,
           &ICIMClass::DeleteStaticProperty, &ICIMClass::EnumerateKeyPropertyDecls,
           &ICIMClass::GetInstanceCount, &ICIMClass::DeleteInstances)
      .Has(&ICIMClass::AddInstance);
  EXPECT_EQ(hwxtest::SlotOf(&ICIMClass::AddInstance), 36u);
}

TEST(ICIMClass, DoesNotImplementWhatAProviderMayLeaveOut) {
  hwxtest::StubClass stub;
  ICIMClass& cimClass = stub;
  const auto expectNotImplemented = [](auto call) {
    EXPECT_EQ(StatusOf(call), NQORHWX20::kHWXStatusNotImplemented);
  };
  expectNotImplemented([&] { cimClass.Delete({}); });
  expectNotImplemented([&] { cimClass.IsCommitted({}); });
  expectNotImplemented([&] { cimClass.Rename("", {}); });
  expectNotImplemented([&] { cimClass.GetSubClassCount(true, {}); });
  expectNotImplemented([&] { cimClass.HasSubClasses({}); });
  expectNotImplemented([&] { cimClass.IsSubClassOf("", {}); });
  expectNotImplemented([&] { cimClass.IsSuperClassOf("", {}); });
  expectNotImplemented([&] { cimClass.DeletePropertyDecl("", {}); });
  expectNotImplemented([&] { cimClass.GetMethodDecl("", {}); });
  expectNotImplemented([&] { cimClass.DeleteMethodDecl("", {}); });
  expectNotImplemented([&] { cimClass.GetPropertyDeclCount({}); });
  expectNotImplemented([&] { cimClass.GetMethodDeclCount({}); });
  expectNotImplemented([&] { cimClass.GetStaticProperty("", {}); });
  expectNotImplemented([&] { cimClass.DeleteStaticProperty("", {}); });
  expectNotImplemented([&] { cimClass.EnumerateKeyPropertyDecls({}, {}); });
  expectNotImplemented([&] { cimClass.GetInstanceCount(true, {}); });
  expectNotImplemented([&] { cimClass.DeleteInstances({}); });
}

TEST(ICIMClass, ConvertsToItsFirstBaseWithoutAdjustment) {
  const boost::shared_ptr<ICIMClass> cimClass(new hwxtest::StubClass);
  const boost::shared_ptr<ICIMElement> element = cimClass;
  EXPECT_EQ(static_cast<void*>(element.get()), static_cast<void*>(cimClass.get()));
}

TEST(ICIMClass, ConvertsToAQualifiedElementAtAnotherAddressThatSharesOwnership) {
  boost::shared_ptr<ICIMClass> cimClass(new hwxtest::StubClass);
  const boost::shared_ptr<ICIMQualifiedElement> element = cimClass;
  EXPECT_NE(static_cast<void*>(element.get()), static_cast<void*>(cimClass.get()));
  EXPECT_EQ(cimClass.use_count(), 2);
  EXPECT_FALSE(element.owner_before(cimClass));
  EXPECT_FALSE(cimClass.owner_before(element));
  const boost::weak_ptr<ICIMClass> observer = cimClass;
  cimClass.reset();
  EXPECT_FALSE(observer.expired());
}

TEST(ICIMClass, HasNoDataMembersAndAVirtualDestructor) {
  EXPECT_EQ(sizeof(ICIMElement), sizeof(void*));
  EXPECT_EQ(sizeof(ICIMClass), 2 * sizeof(void*));
  EXPECT_TRUE(std::has_virtual_destructor<ICIMElement>::value);
}

}  // namespace
