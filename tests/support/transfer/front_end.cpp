// A front end for tests of file transfer. Each argument is a step, OPERATION:ARGUMENT|ARGUMENT...,
// and each step prints what came of it and then what was logged meanwhile. Calls of the loader that
// concern libcurl go to the file that STUB_CURL_TRACE names, where the stub's calls go too.

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>

#include "hwxcore/os/TLoadException.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/value/TDetailedException.h"
#include "hwxcore/value/THWXException.h"
#include "support/Descriptors.h"
#include "support/Sanitizers.h"
#include "support/ScopedLogCapture.h"

using NQORHWX20::TDetailedException;
using NQORHWX20::THWXException;
using NQORHWX20::TLoadException;
using NQORHWX20::TOSSpecific;

namespace {

bool gNoStream = false;
bool gTraces = false;
std::string gFailure;  // what the last exception was besides a status

}  // namespace

// In place of the C library's, as the library sees it.
extern "C" std::FILE* fdopen(int file, const char* mode) noexcept {
  if (gNoStream) return nullptr;
  static const auto next =
      reinterpret_cast<std::FILE* (*)(int, const char*)>(::dlsym(RTLD_NEXT, "fdopen"));
  return next(file, mode);
}

#ifndef HWXTESTS_ADDRESS_SANITIZER  // which needs the loader for itself

namespace {

void Trace(const std::string& line) {
  const char* const path = std::getenv("STUB_CURL_TRACE");
  if (gTraces && path) std::ofstream(path, std::ios::app) << line << "\n";
}

// The loader's own function. The version is that of the C libraries that hold the loader; older
// ones aren't built with.
template <typename Function>
Function Loaders(const char* name) {
  return reinterpret_cast<Function>(::dlvsym(RTLD_NEXT, name, "GLIBC_2.34"));
}

}  // namespace

extern "C" void* dlopen(const char* path, int flags) noexcept {
  static const auto next = Loaders<void* (*)(const char*, int)>("dlopen");
  Trace("dlopen " + std::string(path ? path : "") + " " + std::to_string(flags));
  return next(path, flags);
}

extern "C" void* dlsym(void* library, const char* name) noexcept {
  static const auto next = Loaders<void* (*)(void*, const char*)>("dlsym");
  Trace(std::string("dlsym ") + name);
  return next(library, name);
}

extern "C" char* dlerror() noexcept {
  static const auto next = Loaders<char* (*)()>("dlerror");
  char* const text = next();
  Trace(std::string("dlerror ") + (text ? "text" : "null"));
  return text;
}

extern "C" int dlclose(void* library) noexcept {
  static const auto next = Loaders<int (*)(void*)>("dlclose");
  Trace("dlclose");
  return next(library);
}

#endif

namespace {

using Arguments = std::vector<std::string>;

// Calls the library with whatever was taken away, and prints what it returns. Tells how many
// descriptors it leaves open, if it does.
template <typename Call>
void Use(Call call) {
  struct TAfterwards {
    ~TAfterwards() {
      gNoStream = gTraces = false;
      const std::size_t now = hwxtest::OpenDescriptors();
      if (now != fBefore) std::cout << "descriptors: " << fBefore << " then " << now << "\n";
    }
    std::size_t fBefore = hwxtest::OpenDescriptors();
  };
  const TAfterwards afterwards;
  ::dlerror();  // looks its original up now: to do so later would clear the error
  gTraces = true;
  const int result = call();
  std::cout << "returned " << result << "\n";
}

using TWrapper = int (*)(std::string, std::string, std::string);

std::function<void(const Arguments&)> Wrapper(TWrapper wrapper) {
  return [wrapper](const Arguments& a) { Use([&] { return wrapper(a[0], a[1], a[2]); }); };
}

void Transfer(const Arguments& arguments, bool download) {
  Use([&] {
    TOSSpecific::CurlTransferFile(arguments[0], arguments[1], download);
    return 0;
  });
}

// Whether a module is mapped. The loader isn't asked, who could map it.
bool IsMapped(const std::string& file) {
  std::ifstream maps("/proc/self/maps");
  std::ostringstream text;
  text << maps.rdbuf();
  return text.str().find(file) != std::string::npos;
}

// How many descriptors are open on a file.
int Openings(const std::string& path) {
  int count = 0;
  std::error_code failure;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    count += std::filesystem::equivalent(entry.path(), path, failure) ? 1 : 0;
  return count;
}

const std::map<std::string, std::function<void(const Arguments&)> > kOperations = {
    {"upload", [](const Arguments& a) { Transfer(a, false); }},
    {"download", [](const Arguments& a) { Transfer(a, true); }},
    {"FTPFile", Wrapper(&TOSSpecific::FTPFile)},
    {"sFTPFile", Wrapper(&TOSSpecific::sFTPFile)},
    {"UserFTPFile", Wrapper(&TOSSpecific::UserFTPFile)},
    {"FTPFileFromQOR", Wrapper(&TOSSpecific::FTPFileFromQOR)},
    {"sFTPFileFromQOR", Wrapper(&TOSSpecific::sFTPFileFromQOR)},
    {"proxy",
     [](const Arguments& a) {
       Use([&] { return TOSSpecific::CheckProxySetting(a[0], a[1], a[2], std::stol(a[3])); });
     }},
    {"set", [](const Arguments& a) { ::setenv(a[0].c_str(), a[1].c_str(), 1); }},
    {"unset", [](const Arguments& a) { ::unsetenv(a[0].c_str()); }},
    {"chdir", [](const Arguments& a) { std::cout << "chdir " << ::chdir(a[0].c_str()) << "\n"; }},
    {"mapped",
     [](const Arguments& a) { std::cout << (IsMapped(a[0]) ? "mapped\n" : "not mapped\n"); }},
    {"open", [](const Arguments& a) { std::cout << Openings(a[0]) << " open\n"; }},
    {"last-failure", [](const Arguments&) { std::cout << gFailure << "\n"; }},
    {"no-stream", [](const Arguments&) { gNoStream = true; }},
};

Arguments Split(std::string text) {
  Arguments arguments;
  for (std::size_t end; (end = text.find('|')) != std::string::npos; text.erase(0, end + 1))
    arguments.push_back(text.substr(0, end));
  arguments.push_back(text);
  arguments.resize(4);
  return arguments;
}

std::string Described(const THWXException& failure) {
  if (const auto* const load = dynamic_cast<const TLoadException*>(&failure)) {
    return "load exception: " + load->GetDetail();
  }
  const auto* const detailed = dynamic_cast<const TDetailedException*>(&failure);
  return detailed ? "detailed exception: " + detailed->GetDetail() : "bare exception";
}

bool RunStep(const std::string& step) {
  const std::size_t colon = step.find(':');
  const auto operation = kOperations.find(step.substr(0, colon));
  if (operation == kOperations.end()) return false;
  const std::string arguments = colon == std::string::npos ? "" : step.substr(colon + 1);
  const hwxtest::ScopedLogCapture log;
  try {
    operation->second(Split(arguments));
  } catch (const THWXException& failure) {
    std::cout << "status " << failure.GetStatus() << "\n";
    gFailure = Described(failure);
  } catch (const std::exception& failure) {
    std::cout << "exception " << failure.what() << "\n";
  }
  for (const hwxtest::ScopedLogCapture::Line& line : log.Lines())
    std::cout << line.first << ": " << line.second << "\n";
  std::cout << std::flush;
  return true;
}

}  // namespace

int main(int, char** arguments) {
  while (*++arguments != nullptr) {
    if (!RunStep(*arguments)) return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
