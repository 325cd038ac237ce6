#include "hwxcore/value/THWXStatusCode.h"

#include <cstddef>
#include <iterator>

namespace NQORHWX20 {

namespace {

const std::string kHWXErrorMessages[] = {
    "kHWXStatusOK",
    "kHWXStatusNotImplemented",
    "kHWXStatusUnknownClass",
    "kHWXStatusFail",
    "kHWXStatusOutOfMemory",
    "kHWXStatusNoMoreItems",
    "kHWXStatusErrorCollectingClass",
    "kHWXStatusInvalidClass",
    "kHWXStatusInvalidProperty",
    "kHWXStatusInvalidSpecificationDocument",
    "kHWXStatusInvalidDataCollectionDocument",
    "kHWXStatusFileSystemError",
    "kHWXStatusDirectoryAlreadyExists",
    "kHWXStatusNotArray",
    "kHWXStatusTypeMismatch",
    "kHWXStatusNotFound",
    "kHWXStatusAlreadyExists",
    "kHWXStatusInvalidOpSequence",
    "kHWXStatusInvalidInstance",
    "kHWXStatusCorruptedContainer",
    "kHWXStatusInvalidPlugin",
    "kHWXStatusInvalidDateTime",
    "kHWXStatusNotAssociation",
    "kHWXStatusNotReference",
    "kHWXStatusInvalidReference",
    "kHWXStatusInvalidCIMName",
    "kHWXStatusFileNotFound",
    "kHWXStatusAccessDenied",
    "kHWXStatusNotOverridable",
    "kHWXStatusInvalidGzipFile",
    "kHWXStatusCorruptGzipFile",
    "kHWXStatusNotSupported",
    "kHWXStatusValueIsNULL",
    "kHWXStatusINETNotFound",
    "kHWXStatusConnectionFailed",
    "kHWXStatusLibCurlFailure",
    "kHWXStatusInvalidFormat",
    "kHWXStatusContainerMismatch",
    "kHWXStatusRequiredContextMissing",
    "kHWXStatusVersionMismatch",
    "kHWXStatusLuzFilecopyFailure",
    "kHWXStatusTransferFailure",
    "kHWXStatusCimomConnectFailure",
    "fdrStatusEnd",  // Contract: end-of-statuses.
};
static_assert(std::size(kHWXErrorMessages) == fdrStatusEnd + 1, "one name for each code");

const std::string kUnknownStatus = "unknown status";

}  // namespace

const std::string& THWXStatusCode::TranslateStatusCode() const {
  if (fCode < 0 || fCode > fdrStatusEnd) return kUnknownStatus;
  return kHWXErrorMessages[static_cast<std::size_t>(fCode)];
}

}  // namespace NQORHWX20
