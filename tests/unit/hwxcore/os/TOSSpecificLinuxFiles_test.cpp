#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "hwxcore/os/TOSSpecific.h"
#include "support/StatusOf.h"

using NQORHWX20::TOSSpecific;

namespace {

// What the loader tells, in place of the truth: a failure, no name, or a name.
struct LoaderAnswer {
  bool fSucceeds;
  const char* fName;
};

thread_local const LoaderAnswer* tAnswer = nullptr;

class ScopedLoaderAnswer {
 public:
  ScopedLoaderAnswer(bool succeeds, const char* name) : fAnswer{succeeds, name} {
    tAnswer = &fAnswer;
  }
  ~ScopedLoaderAnswer() { tAnswer = nullptr; }

 private:
  LoaderAnswer fAnswer;
};

int StatusOfGetHWXRootPath() {
  return hwxtest::StatusOf([] { TOSSpecific::GetHWXRootPath(); });
}

}  // namespace

// Stands before the loader's own.
extern "C" int dladdr(const void* address, Dl_info* info) noexcept {
  using Function = int (*)(const void*, Dl_info*);
  static const auto real = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, "dladdr"));
  const int result = real(address, info);
  if (!tAnswer) return result;
  info->dli_fname = tAnswer->fName;
  return tAnswer->fSucceeds ? 1 : 0;
}

namespace {

TEST(TOSSpecificGetHWXRootPath, NamesTheDirectoryThatHoldsTheLibrary) {
  const std::string root = TOSSpecific::GetHWXRootPath();
  EXPECT_TRUE(std::filesystem::exists(root + "/libhwxcore.so")) << root;
}

TEST(TOSSpecificGetHWXRootPath, CutsAtTheLastSeparator) {
  const ScopedLoaderAnswer answer(true, "/opt/support//lib/libhwxcore.so");
  EXPECT_EQ(TOSSpecific::GetHWXRootPath(), "/opt/support//lib");
}

TEST(TOSSpecificGetHWXRootPath, KeepsARelativeDirectoryRelative) {
  const ScopedLoaderAnswer answer(true, "./libhwxcore.so");
  EXPECT_EQ(TOSSpecific::GetHWXRootPath(), ".");
}

TEST(TOSSpecificGetHWXRootPath, IsEmptyForTheRootDirectory) {
  const ScopedLoaderAnswer answer(true, "/libhwxcore.so");
  EXPECT_EQ(TOSSpecific::GetHWXRootPath(), "");
}

TEST(TOSSpecificGetHWXRootPath, HasNoLimitOfLength) {
  const std::string directory = "/" + std::string(4000, 'd');
  const std::string file = directory + "/libhwxcore.so";
  const ScopedLoaderAnswer answer(true, file.c_str());
  EXPECT_EQ(TOSSpecific::GetHWXRootPath(), directory);
}

TEST(TOSSpecificGetHWXRootPath, ThrowsIfTheLoaderFails) {
  const ScopedLoaderAnswer answer(false, "/lib/libhwxcore.so");
  EXPECT_EQ(StatusOfGetHWXRootPath(), NQORHWX20::kHWXStatusFileSystemError);
}

TEST(TOSSpecificGetHWXRootPath, ThrowsIfTheLoaderGivesNoName) {
  const ScopedLoaderAnswer answer(true, nullptr);
  EXPECT_EQ(StatusOfGetHWXRootPath(), NQORHWX20::kHWXStatusFileSystemError);
}

TEST(TOSSpecificGetHWXRootPath, ThrowsIfTheNameHasNoDirectory) {
  const ScopedLoaderAnswer answer(true, "libhwxcore.so");
  EXPECT_EQ(StatusOfGetHWXRootPath(), NQORHWX20::kHWXStatusFileSystemError);
}

}  // namespace
