#ifndef HWXCORE_OS_DETAIL_CURLLIBRARY_H
#define HWXCORE_OS_DETAIL_CURLLIBRARY_H

#include <cstddef>
#include <cstdio>
#include <string>

#include "hwxcore/value/THWXStatusCode.h"

namespace NQORHWX20::detail {

// libcurl is found at run time and its headers aren't needed: the few of its numbers that are used
// stand here. They never change.

enum ECurlOption : int {
  kCurlOptProxyPort = 59,
  kCurlOptUpload = 46,
  kCurlOptFTPUseEPSV = 85,
  kCurlOptFTPCreateMissingDirs = 110,
  kCurlOptWriteData = 10001,
  kCurlOptURL = 10002,
  kCurlOptProxy = 10004,
  kCurlOptProxyUserPwd = 10006,
  kCurlOptReadData = 10009,
  kCurlOptErrorBuffer = 10010,
  kCurlOptWriteFunction = 20011
};

enum ECurlResult : int { kCurlOK = 0, kCurlCouldntResolveHost = 6, kCurlCouldntConnect = 7 };

constexpr std::size_t kCurlErrorSize = 256;

/// What `curl_fwrite` gets as its sink.
struct TCurlSink {
  const char* fFilename;  ///< Where the data goes.
  std::FILE* fStream;     ///< Open during a call of `curl_fwrite` only.
};

/// Opens the libcurl that lies beside this library, by the first of six paths at which there is
/// one; the system's own search path isn't consulted. `operation` is the calling operation's own
/// `__func__`: the module that holds that text is the one beside which is searched.
///
/// Throws `TLoadException` with `kHWXStatusLibCurlFailure`, after a log entry. What was opened
/// stays mapped until somebody calls `dlclose`, which after an exception is nobody: see
/// `TCurlLibrary`.
void* OpenCurlLibrary(const char* operation);

/// libcurl, opened for one transfer: its six functions, and a handle.
///
/// There is no destructor: only a transfer that succeeds, or that the user declines, calls `Close`.
/// After an exception the handle, libcurl's global state and the mapped library stay as they were.
/// The next transfer opens libcurl again, and gets the same mapping. Contract: curl-left-open.
///
/// Thread-safety: none. libcurl's global state is shared by all transfers of the process.
class TCurlLibrary {
 public:
  /// Opens libcurl, looks up the functions and makes a handle, on behalf of the operation whose own
  /// `__func__` is given. Throws `kHWXStatusLibCurlFailure`, after a log entry; for a missing
  /// function `std::logic_error`, without one.
  explicit TCurlLibrary(const char* operation);

  TCurlLibrary(const TCurlLibrary&) = delete;
  TCurlLibrary& operator=(const TCurlLibrary&) = delete;

  /// Sets an option. Throws `kHWXStatusLibCurlFailure` if libcurl refuses it, after logging
  /// `failure`, behind the name of the operation.
  void SetOption(ECurlOption option, long value, const char* failure);
  void SetOption(ECurlOption option, const std::string& value, const char* failure);
  void SetOption(ECurlOption option, void* value, const char* failure);

  /// Has `curl_fwrite` write what comes to `sink`. Fails likewise, but always in the name of
  /// "CurlTransferFile", whoever asks.
  void SetSink(TCurlSink& sink);

  /// Transfers, and returns libcurl's result.
  int Perform();

  /// Gives the handle, libcurl's global state and the mapping back. Nothing may follow.
  void Close();

  /// Logs `text` behind "TOSSpecific|", the name of the operation and ": ", and throws `status`.
  [[noreturn]] void Fail(const std::string& text, EHWXStatusCode status) const;

  /// The same with `detail` behind `text`, which the exception, a `TDetailedException`, carries.
  [[noreturn]] void FailWith(const std::string& detail, const std::string& text,
                             EHWXStatusCode status) const;

 private:
  template <typename TFunction>
  void LookUp(TFunction*& function, const char* name);

  const char* fOperation;
  void* fLibrary;
  void* fHandle = nullptr;

  int (*fGlobalInit)(long) = nullptr;
  void* (*fEasyInit)() = nullptr;
  int (*fEasySetOpt)(void*, int, ...) = nullptr;
  int (*fEasyPerform)(void*) = nullptr;
  void (*fEasyCleanup)(void*) = nullptr;
  void (*fGlobalCleanup)() = nullptr;
};

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_OS_DETAIL_CURLLIBRARY_H
