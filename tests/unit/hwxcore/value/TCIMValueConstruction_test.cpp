#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::ArrayOf;
using hwxtest::FailureOf;
using hwxtest::MakeClassToken;
using hwxtest::OneOfEachScalar;
using hwxtest::OneOfEachType;
using hwxtest::TCIMType;

TEST(TCIMValueConstruction, ADefaultValueIsUntypedNullAndBare) {
  const TCIMValue value;
  EXPECT_TRUE(value.IsNull());
  EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeNone);
  EXPECT_FALSE(value.IsArray());
  EXPECT_FALSE(value.IsReference());
  EXPECT_EQ(value.GetMaxArraySize(), 0u);
  EXPECT_FALSE(value.GetReferencedClass());
}

TEST(TCIMValueConstruction, ATypedNullWithoutAMaximumSizeHasJustTheType) {
  for (int tag = 0; tag < 32; ++tag) {
    const TCIMValue value(TCIMType(static_cast<TCIMType::ECIMType>(tag)), 0);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(static_cast<int>(value.GetType()), tag);
    EXPECT_EQ(value.IsArray(), tag >= 16);
    EXPECT_EQ(value.IsReference(), tag == 15);
    EXPECT_EQ(value.GetMaxArraySize(), 0u);
  }
}

TEST(TCIMValueConstruction, ATypedNullWithAMaximumSizeIsAnArray) {
  for (int tag = 0; tag < 32; ++tag) {
    const TCIMValue value(TCIMType(static_cast<TCIMType::ECIMType>(tag)), 5);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(static_cast<int>(value.GetType()), tag | 16);
    EXPECT_TRUE(value.IsArray());
    EXPECT_FALSE(value.IsReference());
    EXPECT_EQ(value.GetMaxArraySize(), 5u);
  }
}

TEST(TCIMValueConstruction, EachScalarGivesItsOwnType) {
  const std::vector<TCIMValue> values = OneOfEachScalar();
  int tag = 0;
  for (const TCIMValue& value : values) {
    ++tag;
    EXPECT_EQ(static_cast<int>(value.GetType()), tag);
    EXPECT_FALSE(value.IsNull());
    EXPECT_FALSE(value.IsArray());
    EXPECT_FALSE(value.IsReference());
    EXPECT_EQ(value.GetMaxArraySize(), 0u);
    EXPECT_FALSE(value.GetReferencedClass());
  }
  EXPECT_EQ(tag, 14);
}

TEST(TCIMValueConstruction, BothFormsOfTextGiveStrings) {
  const std::string text("with\0zero", 9);
  EXPECT_EQ(static_cast<std::string>(TCIMValue(text)), text);
  EXPECT_EQ(static_cast<std::string>(TCIMValue("plain")), "plain");
  EXPECT_EQ(TCIMValue("").GetType(), TCIMType::kCIMTypeString);
  EXPECT_FALSE(TCIMValue("").IsNull());
}

TEST(TCIMValueConstruction, ACopyIsEqualAndApart) {
  for (const TCIMValue& value : OneOfEachType()) {
    TCIMValue copy(value);
    EXPECT_TRUE(copy == value);
    EXPECT_EQ(copy.GetType(), value.GetType());
    EXPECT_EQ(copy.ToString(10), value.ToString(10));
    const std::string before = value.ToString(10);
    copy.SetNullValue(TCIMType::kCIMTypeNone, 0);
    EXPECT_EQ(value.ToString(10), before);
  }
}

TEST(TCIMValueConstruction, ACopyOutlivesItsSource) {
  std::vector<TCIMValue> sources = OneOfEachType();
  const std::vector<TCIMValue> copies(sources);
  sources.clear();
  EXPECT_EQ(copies.back().ToString(10), "{ 65, 65 }");
  EXPECT_EQ(copies[12].ToString(10), "text");
}

TEST(TCIMValueConstruction, AnUntypedValueCanBeCopied) {
  const TCIMValue source;
  const TCIMValue copy(source);
  EXPECT_TRUE(copy.IsNull());
  EXPECT_EQ(copy.GetType(), TCIMType::kCIMTypeNone);
  EXPECT_TRUE(copy == source);
}

