// The forms of the interface, held by the compiler: parameter types to the letter, const-ness, and
// which conversions callers get without asking.

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include "hwxcore/value/TCIMArrayValueImpl.h"
#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMChar16Impl.h"
#include "hwxcore/value/TCIMChar16ValueImpl.h"
#include "hwxcore/value/TCIMContext.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMDateTimeImpl.h"
#include "hwxcore/value/TCIMDateTimeValueImpl.h"
#include "hwxcore/value/TCIMNumericValueImpl.h"
#include "hwxcore/value/TCIMStringValueImpl.h"
#include "hwxcore/value/TCIMValue.h"
#include "support/ExactMember.h"

namespace NQORHWX20 {
namespace {

using hwxtest::Has;

using TCIMType = TCIMValue::TCIMType;
using V = TCIMValue;
using Elements = std::vector<TCIMValue>;
using Namespace = boost::shared_ptr<ICIMNamespace>;
using Class = boost::shared_ptr<ICIMClass>;

template <typename Type, typename From>
constexpr bool kImplicit = std::is_convertible_v<From, Type>;

// Types.
static_assert(std::is_same_v<std::underlying_type_t<TCIMType::ECIMType>, int>);
static_assert(std::is_convertible_v<TCIMType::ECIMType, int>, "unscoped");
static_assert(sizeof(TCIMType) == 4);
static_assert(kImplicit<TCIMType, TCIMType::ECIMType>);
static_assert(std::is_constructible_v<TCIMType, std::string>);
static_assert(std::is_constructible_v<TCIMType, const char*>);
static_assert(kImplicit<TCIMType::ECIMType, const TCIMType&>);
static_assert(std::is_copy_assignable_v<TCIMType>);
static_assert(Has<std::string (TCIMType::*)() const>(&TCIMType::ToString));
static_assert(Has<std::ostream& (*)(std::ostream&, const TCIMType&)>(&operator<<));

// Construction: each scalar by itself, and implicitly.
static_assert(std::is_default_constructible_v<V> && std::is_copy_constructible_v<V>);
static_assert(std::is_nothrow_move_constructible_v<V>);  // so that a vector grows without copies
static_assert(kImplicit<V, bool> && kImplicit<V, unsigned char> && kImplicit<V, signed char>);
static_assert(kImplicit<V, unsigned short> && kImplicit<V, short>);
static_assert(kImplicit<V, unsigned int> && kImplicit<V, int>);
static_assert(kImplicit<V, unsigned long> && kImplicit<V, long>);
static_assert(kImplicit<V, float> && kImplicit<V, double>);
static_assert(kImplicit<V, const char*> && kImplicit<V, const std::string&>);
static_assert(kImplicit<V, const TCIMChar16&> && kImplicit<V, const TCIMDateTime&>);
static_assert(std::is_constructible_v<V, TCIMType, unsigned int>);
static_assert(std::is_constructible_v<V, TCIMType, unsigned int, const Elements&>);
static_assert(std::is_constructible_v<V, TCIMType, std::string&, Namespace>);
static_assert(!std::is_constructible_v<V, TCIMType, const std::string&, Namespace>);
static_assert(!std::is_constructible_v<V, TCIMType, std::string, Namespace>);
static_assert(!std::is_polymorphic_v<V>);

// Setting: the overloads have exactly these parameters.
static_assert(Has<void (V::*)(bool)>(&V::Set));
static_assert(Has<void (V::*)(unsigned char)>(&V::Set));
static_assert(Has<void (V::*)(signed char)>(&V::Set));
static_assert(Has<void (V::*)(unsigned short)>(&V::Set));
static_assert(Has<void (V::*)(short)>(&V::Set));
static_assert(Has<void (V::*)(unsigned int)>(&V::Set));
static_assert(Has<void (V::*)(int)>(&V::Set));
static_assert(Has<void (V::*)(unsigned long)>(&V::Set));
static_assert(Has<void (V::*)(long)>(&V::Set));
static_assert(Has<void (V::*)(float)>(&V::Set));
static_assert(Has<void (V::*)(double)>(&V::Set));
static_assert(Has<void (V::*)(const char*)>(&V::Set));
static_assert(Has<void (V::*)(const std::string&)>(&V::Set));
static_assert(Has<void (V::*)(const TCIMChar16&)>(&V::Set));
static_assert(Has<void (V::*)(const TCIMDateTime&)>(&V::Set));
static_assert(Has<void (V::*)(const TCIMValue&)>(&V::Set));
static_assert(Has<void (V::*)(TCIMType, unsigned int, const Elements&)>(&V::Set));
static_assert(Has<V& (V::*)(const V&)>(&V::operator=));
static_assert(Has<void (V::*)(TCIMType::ECIMType, unsigned int)>(&V::SetNullValue));
static_assert(Has<void (V::*)(Class)>(&V::SetReferencedClass));

// Asking: const throughout.
static_assert(Has<bool (V::*)() const>(&V::IsNull));
static_assert(Has<bool (V::*)() const>(&V::IsArray));
static_assert(Has<bool (V::*)() const>(&V::IsReference));
static_assert(Has<TCIMType (V::*)() const>(&V::GetType));
static_assert(Has<unsigned int (V::*)() const>(&V::GetMaxArraySize));
static_assert(Has<Class (V::*)() const>(&V::GetReferencedClass));
static_assert(Has<std::string (V::*)(unsigned char) const>(&V::ToString));
static_assert(Has<bool (V::*)(const V&) const>(&V::operator<));
static_assert(Has<bool (V::*)(const V&) const>(&V::operator==));
static_assert(Has<bool (V::*)(const V&) const>(&V::operator<=));
static_assert(Has<bool (V::*)(const V&) const>(&V::operator>));
static_assert(Has<bool (V::*)(const V&) const>(&V::operator>=));
static_assert(Has<bool (V::*)(const V&) const>(&V::operator!=));

// Converting: implicit, from a constant value. Characters have no conversion.
static_assert(kImplicit<bool, const V&>);
static_assert(kImplicit<unsigned char, const V&> && kImplicit<signed char, const V&>);
static_assert(kImplicit<unsigned short, const V&> && kImplicit<short, const V&>);
static_assert(kImplicit<unsigned int, const V&> && kImplicit<int, const V&>);
static_assert(kImplicit<unsigned long, const V&> && kImplicit<long, const V&>);
static_assert(kImplicit<float, const V&> && kImplicit<double, const V&>);
static_assert(kImplicit<std::string, const V&>);
static_assert(kImplicit<Elements&, const V&>);
static_assert(Has<TCIMDateTime (V::*)() const>(&V::operator TCIMDateTime));
static_assert(Has<Elements& (V::*)() const>(&V::operator Elements&));

template <typename Body, typename = void>
struct HasChar16Operator : std::false_type {};
template <typename Body>
struct HasChar16Operator<Body, std::void_t<decltype(&Body::operator TCIMChar16)>> : std::true_type {
};
static_assert(!HasChar16Operator<TCIMValue>::value, "the gap is meant");
static_assert(HasChar16Operator<TCIMValueImpl>::value);

// Bodies.
static_assert(std::is_abstract_v<TCIMValueImpl> && std::has_virtual_destructor_v<TCIMValueImpl>);
static_assert(sizeof(TCIMValueImpl) == sizeof(void*), "no data");
template <typename Body, typename... From>
constexpr bool kIsBody =
    std::is_convertible_v<Body*, TCIMValueImpl*>&& std::is_copy_constructible_v<Body> &&
    !std::is_abstract_v<Body> && (std::is_constructible_v<Body, From> && ...);
static_assert(kIsBody<TCIMNumericValueImpl, bool, unsigned char, signed char, unsigned short, short,
                      unsigned int, int, unsigned long, long, float, double>);
static_assert(kIsBody<TCIMStringValueImpl, const std::string&, const char*>);
static_assert(kIsBody<TCIMArrayValueImpl, const Elements&>);
static_assert(kIsBody<TCIMChar16ValueImpl, const TCIMChar16&>);
static_assert(kIsBody<TCIMDateTimeValueImpl, const TCIMDateTime&>);

// Characters.
static_assert(std::is_default_constructible_v<TCIMChar16> &&
              std::is_copy_constructible_v<TCIMChar16> && std::is_copy_assignable_v<TCIMChar16>);
static_assert(std::is_constructible_v<TCIMChar16, unsigned short>);
static_assert(std::is_constructible_v<TCIMChar16, const std::string&>);
static_assert(Has<unsigned short (TCIMChar16::*)() const>(&TCIMChar16::GetValue));
static_assert(Has<std::string (TCIMChar16::*)() const>(&TCIMChar16::ToString));
static_assert(Has<bool (TCIMChar16::*)(const TCIMChar16&) const>(&TCIMChar16::operator<));
static_assert(Has<bool (TCIMChar16::*)(const TCIMChar16&) const>(&TCIMChar16::operator==));
static_assert(!std::is_polymorphic_v<TCIMChar16Impl>);
static_assert(Has<bool (TCIMChar16Impl::*)() const>(&TCIMChar16Impl::IsNull));
static_assert(Has<unsigned short (TCIMChar16Impl::*)() const>(&TCIMChar16Impl::GetValue));
static_assert(Has<std::string (TCIMChar16Impl::*)() const>(&TCIMChar16Impl::ToString));

// Date-times.
using D = TCIMDateTime;
using Short = unsigned short;
static_assert(std::is_default_constructible_v<D> && std::is_copy_constructible_v<D>);
static_assert(std::is_constructible_v<D, Short, Short, unsigned int, Short, Short, Short,
                                      unsigned int, short>);
static_assert(std::is_constructible_v<D, unsigned int, Short, Short, Short, unsigned int>);
static_assert(sizeof(D) == sizeof(boost::shared_ptr<TCIMDateTimeImpl>), "the body alone");
static_assert(!std::is_polymorphic_v<D>);
static_assert(Has<D& (D::*)(const D&)>(&D::operator=));
static_assert(Has<void (D::*)(unsigned int, Short, Short, Short, unsigned int)>(&D::Set));
static_assert(Has<void (D::*)(Short, Short, unsigned int, Short, Short, Short, unsigned int,
                              short)>(&D::Set));
static_assert(Has<void (D::*)(const std::string&)>(&D::Set));
static_assert(Has<void (D::*)()>(&D::Clear));
static_assert(Has<bool (D::*)() const>(&D::IsNull) && Has<bool (D::*)() const>(&D::IsInterval));
static_assert(Has<Short (D::*)() const>(&D::GetYear) && Has<Short (D::*)() const>(&D::GetMonth));
static_assert(Has<unsigned int (D::*)() const>(&D::GetDay));
static_assert(Has<Short (D::*)() const>(&D::GetHour) && Has<Short (D::*)() const>(&D::GetMinute));
static_assert(Has<Short (D::*)() const>(&D::GetSecond));
static_assert(Has<unsigned int (D::*)() const>(&D::GetMicroSeconds));
static_assert(Has<short (D::*)() const>(&D::GetUTCOffset));
static_assert(Has<bool (D::*)() const>(&D::GetPrecision));
static_assert(Has<void (D::*)(bool)>(&D::SetPrecision));
static_assert(Has<std::string (D::*)() const>(&D::ToString));
static_assert(Has<std::string (D::*)() const>(&D::ToUIString));
static_assert(Has<bool (D::*)(const D&) const>(&D::operator<));
static_assert(Has<bool (D::*)(const D&) const>(&D::operator==));
static_assert(Has<D (D::*)(const D&) const>(&D::operator+));
static_assert(Has<D (D::*)(const D&) const>(&D::operator-));
static_assert(Has<boost::shared_ptr<TCIMDateTimeImpl> (D::*)() const>(&D::GetBody));
static_assert(std::is_copy_constructible_v<TCIMDateTimeImpl>);

static_assert(std::is_same_v<TCIMContext, std::map<std::string, TCIMValue>>);

std::string TakeString(std::string text) {
  return text;
}

unsigned int TakeNumber(unsigned int number) {
  return number;
}

TCIMValue TakeValue(TCIMValue value) {
  return value;
}

TEST(TCIMValueInterface, ScalarsAndTextPassWhereAValueIsExpected) {
  EXPECT_EQ(TakeValue(5).GetType(), TCIMType::kCIMTypeSInt32);
  EXPECT_EQ(TakeValue(5ul).GetType(), TCIMType::kCIMTypeUInt64);
  EXPECT_EQ(TakeValue(true).GetType(), TCIMType::kCIMTypeBoolean);
  EXPECT_EQ(TakeValue("text").GetType(), TCIMType::kCIMTypeString);
  EXPECT_EQ(TakeValue(std::string("text")).GetType(), TCIMType::kCIMTypeString);
}

TEST(TCIMValueInterface, ValuesPassWhereScalarsAndTextAreExpected) {
  const TCIMValue text("text");
  const TCIMValue number(5u);
  EXPECT_EQ(TakeString(text), "text");
  EXPECT_EQ(TakeNumber(number), 5u);
  const std::string copied = text;
  EXPECT_EQ(copied, "text");
  EXPECT_EQ(static_cast<std::string>(text), "text");
  const unsigned int cast = static_cast<unsigned int>(number);
  EXPECT_EQ(cast, 5u);
}

TEST(TCIMValueInterface, ABooleanValueServesAsACondition) {
  EXPECT_STREQ(TCIMValue(true) ? "yes" : "no", "yes");
  EXPECT_STREQ(TCIMValue(false) ? "yes" : "no", "no");
}

TEST(TCIMValueInterface, TheBodyOfANumberIsATagAndEightBytes) {
  EXPECT_EQ(sizeof(TCIMNumericValueImpl), sizeof(void*) + 2 * sizeof(std::size_t));
}

}  // namespace
}  // namespace NQORHWX20
