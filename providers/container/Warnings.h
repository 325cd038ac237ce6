#ifndef CONTAINER_WARNINGS_H
#define CONTAINER_WARNINGS_H

#include <map>
#include <set>
#include <string>
#include <vector>

namespace container {

/// What a document says that isn't taken as it stands. Each kind becomes one line, however often it
/// occurs.
///
/// Thread-safety: none.
class TWarnings {
 public:
  /// A thing of some kind, by its name.
  void Add(const std::string& kind, const std::string& name) { fNames[kind].insert(name); }

  /// The lines, each behind "FILE: ".
  std::vector<std::string> Lines(const std::string& fileName) const;

 private:
  std::map<std::string, std::set<std::string> > fNames;
};

}  // namespace container

#endif  // CONTAINER_WARNINGS_H
