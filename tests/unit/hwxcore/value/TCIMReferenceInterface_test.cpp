// The forms of the interface of references, held by the compiler: parameter types to the letter and
// const-ness.

#include <gtest/gtest.h>

#include <boost/function.hpp>
#include <string>
#include <type_traits>
#include <utility>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMReferenceImpl.h"
#include "hwxcore/value/TCIMReferenceValueImpl.h"
#include "hwxcore/value/TCIMValue.h"
#include "support/ExactMember.h"
#include "support/SchemaStubs.h"

namespace NQORHWX20 {
namespace {

using hwxtest::Has;

using R = TCIMReference;
using Body = TCIMReferenceImpl;
using ValueBody = TCIMReferenceValueImpl;
using Namespace = boost::shared_ptr<ICIMNamespace>;
using Class = boost::shared_ptr<ICIMClass>;
using KeyCallback = boost::function<bool(std::pair<std::string, TCIMValue>)>;

// The handle.
static_assert(std::is_constructible_v<R, Namespace, TCIMContext>);
static_assert(std::is_constructible_v<R, Namespace, const std::string&, TCIMContext>);
static_assert(!std::is_default_constructible_v<R>);
static_assert(std::is_copy_constructible_v<R> && std::is_copy_assignable_v<R>);
static_assert(sizeof(R) == sizeof(void*), "the body alone");
static_assert(!std::is_polymorphic_v<R>);
static_assert(Has<Body* (R::*)() const>(&R::GetBody));
static_assert(Has<void (R::*)(const std::string&)>(&R::SetPath));
static_assert(Has<std::string (R::*)() const>(&R::GetPath));
static_assert(Has<void (R::*)(const std::string&, const TCIMValue&)>(&R::AddKeyValue));
static_assert(Has<void (R::*)(const KeyCallback&) const>(&R::EnumerateKeyBindings));
static_assert(Has<void (R::*)(Namespace)>(&R::SetNamespace));
static_assert(std::is_same_v<decltype(std::declval<R&>().GetNamespace()), Namespace>);
static_assert(Has<void (R::*)(TCIMContext)>(&R::SetContext));
static_assert(Has<void (R::*)(std::string)>(&R::SetNameSpaceName));
static_assert(Has<std::string (R::*)() const>(&R::GetNameSpaceName));
static_assert(Has<void (R::*)(Class)>(&R::SetClass));
static_assert(Has<void (R::*)(const std::string&)>(&R::SetClassName));
static_assert(Has<Class (R::*)() const>(&R::GetClass));
static_assert(Has<const std::string& (R::*)() const>(&R::GetClassName));
static_assert(Has<void (R::*)()>(&R::Clear));
static_assert(Has<boost::shared_ptr<ICIMElement> (R::*)(bool) const>(&R::GetCIMElement));
static_assert(Has<bool (R::*)(const R&) const>(&R::operator==));
static_assert(Has<bool (R::*)(const R&) const>(&R::operator<));

// The body, which belongs to one handle and so has no copy without an owner.
static_assert(!std::is_polymorphic_v<Body>);
static_assert(!std::is_copy_constructible_v<Body> && !std::is_copy_assignable_v<Body>);
static_assert(Has<void (Body::*)(Body*, const std::string&, unsigned long&)>(&Body::ParsePath));

// References in values.
static_assert(std::is_base_of_v<TCIMValueImpl, ValueBody>);
static_assert(std::is_convertible_v<ValueBody*, TCIMValueImpl*>, "a public base");
static_assert(std::is_constructible_v<ValueBody, const R&>);
static_assert(std::is_copy_constructible_v<ValueBody>);
static_assert(std::is_convertible_v<R&, TCIMValue>);
static_assert(!std::is_constructible_v<TCIMValue, const R&>);
static_assert(Has<void (TCIMValue::*)(R&)>(&TCIMValue::Set));
static_assert(std::is_convertible_v<const TCIMValue&, R>);

TEST(TCIMReferenceInterface, AReferencePassesWhereAValueIsExpectedAndBack) {
  R reference{Namespace(), TCIMContext()};
  reference.SetClass(Class(new hwxtest::StubClass));
  const TCIMValue value = reference;
  const R back = value;
  EXPECT_TRUE(back == reference);
  EXPECT_NE(back.GetBody(), reference.GetBody());
}

}  // namespace
}  // namespace NQORHWX20
