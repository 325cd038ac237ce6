#include "hwxcore/diagnostics/TCommUtil.h"

#include <algorithm>
#include <cctype>

#include "hwxcore/os/TOSSpecific.h"

namespace NQORHWX20 {

namespace {

const char gFileSeparator[] = "/";

bool IsPrintableOrSpace(unsigned char character) {
  return std::isalnum(character) != 0 || std::isspace(character) != 0 ||
         std::ispunct(character) != 0;
}

}  // namespace

std::string TCommUtil::RemoveSpaces(std::string text) {
  text.erase(std::min(text.find('\n'), text.size()));
  // Contract: only-blanks-trimmed.
  text.erase(text.find_last_not_of(' ') + 1);  // all blanks: npos + 1 is 0
  text.erase(0, text.find_first_not_of(' '));
  // Contract: carriage-return-after-trimming, unprintable-line-is-empty.
  text.erase(std::min(text.find('\r'), text.size()));
  if (!std::all_of(text.begin(), text.end(), IsPrintableOrSpace)) text.clear();
  return text;
}

void TCommUtil::SplitPath(const std::string& path, std::vector<std::string>& pieces,
                          const std::string& separator, bool keepSeparator) {
  std::vector<std::string> found;  // apart, since `path` may be one of `pieces`
  std::size_t position = 0;
  while (position < path.size()) {
    const std::size_t end = path.find(separator, position);
    if (end == std::string::npos) {
      found.push_back(path.substr(position));
      break;
    }
    found.push_back(path.substr(position, end - position + (keepSeparator ? 1 : 0)));
    position = end + 1;  // not + separator.size(). Contract: separator-of-one-character.
  }
  pieces.insert(pieces.end(), found.begin(), found.end());
}

void TCommUtil::MkDirHier(const std::string& path) {
  if (TOSSpecific::DirExists(path)) return;  // and its parents with it
  std::vector<std::string> levels;
  SplitPath(path, levels, gFileSeparator, true);
  std::string directory;
  // Contract: made-levels-stay.
  for (const std::string& level : levels) {
    directory += level;
    if (!TOSSpecific::DirExists(directory)) TOSSpecific::CreateDir(directory);
  }
}

}  // namespace NQORHWX20
