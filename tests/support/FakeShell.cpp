#include "support/FakeShell.h"

#include <dlfcn.h>

#include <cstdlib>

namespace hwxtest {

namespace {

thread_local FakeShell* tShell = nullptr;

}  // namespace

FakeShell::FakeShell() {
  tShell = this;
}

FakeShell::~FakeShell() {
  tShell = nullptr;
}

int FakeShell::Run(const std::string& command) {
  constexpr int kExitStatus1 = 1 << 8;
  fCommands.push_back(command);
  const auto found = fResults.find(command);
  return found == fResults.end() ? kExitStatus1 : found->second;
}

}  // namespace hwxtest

extern "C" int system(const char* command) {
  if (hwxtest::tShell) return hwxtest::tShell->Run(command);
  using TSystem = int (*)(const char*);
  static const auto next = reinterpret_cast<TSystem>(::dlsym(RTLD_NEXT, "system"));
  return next(command);
}
