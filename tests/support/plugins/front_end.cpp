// A front end for tests. Each argument is a step, OPERATION or OPERATION:ARGUMENT, and each step
// prints what came of it: its results, or the log entries of its failure and the status.

#include <dlfcn.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>

#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/INamespaceProviderManager.h"
#include "hwxcore/schema/TRootObject.h"
#include "hwxcore/value/THWXException.h"

using NQORHWX20::ILogger;
using NQORHWX20::THWXException;
using NQORHWX20::TOSSpecific;
using NQORHWX20::TRootObject;

namespace {

void Print(const std::vector<std::string>& names) {
  for (const std::string& name : names)
    std::cout << "found [" << name << "]\n";
}

void PrintAndClearLog() {
  ILogger* const logger = TRootObject::GetCoreLogger();
  for (const ILogger::TLogEntry& entry : logger->GetLog()) {
    std::cout << "log " << entry.fSeverity << " " << entry.fMessage << "\n";
  }
  logger->ClearLog();
}

// Whether a module is mapped already.
bool IsMapped(const std::string& path) {
  return ::dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD) != nullptr;
}

const std::map<std::string, std::function<void(const std::string&)> > kOperations = {
    {"root", [](const std::string&) { std::cout << TOSSpecific::GetHWXRootPath() << "\n"; }},
    {"find", [](const std::string& word) { Print(TOSSpecific::FindNSServices(word)); }},
    {"find-nsps", [](const std::string&) { Print(TOSSpecific::FindNSPs()); }},
    {"find-nscs", [](const std::string&) { Print(TOSSpecific::FindNSCs()); }},
    {"load-nsp",
     [](const std::string& name) {
       TOSSpecific::LoadNSPLibrary(name);
       std::cout << "loaded\n";
     }},
    {"load-nsc",
     [](const std::string& name) {
       const void* const consumer = TOSSpecific::LoadNSCLibrary(name);
       std::cout << "consumer " << reinterpret_cast<std::uintptr_t>(consumer) << "\n";
     }},
    {"load-plugin",
     [](const std::string& path) {
       const void* const module = TOSSpecific::LoadPluginLibrary(path);
       std::cout << (module ? "handle\n" : "no handle\n");
     }},
    {"registered",
     [](const std::string& name) {
       TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider(name);
       std::cout << "registered\n";
     }},
    {"symbol",
     [](const std::string& name) {
       std::cout << (::dlsym(RTLD_DEFAULT, name.c_str()) ? "visible\n" : "not visible\n");
     }},
    {"mapped",
     [](const std::string& path) { std::cout << (IsMapped(path) ? "mapped\n" : "not mapped\n"); }},
    {"remove", [](const std::string& path) { std::filesystem::remove_all(path); }},
};

bool RunStep(const std::string& step) {
  const std::size_t colon = step.find(':');
  const auto operation = kOperations.find(step.substr(0, colon));
  if (operation == kOperations.end()) return false;
  try {
    operation->second(colon == std::string::npos ? "" : step.substr(colon + 1));
    PrintAndClearLog();
  } catch (const THWXException& failure) {
    PrintAndClearLog();
    std::cout << "status " << failure.GetStatus() << "\n";
  } catch (const std::exception& failure) {
    PrintAndClearLog();
    std::cout << "exception " << failure.what() << "\n";
  }
  return true;
}

}  // namespace

int main(int, char** arguments) {
  while (*++arguments != nullptr) {
    if (!RunStep(*arguments)) return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