TEST(TCIMValueConstruction, ACopyOfATypedNullKeepsTypeAndArraySize) {
  for (int tag = 1; tag < 32; ++tag) {
    if (tag == 16) continue;
    const TCIMValue source(TCIMType(static_cast<TCIMType::ECIMType>(tag)), tag > 16 ? 7 : 0);
    const TCIMValue copy(source);
    EXPECT_TRUE(copy.IsNull());
    EXPECT_EQ(static_cast<int>(copy.GetType()), tag);
    EXPECT_EQ(copy.GetMaxArraySize(), tag > 16 ? 7u : 0u);
    EXPECT_TRUE(copy == source);
  }
}

TEST(TCIMValueConstruction, ACopyOfAScalarLeavesArraySizeAndClassBehind) {
  TCIMValue source(TCIMType(TCIMType::kCIMTypeUInt8), 7);
  source.SetReferencedClass(MakeClassToken());
  source.Set(static_cast<unsigned char>(1));
  ASSERT_EQ(source.GetMaxArraySize(), 7u);
  const TCIMValue copy(source);
  EXPECT_EQ(copy.GetMaxArraySize(), 0u);
  EXPECT_FALSE(copy.GetReferencedClass());
}

TEST(TCIMValueConstruction, AMoveGivesWhatACopyWouldAndLeavesATypedNull) {
  std::vector<TCIMValue> values = OneOfEachType();
  for (TCIMValue& value : values) {
    const TCIMValue copy(value);
    const TCIMValue moved(std::move(value));
    EXPECT_TRUE(moved == copy);
    EXPECT_EQ(moved.GetType(), copy.GetType());
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), copy.GetType());
  }
}

TEST(TCIMValueConstruction, AMoveKeepsAnArraysElementsWhereTheyAre) {
  TCIMValue source(TCIMType(TCIMType::kCIMTypeUInt8), 7,
                   {TCIMValue(static_cast<unsigned char>(1))});
  const std::vector<TCIMValue>* const elements = &static_cast<std::vector<TCIMValue>&>(source);
  const TCIMValue moved(std::move(source));
  EXPECT_EQ(&static_cast<std::vector<TCIMValue>&>(moved), elements);
  EXPECT_EQ(moved.GetMaxArraySize(), 7u);
}

TEST(TCIMValueConstruction, AMoveLeavesBehindWhatACopyWould) {
  TCIMValue scalar(TCIMType(TCIMType::kCIMTypeUInt8), 7);
  scalar.SetReferencedClass(MakeClassToken());
  scalar.Set(static_cast<unsigned char>(1));
  const TCIMValue moved(std::move(scalar));
  EXPECT_EQ(moved.GetMaxArraySize(), 0u);
  EXPECT_FALSE(moved.GetReferencedClass());
  TCIMValue reference(TCIMType(TCIMType::kCIMTypeReference), 0);
  reference.SetReferencedClass(MakeClassToken());
  EXPECT_TRUE(TCIMValue(std::move(reference)).GetReferencedClass());
}

TEST(TCIMValueConstruction, ACopyOfANullReferenceSharesTheClass) {
  TCIMValue source(TCIMType(TCIMType::kCIMTypeReference), 0);
  source.SetReferencedClass(MakeClassToken());
  const TCIMValue copy(source);
  EXPECT_TRUE(copy.IsReference());
  EXPECT_TRUE(copy.IsNull());
  EXPECT_EQ(copy.GetReferencedClass(), source.GetReferencedClass());
}

TEST(TCIMValueConstruction, ACopyOfAnArrayLeavesTheClassBehind) {
  TCIMValue source(ArrayOf(TCIMType::kCIMTypeReference), 4);
  source.SetReferencedClass(MakeClassToken());
  const TCIMValue copy(source);
  EXPECT_EQ(copy.GetMaxArraySize(), 4u);
  EXPECT_FALSE(copy.GetReferencedClass());
}

TEST(TCIMValueConstruction, ATagThatNamesNoTypeCannotBeCopied) {
  for (const int tag : {32, 34, 64, 1000}) {
    const TCIMValue source(TCIMType(static_cast<TCIMType::ECIMType>(tag)), 0);
    EXPECT_EQ(FailureOf([&] { const TCIMValue copy(source); }), "kHWXStatusTypeMismatch") << tag;
  }
}

TEST(TCIMValueConstruction, ANullPointerForTextPassesTheStandardExceptionOn) {
  const char* const nothing = nullptr;
  EXPECT_THROW(TCIMValue{nothing}, std::logic_error);
  TCIMValue value(5);
  EXPECT_THROW(value.Set(nothing), std::logic_error);
  EXPECT_TRUE(value.IsNull());
  EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeString);
}

}  // namespace
}  // namespace NQORHWX20
