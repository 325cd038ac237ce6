#include "hwxbase/hwxbase.h"

#include <dlfcn.h>
#include <limits.h>
#include <link.h>
#include <stdlib.h>
#include <unistd.h>

namespace {

// Read as a link, not resolved: a program whose file was replaced meanwhile still has its
// directory.
std::string ProgramFile() {
  char path[PATH_MAX];
  const ssize_t length = ::readlink("/proc/self/exe", path, sizeof path);
  return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : std::string();
}

std::string AbsolutePath(const char* path) {
  char resolved[PATH_MAX];
  return ::realpath(path, resolved) != nullptr ? std::string(resolved) : std::string();
}

// The loader has no name for the program itself.
std::string ModuleFile(const link_map& module) {
  if (module.l_name == nullptr || module.l_name[0] == '\0') {
    return ProgramFile();
  }
  return module.l_name[0] == '/' ? std::string(module.l_name) : AbsolutePath(module.l_name);
}

}  // namespace

std::string GetModulePathLin(const void* address) {
  Dl_info info{};
  void* found = nullptr;
  if (::dladdr1(address, &info, &found, RTLD_DL_LINKMAP) == 0 || found == nullptr) {
    return std::string();
  }
  const std::string file = ModuleFile(*static_cast<const link_map*>(found));
  const std::string::size_type slash = file.rfind('/');
  return slash == std::string::npos ? std::string() : file.substr(0, slash + 1);
}
