#include "hwxbase/hwxbase.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/auxv.h>

#include <filesystem>
#include <memory>

#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"

namespace {

namespace fs = std::filesystem;

int gData = 1;
int gZeroed;
const char kConstant[] = "constant";

std::string ProgramDirectory() {
  return fs::read_symlink("/proc/self/exe").parent_path().string() + "/";
}

// As C++ encodes the operation under test.
const char kSymbol[] = "_Z16GetModulePathLinB5cxx11PKv";

// Asked of the loader, since the address that the program sees may be that of its own call table.
const void* LibraryFunction() {
  return ::dlsym(RTLD_DEFAULT, kSymbol);
}

// The file that the tested library was loaded from.
std::string LibraryFile() {
  Dl_info info{};
  EXPECT_NE(::dladdr(LibraryFunction(), &info), 0);
  return fs::absolute(info.dli_fname).string();
}

// A copy of the library under test, loaded by the given path; an address within it.
const void* LoadByPath(const std::string& path) {
  void* module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  EXPECT_NE(module, nullptr) << ::dlerror();
  return module == nullptr ? nullptr : ::dlsym(module, kSymbol);
}

TEST(GetModulePathLin, ProgramsDirectoryForCodeDataAndConstants) {
  for (const void* address :
       {reinterpret_cast<const void*>(&ProgramDirectory), static_cast<const void*>(&gData),
        static_cast<const void*>(&gZeroed), static_cast<const void*>(kConstant)}) {
    EXPECT_EQ(GetModulePathLin(address), ProgramDirectory());
  }
}

TEST(GetModulePathLin, ConstantFunctionNameServesAsAddress) {
  EXPECT_EQ(GetModulePathLin(__func__), ProgramDirectory());
}

TEST(GetModulePathLin, SharedObjectsOwnDirectory) {
  ASSERT_NE(LibraryFunction(), nullptr);
  EXPECT_EQ(GetModulePathLin(LibraryFunction()),
            fs::path(LibraryFile()).parent_path().string() + "/");
}

TEST(GetModulePathLin, FileNameCanBeAppendedDirectly) {
  const std::string directory = GetModulePathLin(LibraryFunction());
  ASSERT_FALSE(directory.empty());
  EXPECT_EQ(directory.front(), '/');
  EXPECT_TRUE(fs::exists(directory + fs::path(LibraryFile()).filename().string()));
}

TEST(GetModulePathLin, SymbolicLinksStayAsTheModuleWasLoadedBy) {
  const hwxtest::TemporaryDirectory scratch;
  fs::create_directory(scratch / "real");
  fs::copy_file(LibraryFile(), scratch / "real/copy.so");
  fs::create_directory_symlink(scratch / "real", scratch / "link");
  const void* address = LoadByPath(scratch / "link/copy.so");
  EXPECT_EQ(GetModulePathLin(address), scratch / "link/");
}

TEST(GetModulePathLin, ModuleLoadedByARelativePathHasAnAbsoluteOne) {
  const hwxtest::TemporaryDirectory scratch;
  fs::copy_file(LibraryFile(), scratch / "copy.so");
  EXPECT_EQ(hwxtest::RunInChild([&] {
              fs::current_path(scratch.Path());
              const void* address = LoadByPath("./copy.so");
              EXPECT_EQ(GetModulePathLin(address), scratch / "");
              fs::current_path("/");
              EXPECT_EQ(GetModulePathLin(address), "");  // can't be told any more
              return 0;
            }),
            0);
}

TEST(GetModulePathLin, EmptyForAddressesInNoModule) {
  const int onStack = 0;
  const std::unique_ptr<int> onHeap = std::make_unique<int>(0);
  EXPECT_EQ(GetModulePathLin(nullptr), "");
  EXPECT_EQ(GetModulePathLin(&onStack), "");
  EXPECT_EQ(GetModulePathLin(onHeap.get()), "");
  EXPECT_EQ(GetModulePathLin(reinterpret_cast<const void*>(UINTPTR_MAX)), "");
}

// The kernel's own module is mapped into every process, but lies in no file.
TEST(GetModulePathLin, EmptyForAModuleWithoutAFile) {
  const auto kernelModule = ::getauxval(AT_SYSINFO_EHDR);
  if (kernelModule == 0) GTEST_SKIP() << "SKIPPED: this kernel maps no module of its own";
  EXPECT_EQ(GetModulePathLin(reinterpret_cast<const void*>(kernelModule)), "");
}

}  // namespace
