// A provider "plugin" with a sound class, one that misbehaves, and another sound one behind it. The
// environment says how, and when: HWX_TEST_MISDEED is one of the words below, HWX_TEST_WHEN "load"
// or "class", which stands for the misbehaving class.

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>

#include "hwxkit/hwxkit.h"

namespace {

using namespace NQORHWX20;

[[noreturn]] void Hang() {
  while (true)
    ::pause();
}

[[noreturn]] void ThrowNumber() {
  throw 42;
}

[[noreturn]] void ThrowText() {
  throw std::runtime_error("the wire is cut");
}

void MisbehaveAt(const std::string& moment) {
  static const std::map<std::string, void (*)()> kMisdeeds = {
      {"kill", [] { std::raise(SIGKILL); }},
      {"exit", [] { std::exit(0); }},
      {"hang", &Hang},
      {"throw number", &ThrowNumber},
      {"throw", &ThrowText},
      {"print", [] { std::cout << "NOISE" << std::endl; }}};
  const char* const when = std::getenv("HWX_TEST_WHEN");
  const char* const misdeed = std::getenv("HWX_TEST_MISDEED");
  if (when && misdeed && moment == when) kMisdeeds.at(misdeed)();
}

void Define(const boost::shared_ptr<TMemoryNamespace>& ns, const std::string& name,
            const TInstanceSource& source) {
  TClassBuilder(ns, name).Key("ID", "string").Source(source).Commit();
}

boost::shared_ptr<ICIMNamespace> Open() {
  const auto ns = TMemoryNamespace::Create("root");
  Define(ns, "EX_First", [](TInstanceList& list) { list.Add().Set("ID", "first"); });
  Define(ns, "EX_Misbehaving", [](TInstanceList& list) {
    list.Add().Set("ID", "before");
    MisbehaveAt("class");
  });
  Define(ns, "EX_Last", [](TInstanceList& list) { list.Add().Set("ID", "last"); });
  return ns;
}

bool Load() {
  MisbehaveAt("load");
  return true;
}

[[maybe_unused]] const bool kLoaded = Load();
const TProviderRegistration kRegistration("plugin", &Open);

// Ends badly where a program lets its plug-ins' destructors run.
struct TBadEnd {
  ~TBadEnd() { MisbehaveAt("end"); }
} badEnd;

}  // namespace
