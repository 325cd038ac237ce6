#include "logger/Log.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <string>

namespace QModule {

int Log::GetMinLogLevel() {
  const char* text = std::getenv("QMODULE_LOG_LEVEL");
  if (text == nullptr) {
    return 0;
  }
  char* end = nullptr;
  const long level = std::strtol(text, &end, 10);  // 0 when there is no number
  if (*end != '\0') {
    return 0;
  }
  return static_cast<int>(
      std::clamp<long>(level, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

Log::Log(int level, const char* file, int line)
    : fLevel(level), fFile(file != nullptr ? file : "?"), fLine(line) {}

Log::~Log() {
  try {
    std::string text = fText.str();
    std::replace(text.begin(), text.end(), '\n', ' ');
    const std::string line = std::string(fFile) + ":" + std::to_string(fLine) + ": [" +
                             std::to_string(fLevel) + "] " + text + "\n";
    // One insertion, hence one write: the lines of several threads and processes don't mix.
    std::cerr.write(line.data(), static_cast<std::streamsize>(line.size()));
  } catch (...) {
    // A trace line that can't be written must not end the process.
  }
}

std::ostream& Log::Stream() {
  return fText;
}

}  // namespace QModule
