// A libcurl that transfers nothing and records each call in the file that STUB_CURL_TRACE names.
// The environment says how it behaves:
//
//   STUB_CURL_NO_HANDLE    there are no handles
//   STUB_CURL_REFUSES      number of the option that it refuses
//   STUB_CURL_BLOCKS       blocks that a download delivers, separated by "|"
//   STUB_CURL_RESULT       result of a transfer, 0 if missing
//   STUB_CURL_ERROR        what such a transfer writes to the error buffer

#include <dlfcn.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using TWriteFunction = std::size_t (*)(char*, std::size_t, std::size_t, void*);

constexpr int kOK = 0;
constexpr int kWriteError = 23;
constexpr int kRefused = 48;
constexpr std::size_t kErrorSize = 256;

struct TSink {
  const char* fFilename;
  std::FILE* fStream;
};

// The one handle, and what was set.
struct THandle {
  char* fError = nullptr;
  std::FILE* fSource = nullptr;
  TWriteFunction fWrite = nullptr;
  TSink* fSink = nullptr;
} gHandle;

const char* Setting(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

void Trace(const std::string& line) {
  std::FILE* const file = std::fopen(Setting("STUB_CURL_TRACE"), "a");
  if (!file) return;
  std::fprintf(file, "%s\n", line.c_str());
  std::fclose(file);
}

std::string Quoted(const char* text) {
  return text ? "\"" + std::string(text) + "\"" : "null";
}

std::string WhetherMine(void* handle) {
  return handle == &gHandle ? "" : "wrong handle, ";
}

// The name that this file was opened by.
std::string MyName() {
  Dl_info info{};
  ::dladdr(&gHandle, &info);
  const std::string path = info.dli_fname ? info.dli_fname : "";
  return path.substr(path.rfind('/') + 1);
}

int Fail(int result, const char* text) {
  if (gHandle.fError) {
    std::strncpy(gHandle.fError, text, kErrorSize);
    gHandle.fError[kErrorSize - 1] = '\0';
  }
  return result;
}

void ReadSource() {
  std::string text;
  char buffer[1000];
  std::size_t size;
  while ((size = std::fread(buffer, 1, sizeof buffer, gHandle.fSource)) > 0)
    text.append(buffer, size);
  Trace("reads \"" + text + "\"");
}

// False if the receiver doesn't take a block.
bool DeliverBlocks(std::string blocks) {
  while (!blocks.empty()) {
    const std::size_t end = blocks.find('|');
    std::string block = blocks.substr(0, end);
    blocks = end == std::string::npos ? "" : blocks.substr(end + 1);
    const std::size_t taken = gHandle.fWrite(&block[0], 1, block.size(), gHandle.fSink);
    Trace("delivers " + Quoted(block.c_str()) + ", taken " + std::to_string(taken));
    if (taken != block.size()) return false;
  }
  return true;
}

}  // namespace

extern "C" {

int curl_global_init(long flags) {
  gHandle = THandle();
  Trace("curl_global_init " + std::to_string(flags) + " of " + MyName());
  return Setting("STUB_CURL_GLOBAL_FAILS")[0] == '\0' ? 0 : 2;
}

void* curl_easy_init() {
  Trace("curl_easy_init");
  return std::getenv("STUB_CURL_NO_HANDLE") ? nullptr : &gHandle;
}

int curl_easy_setopt(void* handle, int option, ...) {
  va_list arguments;
  va_start(arguments, option);
  std::string value;
  if (option < 10000) {
    value = std::to_string(va_arg(arguments, long));
  } else if (option == 10010) {
    gHandle.fError = va_arg(arguments, char*);
    std::memset(gHandle.fError, 'x', kErrorSize);  // as large as it is said to be
    gHandle.fError[0] = '\0';
    value = "the error buffer";
  } else if (option == 10009) {
    gHandle.fSource = va_arg(arguments, std::FILE*);
    value = "the source";
  } else if (option == 20011) {
    gHandle.fWrite = va_arg(arguments, TWriteFunction);
    value = "the callback";
  } else if (option == 10001) {
    gHandle.fSink = va_arg(arguments, TSink*);
    value = Quoted(gHandle.fSink->fFilename) + (gHandle.fSink->fStream ? ", open" : ", null");
  } else {
    value = Quoted(va_arg(arguments, char*));
  }
  va_end(arguments);
  Trace("curl_easy_setopt " + WhetherMine(handle) + std::to_string(option) + " " + value);
  return std::atoi(Setting("STUB_CURL_REFUSES")) == option ? kRefused : kOK;
}

int curl_easy_perform(void* handle) {
  Trace("curl_easy_perform" + WhetherMine(handle));
  if (gHandle.fSource) ReadSource();
  if (gHandle.fWrite && !DeliverBlocks(Setting("STUB_CURL_BLOCKS"))) {
    return Fail(kWriteError, "Failure writing output to destination");
  }
  const int result = std::atoi(Setting("STUB_CURL_RESULT"));
  return result == kOK ? kOK : Fail(result, Setting("STUB_CURL_ERROR"));
}

void curl_easy_cleanup(void* handle) {
  Trace("curl_easy_cleanup" + WhetherMine(handle));
}

void curl_global_cleanup() {
  Trace("curl_global_cleanup");
}

}  // extern "C"
