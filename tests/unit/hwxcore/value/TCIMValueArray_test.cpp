// Array values in the handle: making them, the check of their elements, reaching the elements.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <list>
#include <string>
#include <vector>

#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/schema/TRootObject.h"
#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::ArrayOf;
using hwxtest::ByteElements;
using hwxtest::FailureOf;
using hwxtest::MakeClassToken;
using hwxtest::OneOfEachScalar;
using hwxtest::OneOfEachType;
using hwxtest::TCIMType;
using hwxtest::TElements;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// Starts from an empty list of log entries and leaves an empty one.
class TCIMValueArray : public testing::Test {
 protected:
  TCIMValueArray() { fLogger->ClearLog(); }
  ~TCIMValueArray() override { fLogger->ClearLog(); }

  std::vector<std::pair<int, std::string>> Log() {
    std::vector<std::pair<int, std::string>> lines;
    for (const ILogger::TLogEntry& entry : fLogger->GetLog())
      lines.emplace_back(entry.fSeverity, entry.fMessage);
    return lines;
  }

  ILogger* fLogger = TRootObject::GetCoreLogger();
};

TEST_F(TCIMValueArray, HoldsCopiesOfTheElements) {
  TElements elements = ByteElements({1, 2, 3});
  const TCIMValue value(TCIMType::kCIMTypeUInt8, 5, elements);
  elements.clear();
  EXPECT_FALSE(value.IsNull());
  EXPECT_TRUE(value.IsArray());
  EXPECT_EQ(static_cast<int>(value.GetType()), 18);
  EXPECT_EQ(value.GetMaxArraySize(), 5u);
  EXPECT_EQ(value.ToString(10), "{ 1, 2, 3 }");
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(TCIMValueArray, TakesAScalarTagOrAnArrayTagAlike) {
  const TCIMValue scalar(TCIMType::kCIMTypeUInt8, 2, ByteElements({1}));
  const TCIMValue array(ArrayOf(TCIMType::kCIMTypeUInt8), 2, ByteElements({1}));
  EXPECT_EQ(static_cast<int>(scalar.GetType()), 18);
  EXPECT_EQ(static_cast<int>(array.GetType()), 18);
  EXPECT_TRUE(scalar == array);
}

TEST_F(TCIMValueArray, CarriesTheMaximumSizeWithoutEnforcingIt) {
  TCIMValue value;
  value.Set(TCIMType::kCIMTypeUInt8, 2, ByteElements({1, 2, 3}));
  EXPECT_EQ(value.GetMaxArraySize(), 2u);
  EXPECT_EQ(value.ToString(10), "{ 1, 2, 3 }");
  value.Set(TCIMType::kCIMTypeUInt8, 0, ByteElements({1}));
  EXPECT_EQ(value.GetMaxArraySize(), 0u);
  EXPECT_TRUE(value.IsArray());
}

TEST_F(TCIMValueArray, WithoutElementsIsEmptyAndNotNull) {
  for (int tag = 0; tag < 32; ++tag) {
    const TCIMValue value(static_cast<TCIMType::ECIMType>(tag), 3, TElements());
    EXPECT_FALSE(value.IsNull());
    EXPECT_EQ(static_cast<int>(value.GetType()), tag | 16);
    EXPECT_EQ(value.ToString(10), "{  }");
  }
}

TEST_F(TCIMValueArray, ReplacesWhateverWasThereAndKeepsTheClass) {
  for (const TCIMValue& former : OneOfEachType()) {
    TCIMValue value;
    const auto referencedClass = MakeClassToken();
    value.SetReferencedClass(referencedClass);
    value = former;
    value.Set(TCIMType::kCIMTypeUInt8, 1, ByteElements({7}));
    EXPECT_EQ(value.ToString(10), "{ 7 }");
    EXPECT_EQ(value.GetReferencedClass(), referencedClass);
  }
}

TEST_F(TCIMValueArray, HoldsElementsOfEveryType) {
  for (const TCIMValue& element : OneOfEachScalar()) {
    const TCIMValue value(element.GetType(), 0, {element, element});
    const std::string printed = element.ToString(10);
    EXPECT_EQ(value.ToString(10), "{ " + printed + ", " + printed + " }");
  }
}

TEST_F(TCIMValueArray, TakesNullElementsOfItsType) {
  const TElements elements = {TCIMValue(static_cast<unsigned char>(1)),
                              TCIMValue(TCIMType(TCIMType::kCIMTypeUInt8), 0)};
  const TCIMValue value(TCIMType::kCIMTypeUInt8, 0, elements);
  EXPECT_EQ(FailureOf([&] { value.ToString(10); }), "kHWXStatusValueIsNULL");
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(TCIMValueArray, AnElementOfAnotherTypeIsLoggedAndRefused) {
  TCIMValue value;
  EXPECT_EQ(FailureOf([&] {
              value.Set(TCIMType::kCIMTypeString, 4,
                        {TCIMValue("first"), TCIMValue(2), TCIMValue("third")});
            }),
            "kHWXStatusInvalidProperty");
  EXPECT_THAT(Log(), ElementsAre(Pair(ILogger::kHWXLogError,
                                      "Core: ERROR: Attempting to create array of type string, but "
                                      "element is of type sint32.")));
}

TEST_F(TCIMValueArray, AFailedSetKeepsTheArrayWithAllItsElements) {
  TCIMValue value(5);
  EXPECT_EQ(FailureOf([&] {
              value.Set(TCIMType::kCIMTypeString, 4,
                        {TCIMValue("first"), TCIMValue(2), TCIMValue("third")});
            }),
            "kHWXStatusInvalidProperty");
  EXPECT_FALSE(value.IsNull());
  EXPECT_EQ(value.GetType(), ArrayOf(TCIMType::kCIMTypeString));
  EXPECT_EQ(value.GetMaxArraySize(), 4u);
  EXPECT_EQ(value.ToString(10), "{ first, 2, third }");
}

TEST_F(TCIMValueArray, TheFirstWrongElementAloneIsLogged) {
  EXPECT_EQ(FailureOf([] {
              const TCIMValue value(ArrayOf(TCIMType::kCIMTypeUInt8), 0,
                                    {TCIMValue(true), TCIMValue("text"), TCIMValue(1.5)});
            }),
            "kHWXStatusInvalidProperty");
  EXPECT_THAT(Log(), ElementsAre(Pair(ILogger::kHWXLogError,
                                      "Core: ERROR: Attempting to create array of type uint8, but "
                                      "element is of type boolean.")));
}

TEST_F(TCIMValueArray, ANullElementOfAnotherTypeIsRefusedToo) {
  EXPECT_EQ(FailureOf([] {
              const TCIMValue value(TCIMType::kCIMTypeUInt8, 0,
                                    {TCIMValue(TCIMType(TCIMType::kCIMTypeSInt8), 0)});
            }),
            "kHWXStatusInvalidProperty");
  EXPECT_EQ(Log().size(), 1u);
}

TEST_F(TCIMValueArray, AnArrayIsNoElementOfAnArrayOfItsType) {
  const TCIMValue inner(TCIMType::kCIMTypeUInt8, 0, ByteElements({1}));
  EXPECT_EQ(FailureOf([&] { const TCIMValue value(TCIMType::kCIMTypeUInt8, 0, {inner}); }),
            "kHWXStatusInvalidProperty");
  EXPECT_THAT(Log(), ElementsAre(Pair(ILogger::kHWXLogError,
                                      "Core: ERROR: Attempting to create array of type uint8, but "
                                      "element is of type uint8.")));
}

TEST_F(TCIMValueArray, AnElementWithoutATypeIsRefusedWithoutALogEntry) {
  TCIMValue value;
  EXPECT_EQ(FailureOf([&] {
              value.Set(TCIMType::kCIMTypeString, 4, {TCIMValue("first"), TCIMValue()});
            }),
            "kHWXStatusTypeMismatch");
  EXPECT_THAT(Log(), IsEmpty());
  EXPECT_FALSE(value.IsNull());
  const TElements& kept = value;
  EXPECT_EQ(kept.size(), 2u);
}

TEST_F(TCIMValueArray, AnArrayWithoutATypeRefusesTypedElementsWithoutALogEntry) {
  EXPECT_EQ(FailureOf([] { const TCIMValue value(TCIMType::kCIMTypeNone, 0, {TCIMValue(1)}); }),
            "kHWXStatusTypeMismatch");
  EXPECT_EQ(FailureOf([] { const TCIMValue value(TCIMType::kCIMTypeNone, 0, {TCIMValue()}); }),
            "no failure");
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(TCIMValueArray, AnElementThatCannotBeCopiedLeavesANullArray) {
  TElements elements(1);
  elements[0].SetNullValue(static_cast<TCIMType::ECIMType>(34), 0);
  TCIMValue value(5);
  EXPECT_EQ(FailureOf([&] { value.Set(TCIMType::kCIMTypeUInt8, 7, elements); }),
            "kHWXStatusTypeMismatch");
  EXPECT_TRUE(value.IsNull());
  EXPECT_EQ(value.GetType(), ArrayOf(TCIMType::kCIMTypeUInt8));
  EXPECT_EQ(value.GetMaxArraySize(), 7u);
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(TCIMValueArray, OtherFailuresOfValuesLogNothing) {
  TCIMValue value(TCIMType::kCIMTypeUInt8, 0, ByteElements({1}));
  EXPECT_EQ(FailureOf([&] { static_cast<void>(value.operator int()); }), "kHWXStatusTypeMismatch");
  EXPECT_EQ(FailureOf([&] { value.ToString(2); }), "kHWXStatusNotSupported");
  EXPECT_EQ(FailureOf([&] { (void)(value < value); }), "kHWXStatusNotImplemented");
  EXPECT_EQ(FailureOf([&] { value.SetReferencedClass(MakeClassToken()); }),
            "kHWXStatusInvalidOpSequence");
  EXPECT_EQ(FailureOf([&] { value = TCIMValue(); }), "kHWXStatusTypeMismatch");
  EXPECT_EQ(FailureOf([&] { value.ToString(10); }), "kHWXStatusValueIsNULL");
  EXPECT_EQ(FailureOf([] { hwxtest::FromText(TCIMType::kCIMTypeNone, "1"); }),
            "kHWXStatusTypeMismatch");
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(TCIMValueArray, ChangesThroughTheElementsAreSeen) {
  const TCIMValue value(TCIMType::kCIMTypeUInt8, 2, ByteElements({1, 2}));
  TElements& elements = value;
  elements[0] = TCIMValue(static_cast<unsigned char>(9));
  elements.push_back(TCIMValue(static_cast<unsigned char>(3)));
  EXPECT_EQ(value.ToString(10), "{ 9, 2, 3 }");
  TElements& again = value;
  EXPECT_EQ(&again, &elements);
}

TEST_F(TCIMValueArray, ElementsAddedLaterAreCheckedByNobody) {
  const TCIMValue value(TCIMType::kCIMTypeUInt8, 0, ByteElements({1}));
  TElements& elements = value;
  elements.push_back(TCIMValue("text"));
  elements.push_back(TCIMValue());
  elements.pop_back();
  EXPECT_EQ(value.ToString(10), "{ 1, text }");
  EXPECT_EQ(value.GetType(), ArrayOf(TCIMType::kCIMTypeUInt8));
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(TCIMValueArray, CopiesOfAnArrayAreDeep) {
  const TCIMValue source(TCIMType::kCIMTypeUInt8, 2, ByteElements({1, 2}));
  const TCIMValue copy(source);
  TCIMValue assigned;
  assigned = source;
  TElements& elements = source;
  elements[0].Set(static_cast<unsigned char>(9));
  EXPECT_EQ(source.ToString(10), "{ 9, 2 }");
  EXPECT_EQ(copy.ToString(10), "{ 1, 2 }");
  EXPECT_EQ(assigned.ToString(10), "{ 1, 2 }");
}

TEST_F(TCIMValueArray, CanBeSetFromItsOwnElements) {
  TCIMValue value(TCIMType::kCIMTypeUInt8, 2, ByteElements({1, 2}));
  const TElements& elements = value;
  value.Set(TCIMType::kCIMTypeUInt8, 3, elements);
  EXPECT_EQ(value.ToString(10), "{ 1, 2 }");
  EXPECT_EQ(value.GetMaxArraySize(), 3u);
}

TEST_F(TCIMValueArray, CanBeSetFromItsOwnElementsUnderAWrongType) {
  TCIMValue value(TCIMType::kCIMTypeUInt8, 2, ByteElements({1, 2}));
  const TElements& elements = value;
  EXPECT_EQ(FailureOf([&] { value.Set(TCIMType::kCIMTypeString, 3, elements); }),
            "kHWXStatusInvalidProperty");
  EXPECT_EQ(value.ToString(10), "{ 1, 2 }");
  EXPECT_EQ(value.GetType(), ArrayOf(TCIMType::kCIMTypeString));
  EXPECT_EQ(Log().size(), 1u);
}

TEST_F(TCIMValueArray, AnElementCanBeSetFromTheVectorThatHoldsIt) {
  const TCIMValue value(TCIMType::kCIMTypeUInt8, 2, ByteElements({1, 2}));
  TElements& elements = value;
  EXPECT_EQ(FailureOf([&] { elements[0].Set(TCIMType::kCIMTypeUInt8, 0, elements); }),
            "kHWXStatusInvalidProperty");  // the element is an array by then, and so no uint8
  const TElements& inner = elements[0];
  EXPECT_EQ(inner.size(), 2u);
  EXPECT_TRUE(inner[0].IsNull());
  EXPECT_EQ(inner[1].ToString(10), "2");
}

}  // namespace
}  // namespace NQORHWX20
