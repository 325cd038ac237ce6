#ifndef HWXCORE_VALUE_THWXSTATUSCODE_H
#define HWXCORE_VALUE_THWXSTATUSCODE_H

#include <string>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

/// Every way in which an operation of the library can end.
///
/// The numbers are part of the interface and index the table of names: no enumerator may move. The
/// list also holds codes for providers and front ends, which the library itself never throws.
enum EHWXStatusCode : int {
  kHWXStatusOK = 0,                         ///< Success.
  kHWXStatusNotImplemented,                 ///< The operation, or this case of it, does not exist.
  kHWXStatusUnknownClass,                   ///< A reference names a class that its namespace lacks.
  kHWXStatusFail,                           ///< A failure without a status of its own.
  kHWXStatusOutOfMemory,                    ///< For providers: memory ran out.
  kHWXStatusNoMoreItems,                    ///< For providers: an iteration is over.
  kHWXStatusErrorCollectingClass,           ///< For front ends: a class could not be collected.
  kHWXStatusInvalidClass,                   ///< For providers: the class does not fit the request.
  kHWXStatusInvalidProperty,                ///< An array holds an element of another type.
  kHWXStatusInvalidSpecificationDocument,   ///< For front ends: a plug-in's document is malformed.
  kHWXStatusInvalidDataCollectionDocument,  ///< For front ends: a collection's document is.
  kHWXStatusFileSystemError,                ///< A file, directory or module operation failed.
  kHWXStatusDirectoryAlreadyExists,         ///< The directory to be made is there already.
  kHWXStatusNotArray,                       ///< For providers: an array was expected.
  kHWXStatusTypeMismatch,                   ///< A value was asked for as a type that it isn't.
  kHWXStatusNotFound,                       ///< The thing asked for is absent.
  kHWXStatusAlreadyExists,                  ///< For providers: the name is taken.
  kHWXStatusInvalidOpSequence,       ///< The object's state does not allow the operation now.
  kHWXStatusInvalidInstance,         ///< For providers: the instance does not fit its class.
  kHWXStatusCorruptedContainer,      ///< For containers: the stored data is damaged.
  kHWXStatusInvalidPlugin,           ///< For front ends: the file is no plug-in.
  kHWXStatusInvalidDateTime,         ///< A date-time or character is null or malformed.
  kHWXStatusNotAssociation,          ///< For providers: the class is no association.
  kHWXStatusNotReference,            ///< For providers: the value is no reference.
  kHWXStatusInvalidReference,        ///< An object path is malformed, or a reference has no class.
  kHWXStatusInvalidCIMName,          ///< For providers: the text is no CIM name.
  kHWXStatusFileNotFound,            ///< The file to be read is absent.
  kHWXStatusAccessDenied,            ///< The operating system refused access.
  kHWXStatusNotOverridable,          ///< For providers: the element can't be overridden.
  kHWXStatusInvalidGzipFile,         ///< For containers: not a gzip file.
  kHWXStatusCorruptGzipFile,         ///< For containers: a damaged gzip file.
  kHWXStatusNotSupported,            ///< A type doesn't have the print form asked for.
  kHWXStatusValueIsNULL,             ///< A null value was to be converted or printed.
  kHWXStatusINETNotFound,            ///< For front ends: no network library.
  kHWXStatusConnectionFailed,        ///< A transfer found no connection.
  kHWXStatusLibCurlFailure,          ///< libcurl could not be found or used.
  kHWXStatusInvalidFormat,           ///< A product name holds no machine type.
  kHWXStatusContainerMismatch,       ///< For containers: two containers don't fit.
  kHWXStatusRequiredContextMissing,  ///< For providers: a context key is missing.
  kHWXStatusVersionMismatch,         ///< For containers: another version is needed.
  kHWXStatusLuzFilecopyFailure,      ///< For front ends: copying to a mounted image failed.
  kHWXStatusTransferFailure,         ///< For front ends: a transfer failed.
  kHWXStatusCimomConnectFailure,     ///< For front ends: the object manager can't be reached.
  fdrStatusEnd                       ///< End of the list. The odd name is part of the interface.
};

/// A status as a value: one number from `EHWXStatusCode`.
///
/// Thread-safety: a plain value; the table of names behind it never changes.
class HWX_EXPORT THWXStatusCode {
 public:
  /// Implicit, so that an enumerator serves wherever a status is expected.
  THWXStatusCode(EHWXStatusCode code) : fCode(code) {}  // NOLINT(google-explicit-constructor)

  /// The number.
  operator int() const { return fCode; }  // NOLINT(google-explicit-constructor)

  /// The enumerator's own name, such as "kHWXStatusNotFound". The reference stays valid for the
  /// life of the process. A number outside the list gives the text "unknown status".
  const std::string& TranslateStatusCode() const;

 private:
  int fCode;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_THWXSTATUSCODE_H
