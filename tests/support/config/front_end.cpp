// A front end for tests of the configuration file. Each argument is a step, OPERATION or
// OPERATION:ARGUMENT, and each step prints what came of it and then what was logged meanwhile.
//
// The steps "no-..." take something away from the next step that calls the library.

#include <dlfcn.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <new>

#include "hwxcore/diagnostics/TConfig.h"
#include "hwxcore/value/THWXException.h"
#include "support/ScopedLogCapture.h"

using hwxtest::ScopedLogCapture;
using NQORHWX20::TConfig;
using NQORHWX20::THWXException;

namespace {

bool gNoModulePath = false;
bool gNoFileBuffer = false;
bool gNoDescriptor = false;

constexpr std::size_t kFileBuffer = 4096;  // no other block of these tests is as large

}  // namespace

// In place of the loader's, as the library sees it.
extern "C" int dladdr(const void* address, Dl_info* info) noexcept {
  if (gNoModulePath) return 0;
  static const auto next =
      reinterpret_cast<int (*)(const void*, Dl_info*)>(::dlsym(RTLD_NEXT, "dladdr"));
  return next(address, info);
}

// The sanitizers bring a set of their own, in which each form is apart, so all that are used are
// replaced. Not inlined: the compiler would see `new` paired with `free`, and warn of it.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return gNoFileBuffer && size >= kFileBuffer ? nullptr : std::malloc(size);
}

[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* const block = ::operator new(size, std::nothrow)) return block;
  throw std::bad_alloc();
}

[[gnu::noinline]] void* operator new[](std::size_t size) {
  return ::operator new(size);
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
  std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, const std::nothrow_t&) noexcept {
  std::free(block);
}

[[gnu::noinline]] void operator delete[](void* block) noexcept {
  std::free(block);
}

[[gnu::noinline]] void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}

// As a stream opens its file. A limit of descriptors would hit the sanitizers too.
extern "C" FILE* fopen64(const char* path, const char* mode) {
  if (gNoDescriptor) {
    errno = EMFILE;
    return nullptr;
  }
  static const auto next =
      reinterpret_cast<FILE* (*)(const char*, const char*)>(::dlsym(RTLD_NEXT, "fopen64"));
  return next(path, mode);
}

namespace {

// Calls the library with whatever was taken away, and gives it back.
template <typename Call>
auto Use(Call call) {
  struct TGiveBack {
    ~TGiveBack() { gNoModulePath = gNoFileBuffer = gNoDescriptor = false; }
  };
  const TGiveBack giveBack;
  return call();
}

TConfig* Instance() {
  return Use([] { return TConfig::GetInstance(); });
}

void PrintKeys() {
  for (const std::string& key : Instance()->listKeys())
    std::cout << "key [" << key << "]\n";
}

void Reparse() {
  TConfig* const config = TConfig::GetInstance();
  std::cout << (Use([&] { return config->parseConfigFile(); }) ? "true\n" : "false\n");
}

void PrintWhetherOne() {
  const TConfig* const first = Instance();
  std::cout << (first == TConfig::GetInstance() ? "one\n" : "two\n");
}

const std::map<std::string, std::function<void(const std::string&)> > kOperations = {
    {"get", [](const std::string&) { Instance(); }},
    {"keys", [](const std::string&) { PrintKeys(); }},
    {"value",
     [](const std::string& key) { std::cout << "[" << Instance()->getValue(key) << "]\n"; }},
    {"parse", [](const std::string&) { Reparse(); }},
    {"one", [](const std::string&) { PrintWhetherOne(); }},
    {"destroy", [](const std::string&) { delete Instance(); }},
    {"put-in-place",  // PATH becomes the configuration file beside it
     [](const std::string& path) {
       const std::filesystem::path next = path;
       std::filesystem::rename(next, next.parent_path() / "dct.cfg");
     }},
    {"no-module-path", [](const std::string&) { gNoModulePath = true; }},
    {"no-file-buffer", [](const std::string&) { gNoFileBuffer = true; }},
    {"no-descriptor", [](const std::string&) { gNoDescriptor = true; }},
};

bool RunStep(const std::string& step) {
  const std::size_t colon = step.find(':');
  const auto operation = kOperations.find(step.substr(0, colon));
  if (operation == kOperations.end()) return false;
  const ScopedLogCapture log;
  try {
    operation->second(colon == std::string::npos ? "" : step.substr(colon + 1));
  } catch (const THWXException& failure) {
    std::cout << "status " << failure.GetStatus() << "\n";
  }
  if (gNoFileBuffer) return true;  // reading the log takes one
  for (const ScopedLogCapture::Line& line : log.Lines())
    std::cout << line.first << ": " << line.second << "\n";
  return true;
}

}  // namespace

int main(int, char** arguments) {
  while (*++arguments != nullptr) {
    if (!RunStep(*arguments)) return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
