#include "hwxcore/os/detail/CurlLibrary.h"

#include <dlfcn.h>

#include <stdexcept>

#include "hwxbase/hwxbase.h"
#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/os/TLoadException.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/value/TDetailedException.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20::detail {

namespace {

constexpr long kGlobalAll = 3;

// Why the thread's last call of the loader failed, which is told once. There is no text for a
// second asking; the standard library would say so in these words.
std::string LoaderError() {
  const char* const text = ::dlerror();
  if (!text) throw std::logic_error("basic_string: construction from null is not valid");
  return text;
}

void* Open(const std::string& path) {
  return ::dlopen(path.c_str(), RTLD_LAZY);
}

void LogTransferError(const std::string& operation, const std::string& text) {
  LogError("TOSSpecific|" + operation + ": " + text);
}

}  // namespace

// Contract: curl-beside-library.
void* OpenCurlLibrary(const char* operation) {
  // Empty if it can't be told, as of a module that was loaded by a relative path before the current
  // directory changed. A name alone would have the loader search the system's path.
  const std::string directory = GetModulePathLin(operation);
  for (const char* name : {"libcurl.so", "libcurl.so.4"}) {
    if (void* const library = Open(TOSSpecific::GetHWXRootPath() + "/" + name)) return library;
  }
  for (const char* name : {"libcurl.so", "libcurl.so.4", "libcurl.so.3", "libcurl.so.2"}) {
    if (directory.empty()) break;
    if (void* const library = Open(directory + name)) return library;
  }
  const std::string reason = LoaderError();
  LogTransferError(operation, "Error opening curl library: " + reason);
  throw TLoadException(kHWXStatusLibCurlFailure, reason);
}

TCurlLibrary::TCurlLibrary(const char* operation)
    : fOperation(operation), fLibrary(OpenCurlLibrary(operation)) {
  LookUp(fGlobalInit, "curl_global_init");
  LookUp(fEasyInit, "curl_easy_init");
  LookUp(fEasySetOpt, "curl_easy_setopt");
  LookUp(fEasyPerform, "curl_easy_perform");
  LookUp(fEasyCleanup, "curl_easy_cleanup");
  LookUp(fGlobalCleanup, "curl_global_cleanup");
  fGlobalInit(kGlobalAll);  // Contract: curl-init-untested.
  fHandle = fEasyInit();
  // Contract: initalizing.
  if (!fHandle) Fail("Error initalizing curl", kHWXStatusLibCurlFailure);
}

// The loader is asked for its error twice. The first call is the test, and clears the text. The
// second finds none, which throws. Contract: curl-error-asked-twice.
template <typename TFunction>
void TCurlLibrary::LookUp(TFunction*& function, const char* name) {
  function = reinterpret_cast<TFunction*>(::dlsym(fLibrary, name));
  if (::dlerror() || !function) {
    Fail("Error loading curl library: " + LoaderError(), kHWXStatusLibCurlFailure);
  }
}

void TCurlLibrary::SetOption(ECurlOption option, long value, const char* failure) {
  if (fEasySetOpt(fHandle, option, value) != kCurlOK) Fail(failure, kHWXStatusLibCurlFailure);
}

void TCurlLibrary::SetOption(ECurlOption option, const std::string& value, const char* failure) {
  if (fEasySetOpt(fHandle, option, value.c_str()) != kCurlOK) {
    Fail(failure, kHWXStatusLibCurlFailure);
  }
}

void TCurlLibrary::SetOption(ECurlOption option, void* value, const char* failure) {
  if (fEasySetOpt(fHandle, option, value) != kCurlOK) Fail(failure, kHWXStatusLibCurlFailure);
}

void TCurlLibrary::SetSink(TCurlSink& sink) {
  if (fEasySetOpt(fHandle, kCurlOptWriteFunction, &curl_fwrite) != kCurlOK ||
      fEasySetOpt(fHandle, kCurlOptWriteData, static_cast<void*>(&sink)) != kCurlOK) {
    // Contract: write-function-text.
    LogTransferError("CurlTransferFile", "Error setting curl write function");
    throw THWXException(kHWXStatusLibCurlFailure);
  }
}

int TCurlLibrary::Perform() {
  return fEasyPerform(fHandle);
}

void TCurlLibrary::Close() {
  fEasyCleanup(fHandle);
  fGlobalCleanup();
  ::dlclose(fLibrary);
}

void TCurlLibrary::Fail(const std::string& text, EHWXStatusCode status) const {
  LogTransferError(fOperation, text);
  throw THWXException(status);
}

void TCurlLibrary::FailWith(const std::string& detail, const std::string& text,
                            EHWXStatusCode status) const {
  LogTransferError(fOperation, text + detail);
  throw TDetailedException(status, detail);
}

}  // namespace NQORHWX20::detail
