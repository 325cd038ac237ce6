#include "providers/linux/OperatingSystem.h"

#include <sys/utsname.h>

#include <algorithm>

#include "providers/linux/OSRelease.h"
#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

std::optional<std::string> Present(std::optional<std::string> text) {
  return text && text->empty() ? std::nullopt : text;
}

// The kernel's own words about itself, empty for another system's root.
struct utsname KernelWords(const std::string& root) {
  struct utsname words {};
  if (!root.empty() || ::uname(&words) != 0) {
    return {};
  }
  return words;
}

// One of them from /proc/sys/kernel, and otherwise, where /proc may be missing, from uname.
std::optional<std::string> KernelWord(const std::string& root, const char* name,
                                      const char* fromUname) {
  const std::optional<std::string> word = Present(ReadAttribute(root + "/proc/sys/kernel/" + name));
  return word ? word : Present(fromUname);
}

TOSRelease ReadOSRelease(const std::string& root) {
  std::optional<std::string> text = ReadFile(root + "/etc/os-release");
  if (!text) {
    text = ReadFile(root + "/usr/lib/os-release");
  }
  return ParseOSRelease(text.value_or(std::string()));
}

// There is no system without processes: a /proc that shows none doesn't tell how many there are.
std::optional<std::uint32_t> CountProcesses(const std::string& root) {
  const std::vector<std::string> names = ListDirectory(root + "/proc");
  const auto count = std::count_if(names.begin(), names.end(), [](const std::string& name) {
    return ParseNumber(name).has_value();
  });
  return count == 0 ? std::nullopt : std::optional(static_cast<std::uint32_t>(count));
}

}  // namespace

TOperatingSystem ReadOperatingSystem(const std::string& root) {
  const TOSRelease release = ReadOSRelease(root);
  TOperatingSystem system;
  system.fName = release.fName.value_or(release.fPrettyName.value_or("Linux"));
  system.fDescription = release.fPrettyName;
  system.fKernelRelease = KernelWord(root, "osrelease", KernelWords(root).release);
  system.fVersion = release.fVersionID ? release.fVersionID : system.fKernelRelease;
  if (const auto statistics = ReadFile(root + "/proc/stat", kListSizeLimit)) {
    system.fBootTime = ParseBootTime(*statistics);
  }
  if (const auto memory = ReadFile(root + "/proc/meminfo")) {
    system.fMemory = ParseMemory(*memory);
  }
  if (const auto sessions = ReadFile(root + "/run/utmp", kListSizeLimit)) {
    system.fUsers = CountSessions(*sessions);
  }
  system.fProcesses = CountProcesses(root);
  system.fMaxProcesses = Narrow<std::uint32_t>(ReadNumber(root + "/proc/sys/kernel/pid_max"));
  return system;
}

std::string ReadHostName(const std::string& root) {
  std::optional<std::string> name = KernelWord(root, "hostname", KernelWords(root).nodename);
  if (!name) {
    name = Present(ReadAttribute(root + "/etc/hostname"));
  }
  return name.value_or("(none)");
}

}  // namespace linux_machine
