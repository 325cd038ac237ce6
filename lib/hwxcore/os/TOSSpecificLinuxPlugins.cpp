#include "hwxcore/os/TOSSpecific.h"

#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/os/TLoadException.h"
#include "hwxcore/os/detail/Directory.h"
#include "hwxcore/value/TDetailedException.h"
#include "hwxcore/value/THWXException.h"
#include "logger/Log.h"

namespace NQORHWX20 {

namespace {

using detail::DirectoryPtr;
using detail::OpenDirectory;

// The next entry's name, null behind the last one.
const char* NextName(const DirectoryPtr& directory) {
  const dirent* const entry = ::readdir(directory.get());
  return entry ? entry->d_name : nullptr;
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

bool IsReadableNonDirectory(const std::string& path) {
  struct stat status;
  return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

// What the name of a plug-in's file holds: ".pi.so" for the word "pi".
std::string PluginMark(const std::string& pluginWord) {
  return "." + pluginWord + TOSSpecific::kDynamicModuleExtension;
}

// The name of a service whose file is "lib" + name + ".ns?.so". It is cut by position, whatever the
// file is called. Contract: service-name-by-position.
std::string ServiceName(const std::string& file) {
  constexpr std::size_t kFrontLength = 3;
  constexpr std::size_t kEndingLength = 7;
  return file.substr(kFrontLength, file.size() - kFrontLength - kEndingLength);
}

std::string ServicePath(const std::string& name, const std::string& word) {
  return TOSSpecific::GetHWXRootPath() + "/lib" + name + "." + word + ".so";
}

// Contract: services-traced-alone.
void TraceModulePath(const char* operation, const std::string& path) {
  if (QModule::Log::GetMinLogLevel() > 3) {
    QModule::Log(4, __FILE__, __LINE__).Stream() << operation << " modulePath: " << path;
  }
}

// Nothing closes the module again. Contract: module-left-open, global-symbols.
void* OpenModule(const std::string& path) {
  return ::dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL);
}

// Why the thread's last call of the loader failed. To be asked once: asking clears it.
std::string LoaderError() {
  const char* const text = ::dlerror();
  return text ? text : "";
}

// Opens a service's module. `kind` is how the log calls it.
void* LoadService(const char* kind, const std::string& name, const std::string& path) {
  void* const module = OpenModule(path);
  if (!module) {
    const std::string reason = LoaderError();
    detail::LogError(std::string("Couldn't load ") + kind + ": " + name + " (" + reason + ")");
    throw TLoadException(kHWXStatusFileSystemError, reason);
  }
  return module;
}

// The path of a plug-in's document: `path` up to the mark, less its last "lib", with `extension`.
std::string DocumentPath(const std::string& path, const std::string& pluginWord,
                         const std::string& extension) {
  const std::string front = "lib";
  const std::size_t mark = path.find(PluginMark(pluginWord));
  const std::size_t lib = path.rfind(front);  // Contract: last-lib-of-path.
  if (mark == std::string::npos || lib == std::string::npos) throw THWXException(kHWXStatusFail);
  // The standard library's own check adds numbers of its own to this text.
  if (lib > mark) throw std::out_of_range("basic_string::erase");
  return path.substr(0, mark).erase(lib, front.size()) + extension;
}

}  // namespace

std::vector<std::string> TOSSpecific::FindPlugins(std::string dir, std::string pluginWord) {
  DirectoryPtr directory = OpenDirectory(dir);
  if (!directory) throw THWXException(kHWXStatusFileSystemError);
  const std::string mark = PluginMark(pluginWord);
  std::vector<std::string> plugins;
  while (const char* const name = NextName(directory)) {
    const std::string path = dir + "/" + name;
    if (!DirExists(path) || name == std::string(".") || name == std::string("..")) continue;
    const DirectoryPtr subdirectory = OpenDirectory(path);
    if (!subdirectory) {
      static_cast<void>(directory.release());  // Contract: find-left-open.
      throw THWXException(kHWXStatusFileSystemError);
    }
    while (const char* const file = NextName(subdirectory)) {
      // Contract: loose-plugin-match, plugin-may-be-directory.
      if (Holds(file, mark)) plugins.push_back(path + "/" + file);
    }
  }
  std::sort(plugins.begin(), plugins.end());  // Contract: services-unsorted.
  return plugins;
}

std::vector<std::string> TOSSpecific::FindPlugins(std::string dir) {
  return FindPlugins(dir, kHWXPluginExtension);
}

std::vector<std::string> TOSSpecific::FindNSServices(std::string word) {
  const std::string root = GetHWXRootPath();
  const DirectoryPtr directory = OpenDirectory(root);
  if (!directory) throw THWXException(kHWXStatusFileSystemError);
  std::vector<std::string> names;
  while (const char* const file = NextName(directory)) {
    if (!IsReadableNonDirectory(root + "/" + file)) continue;
    if (Holds(file, "." + word)) names.push_back(ServiceName(file));
  }
  return names;
}

std::vector<std::string> TOSSpecific::FindNSCs() {
  return FindNSServices("nsc");
}

std::vector<std::string> TOSSpecific::FindNSPs() {
  return FindNSServices("nsp");
}

void* TOSSpecific::LoadPluginLibrary(std::string path) {
  void* const module = OpenModule(path);
  if (!module) {
    const std::string reason = LoaderError();
    const std::string message = "ERROR: Failed to load plugin.  Reason: " + reason;
    detail::LogError(message);
    std::cout << "Failed to load plugin.  Reason: " << message;  // Contract: load-phrase-twice.
    throw TLoadException(kHWXStatusFileSystemError, reason);
  }
  return module;
}

void TOSSpecific::LoadNSPLibrary(std::string name) {
  const std::string path = ServicePath(name, "nsp");
  TraceModulePath("TOSSpecific::LoadNSPLibrary", path);
  LoadService("NSP", name, path);
}

INamespaceConsumer* TOSSpecific::LoadNSCLibrary(std::string name) {
  const std::string path = ServicePath(name, "nsc");
  TraceModulePath("TOSSpecific::LoadNSCLibrary", path);
  void* const module = LoadService("NSC", name, path);
  void* const entry = ::dlsym(module, (name + "_CreateINamespaceConsumer").c_str());
  if (!entry) {
    // Contract: missing-entry-text.
    const std::string message = "Couldn't find 'CreateINamespaceConsumer' in " + path;
    detail::LogError(message);
    throw TDetailedException(kHWXStatusNotFound, message);
  }
  // Contract: consumer-at-each-call.
  return reinterpret_cast<INamespaceConsumer* (*)()>(entry)();
}

std::string TOSSpecific::BuildSpecificationPath(std::string path, std::string pluginWord) {
  return DocumentPath(path, pluginWord, kSpecificationExtension);
}

std::string TOSSpecific::BuildSpecificationPath(std::string path) {
  return BuildSpecificationPath(path, kHWXPluginExtension);
}

std::string TOSSpecific::BuildRegistrationPath(std::string path, std::string pluginWord) {
  return DocumentPath(path, pluginWord, kRegistrationExtension);
}

}  // namespace NQORHWX20
