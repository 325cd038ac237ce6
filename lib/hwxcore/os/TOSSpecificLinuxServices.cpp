#include "hwxcore/os/TOSSpecific.h"

#include <sys/select.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "hwxcore/diagnostics/TLogger.h"

namespace NQORHWX20 {

namespace {

// What the two stand for is up to the front ends that set them.
bool isLuz = false;
bool isParser = false;

// Clears all local modes of the terminal at descriptor 0: no lines, no echo, no signal keys. The
// settings come back at the end. Where there is no terminal, nothing happens.
// Contract: signal-keys-are-keys.
class TRawKeyboard {
 public:
  TRawKeyboard() {
    ::tcgetattr(STDIN_FILENO, &fSaved);
    termios raw = fSaved;
    raw.c_lflag = 0;
    ::tcsetattr(STDIN_FILENO, TCSANOW, &raw);
  }
  ~TRawKeyboard() { ::tcsetattr(STDIN_FILENO, TCSANOW, &fSaved); }

  TRawKeyboard(const TRawKeyboard&) = delete;
  TRawKeyboard& operator=(const TRawKeyboard&) = delete;

 private:
  termios fSaved{};
};

// Contract: shell-result-ignored.
void RunInShell(const std::string& command) {
  [[maybe_unused]] const int result = std::system(command.c_str());
}

// Eight digits of date, a dash, six digits of time.
std::string TimeStamp() {
  const TCIMDateTime now = TOSSpecific::GetLocalTime();
  char text[64];
  std::snprintf(text, sizeof text, "%04d%02d%02d-%02d%02d%02d", static_cast<int>(now.GetYear()),
                static_cast<int>(now.GetMonth()), static_cast<int>(now.GetDay()),
                static_cast<int>(now.GetHour()), static_cast<int>(now.GetMinute()),
                static_cast<int>(now.GetSecond()));
  return text;
}

std::string DefaultLogPrefix() {
  return TOSSpecific::isOEMBuild() ? "/var/log/OEM_Support/hwx_" : "/var/log/Varnok_Support/hwx_";
}

// Makes or empties a file. One that can't be made ends the process. Contract: marker-or-abort.
void MakeMarker(const std::string& path) {
  std::FILE* const file = std::fopen(path.c_str(), "w+");
  if (!file) std::abort();
  std::fclose(file);
}

}  // namespace

std::string TOSSpecific::GetEnvironment(std::string name) {
  const char* const value = std::getenv(name.c_str());
  if (value) return value;
  DebugOut("[ERROR]GetEnvironment:Cannt get environmnet.");  // Contract: environment-texts.
  return "";
}

bool TOSSpecific::PutEnvironment(std::string name, std::string value) {
  if (::setenv(name.c_str(), value.c_str(), 1) == 0) return true;
  DebugOut("[ERROR]PutEnvironment occured errors.");  // Contract: environment-texts.
  return false;
}

bool TOSSpecific::SetDebugLevel(int level, char* path) {
  std::string name = path ? path : DefaultLogPrefix();
  name += GetMachineType();
  name += TimeStamp();
  MakeMarker(name + ".log");
  // The file has been made by now. Contract: marker-before-level.
  if (level < ILogger::kHWXLogError || level > ILogger::kHWXLogVerbose) return false;
  TLogger::SetLogThreshold(static_cast<ILogger::EHWXLogSeverity>(level));
  return true;
}

bool TOSSpecific::IsAdmin() {
  return ::getuid() == 0;  // not geteuid. Contract: real-user-counts.
}

void TOSSpecific::USleep(unsigned int milliseconds) {
  ::usleep(milliseconds * 1000);  // may wrap. Contract: sleep-wraps.
}

bool TOSSpecific::IsKeyWaiting() {
  const TRawKeyboard keyboard;
  fd_set descriptors;
  FD_ZERO(&descriptors);
  FD_SET(STDIN_FILENO, &descriptors);
  timeval none{0, 0};
  const int result = ::select(STDIN_FILENO + 1, &descriptors, nullptr, nullptr, &none);
  // Contract: key-on-failure.
  return result == -1 || FD_ISSET(STDIN_FILENO, &descriptors);
}

int TOSSpecific::GetKeyboardChar() {
  const TRawKeyboard keyboard;
  return std::getc(stdin);
}

void TOSSpecific::LaunchTextEditor(std::string path) {
  constexpr std::size_t kTailLength = 35;  // Contract: editor-shows-copy.
  char directory[4096];
  const bool isKnown = ::getcwd(directory, sizeof directory) != nullptr;
  RunInShell("cp " + path + (isKnown ? " " + std::string(directory) : " /"));
  // Contract: editor-short-path. Thrown here, as `substr` would add numbers to the text.
  if (path.size() < kTailLength) throw std::out_of_range("basic_string::substr");
  // The shell finds the copy by its wildcards.
  RunInShell((isKnown ? "vi *" : "vi /*") + path.substr(path.size() - kTailLength) + "*");
}

void TOSSpecific::LaunchCommandShell() {
  RunInShell("sh");
}

bool TOSSpecific::isOEMBuild() {
  return FileExists("docs/oem_hwx_preboot_readme.txt");  // Contract: flavour-by-directory.
}

void TOSSpecific::ExpandCommandLineWildcards(int argc, char** argv, int* newArgc, char*** newArgv) {
  // Contract: wildcards-not-expanded.
  *newArgc = argc;
  *newArgv = argv;
}

bool TOSSpecific::getLuz() {
  return isLuz;
}

void TOSSpecific::setLuz(bool value) {
  isLuz = value;
}

bool TOSSpecific::isHWXParser() {
  return isParser;
}

void TOSSpecific::setHWXParser(bool value) {
  isParser = value;
}

}  // namespace NQORHWX20
