#include "hwxcore/value/THWXStatusCode.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <string>
#include <type_traits>

namespace NQORHWX20 {
namespace {

const struct {
  int fNumber;
  EHWXStatusCode fCode;
  const char* fName;
} kCodes[] = {
    {0, kHWXStatusOK, "kHWXStatusOK"},
    {1, kHWXStatusNotImplemented, "kHWXStatusNotImplemented"},
    {2, kHWXStatusUnknownClass, "kHWXStatusUnknownClass"},
    {3, kHWXStatusFail, "kHWXStatusFail"},
    {4, kHWXStatusOutOfMemory, "kHWXStatusOutOfMemory"},
    {5, kHWXStatusNoMoreItems, "kHWXStatusNoMoreItems"},
    {6, kHWXStatusErrorCollectingClass, "kHWXStatusErrorCollectingClass"},
    {7, kHWXStatusInvalidClass, "kHWXStatusInvalidClass"},
    {8, kHWXStatusInvalidProperty, "kHWXStatusInvalidProperty"},
    {9, kHWXStatusInvalidSpecificationDocument, "kHWXStatusInvalidSpecificationDocument"},
    {10, kHWXStatusInvalidDataCollectionDocument, "kHWXStatusInvalidDataCollectionDocument"},
    {11, kHWXStatusFileSystemError, "kHWXStatusFileSystemError"},
    {12, kHWXStatusDirectoryAlreadyExists, "kHWXStatusDirectoryAlreadyExists"},
    {13, kHWXStatusNotArray, "kHWXStatusNotArray"},
    {14, kHWXStatusTypeMismatch, "kHWXStatusTypeMismatch"},
    {15, kHWXStatusNotFound, "kHWXStatusNotFound"},
    {16, kHWXStatusAlreadyExists, "kHWXStatusAlreadyExists"},
    {17, kHWXStatusInvalidOpSequence, "kHWXStatusInvalidOpSequence"},
    {18, kHWXStatusInvalidInstance, "kHWXStatusInvalidInstance"},
    {19, kHWXStatusCorruptedContainer, "kHWXStatusCorruptedContainer"},
    {20, kHWXStatusInvalidPlugin, "kHWXStatusInvalidPlugin"},
    {21, kHWXStatusInvalidDateTime, "kHWXStatusInvalidDateTime"},
    {22, kHWXStatusNotAssociation, "kHWXStatusNotAssociation"},
    {23, kHWXStatusNotReference, "kHWXStatusNotReference"},
    {24, kHWXStatusInvalidReference, "kHWXStatusInvalidReference"},
    {25, kHWXStatusInvalidCIMName, "kHWXStatusInvalidCIMName"},
    {26, kHWXStatusFileNotFound, "kHWXStatusFileNotFound"},
    {27, kHWXStatusAccessDenied, "kHWXStatusAccessDenied"},
    {28, kHWXStatusNotOverridable, "kHWXStatusNotOverridable"},
    {29, kHWXStatusInvalidGzipFile, "kHWXStatusInvalidGzipFile"},
    {30, kHWXStatusCorruptGzipFile, "kHWXStatusCorruptGzipFile"},
    {31, kHWXStatusNotSupported, "kHWXStatusNotSupported"},
    {32, kHWXStatusValueIsNULL, "kHWXStatusValueIsNULL"},
    {33, kHWXStatusINETNotFound, "kHWXStatusINETNotFound"},
    {34, kHWXStatusConnectionFailed, "kHWXStatusConnectionFailed"},
    {35, kHWXStatusLibCurlFailure, "kHWXStatusLibCurlFailure"},
    {36, kHWXStatusInvalidFormat, "kHWXStatusInvalidFormat"},
    {37, kHWXStatusContainerMismatch, "kHWXStatusContainerMismatch"},
    {38, kHWXStatusRequiredContextMissing, "kHWXStatusRequiredContextMissing"},
    {39, kHWXStatusVersionMismatch, "kHWXStatusVersionMismatch"},
    {40, kHWXStatusLuzFilecopyFailure, "kHWXStatusLuzFilecopyFailure"},
    {41, kHWXStatusTransferFailure, "kHWXStatusTransferFailure"},
    {42, kHWXStatusCimomConnectFailure, "kHWXStatusCimomConnectFailure"},
    {43, fdrStatusEnd, "fdrStatusEnd"},
};

// The interface's forms: an unscoped enumeration of 32 signed bits, a plain value around it.
static_assert(std::is_convertible_v<EHWXStatusCode, int>);
static_assert(std::is_same_v<std::underlying_type_t<EHWXStatusCode>, int>);
static_assert(std::is_convertible_v<EHWXStatusCode, THWXStatusCode>);
static_assert(std::is_convertible_v<const THWXStatusCode&, int>);
static_assert(sizeof(THWXStatusCode) == 4);
static_assert(std::is_trivially_copyable_v<THWXStatusCode>);
static_assert(!std::is_polymorphic_v<THWXStatusCode>);
static_assert(std::is_same_v<decltype(&THWXStatusCode::TranslateStatusCode),
                             const std::string& (THWXStatusCode::*)() const>);

TEST(THWXStatusCode, EveryCodeHasItsNumberAndItsOwnName) {
  ASSERT_EQ(std::size(kCodes), 44u);
  for (int number = 0; number < 44; ++number) {
    const auto& expected = kCodes[number];
    const THWXStatusCode status(expected.fCode);
    EXPECT_EQ(expected.fNumber, number);
    EXPECT_EQ(static_cast<int>(expected.fCode), number);
    EXPECT_EQ(static_cast<int>(status), number);
    EXPECT_EQ(status.TranslateStatusCode(), expected.fName);
  }
}

TEST(THWXStatusCode, TwoTranslationsOfOneCodeAreOneObject) {
  const THWXStatusCode first = kHWXStatusNotFound;
  const THWXStatusCode second = kHWXStatusNotFound;
  EXPECT_EQ(&first.TranslateStatusCode(), &second.TranslateStatusCode());
  const THWXStatusCode end = fdrStatusEnd;
  EXPECT_EQ(&end.TranslateStatusCode(), &THWXStatusCode(fdrStatusEnd).TranslateStatusCode());
}

TEST(THWXStatusCode, TheNameOutlivesTheStatus) {
  const std::string* name = nullptr;
  {
    const THWXStatusCode status = kHWXStatusFail;
    name = &status.TranslateStatusCode();
  }
  EXPECT_EQ(*name, "kHWXStatusFail");
}

TEST(THWXStatusCode, ComparesWithEnumeratorsAndServesInASwitch) {
  const THWXStatusCode status = kHWXStatusNotFound;
  EXPECT_TRUE(status == kHWXStatusNotFound);
  EXPECT_TRUE(status != kHWXStatusFail);
  bool found = false;
  switch (status) {
    case kHWXStatusNotFound:
      found = true;
      break;
    default:
      break;
  }
  EXPECT_TRUE(found);
}

TEST(THWXStatusCode, CopiesAndAssignsTheNumber) {
  THWXStatusCode status = kHWXStatusNotFound;
  const THWXStatusCode copy(status);
  status = kHWXStatusFail;
  EXPECT_EQ(static_cast<int>(copy), 15);
  EXPECT_EQ(static_cast<int>(status), 3);
}

TEST(THWXStatusCode, ANumberOutsideTheListReadsNothingBeyondTheTable) {
  const int outside[] = {-1, 44, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
  for (const int number : outside) {
    const THWXStatusCode status(static_cast<EHWXStatusCode>(number));
    EXPECT_EQ(static_cast<int>(status), number);
    EXPECT_EQ(status.TranslateStatusCode(), "unknown status");
  }
}

}  // namespace
}  // namespace NQORHWX20
