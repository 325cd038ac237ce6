#ifndef HWXTESTS_SUPPORT_FILETEXT_H
#define HWXTESTS_SUPPORT_FILETEXT_H

#include <fstream>
#include <iterator>
#include <string>

namespace hwxtest {

/// What a file holds, byte by byte; "(none)" if it can't be read.
inline std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return "(none)";
  return std::string(std::istreambuf_iterator<char>(file), {});
}

/// Makes a file that holds `text`.
inline void MakeFile(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

/// So many bytes of every kind, NUL bytes among them.
inline std::string AllBytes(std::size_t size) {
  std::string text(size, '\0');
  for (std::size_t i = 0; i < size; ++i)
    text[i] = static_cast<char>(i % 256 + i / 256 % 7);
  return text;
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FILETEXT_H
