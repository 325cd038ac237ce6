#ifndef HWXTESTS_SUPPORT_PROGRAMDIRECTORY_H
#define HWXTESTS_SUPPORT_PROGRAMDIRECTORY_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// A directory of programs of the test's own, first along PATH.
class ProgramDirectory {
 public:
  const std::string& Path() const { return fDirectory.Path(); }
  std::string operator/(const std::string& name) const { return fDirectory / name; }

  /// Adds a shell script.
  void Add(const std::string& name, const std::string& script) const {
    AddFile(name, "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(fDirectory / name, std::filesystem::perms(0755));
  }

  /// Adds a file that can't be run as it is.
  void AddFile(const std::string& name, const std::string& content) const {
    std::ofstream(fDirectory / name, std::ios::binary) << content;
  }

 private:
  static std::string Before() {
    const char* const path = std::getenv("PATH");
    return path ? path : "/bin:/usr/bin";
  }

  TemporaryDirectory fDirectory;
  ScopedEnvironment fPath{"PATH", fDirectory.Path() + ":" + Before()};
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_PROGRAMDIRECTORY_H
