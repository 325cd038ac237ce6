// The lists of names for the numbers of PCI and USB devices that systems install: pci.ids and
// usb.ids, two texts of one form.

#ifndef PROVIDERS_LINUX_IDDATABASE_H
#define PROVIDERS_LINUX_IDDATABASE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace linux_machine {

/// Names by numbers. Whatever the text holds, a line that is no entry is passed over, and a name is
/// given byte for byte. Of two names for one number the first counts.
///
/// Thread-safety: constant once made; any number of threads may read it.
class TIdDatabase {
 public:
  explicit TIdDatabase(std::string text);
  TIdDatabase(const TIdDatabase&) = delete;  // the entries are views of the text
  TIdDatabase& operator=(const TIdDatabase&) = delete;

  std::optional<std::string> Vendor(std::uint16_t vendor) const;
  std::optional<std::string> Device(std::uint16_t vendor, std::uint16_t device) const;
  /// The subclass's name; the class's where the subclass has none.
  std::optional<std::string> Class(std::uint8_t baseClass, std::uint8_t subclass) const;

 private:
  // What a name is for, in one number, and where the name stands in the text.
  using TEntry = std::pair<std::uint64_t, std::string_view>;

  std::optional<std::string> Find(std::uint64_t key) const;

  const std::string fText;
  std::vector<TEntry> fEntries;  // sorted by the key
};

/// The database "pci.ids" or "usb.ids" below `root`, from the first place that has it; an empty one
/// where none is installed.
TIdDatabase ReadIdDatabase(const std::string& root, const std::string& name);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_IDDATABASE_H
