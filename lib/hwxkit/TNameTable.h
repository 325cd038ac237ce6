#ifndef HWXKIT_TNAMETABLE_H
#define HWXKIT_TNAMETABLE_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "hwxkit/CIMName.h"

namespace NQORHWX20 {

/// Shared objects by CIM name, in the order in which they came. Look-ups take constant time.
///
/// Thread-safety: that of a container.
template <typename T>
class TNameTable {
 public:
  using TItems = std::vector<boost::shared_ptr<T> >;

  /// What `IndexOf` returns for a name that isn't there.
  static constexpr std::size_t kAbsent = static_cast<std::size_t>(-1);

  /// All items. A loop that calls out works on a copy, as the table may change meanwhile.
  const TItems& Items() const { return fItems; }

  /// Where the item of that name stands in `Items`.
  std::size_t IndexOf(const std::string& name) const {
    const auto found = fIndexes.find(name);
    return found == fIndexes.end() ? kAbsent : found->second;
  }

  /// The item of that name, or an empty pointer.
  boost::shared_ptr<T> Find(const std::string& name) const {
    const std::size_t index = IndexOf(name);
    return index == kAbsent ? boost::shared_ptr<T>() : fItems[index];
  }

  /// Puts an item in the place of the one that has its name, or behind all others.
  void Put(const std::string& name, const boost::shared_ptr<T>& item) {
    const std::size_t index = IndexOf(name);
    if (index != kAbsent) {
      fItems[index] = item;
      return;
    }
    fItems.push_back(item);
    try {
      fIndexes.emplace(name, fItems.size() - 1);
    } catch (...) {
      fItems.pop_back();
      throw;
    }
  }

  /// Takes an item out; an absent name changes nothing.
  void Remove(const std::string& name) {
    const std::size_t index = IndexOf(name);
    if (index == kAbsent) return;
    fIndexes.erase(name);
    fItems.erase(fItems.begin() + static_cast<std::ptrdiff_t>(index));
    for (auto& entry : fIndexes) {
      if (entry.second > index) --entry.second;
    }
  }

 private:
  TItems fItems;
  std::unordered_map<std::string, std::size_t, TCIMNameHash, TCIMNameEqual> fIndexes;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TNAMETABLE_H
