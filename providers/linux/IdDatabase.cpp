#include "providers/linux/IdDatabase.h"

#include <algorithm>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::size_t kSizeLimit = std::size_t{16} * 1024 * 1024;  // they grow
constexpr const char* kPlaces[] = {"/usr/share/misc/", "/usr/share/hwdata/", "/usr/share/"};

// Which list a line belongs to, above the bits of its numbers.
enum EList : std::uint64_t { kNone = 0, kVendors = 1, kDevices = 2, kClasses = 3, kSubclasses = 4 };

constexpr std::uint64_t Key(EList list, std::uint64_t first, std::uint64_t second = 0) {
  return list << 32 | first << 16 | second;
}

// Takes a hexadecimal number of so many digits off the line, if two blanks and a name follow it.
std::optional<std::uint64_t> TakeId(std::string_view& line, std::size_t digits) {
  if (line.size() < digits + 3 || line.substr(digits, 2) != "  ") {
    return std::nullopt;
  }
  const auto id = ParseHex(line.substr(0, digits));
  if (id) {
    line.remove_prefix(digits + 2);
  }
  return id;
}

}  // namespace

TIdDatabase::TIdDatabase(std::string text) : fText(std::move(text)) {
  EList list = kNone;
  std::uint64_t parent = 0;
  const auto add = [this](std::uint64_t key, std::string_view name) {
    fEntries.emplace_back(key, name);
  };
  for (std::string_view rest = fText; !rest.empty();) {
    std::string_view line = TakeLine(rest);
    const bool isClass = line.substr(0, 2) == "C ";
    if (line.empty() || line[0] == '#') {
      continue;
    }
    if (!TakePrefix(line, "\t")) {  // a new list
      TakePrefix(line, isClass ? "C " : "");
      const auto id = TakeId(line, isClass ? 2 : 4);
      list = !id ? kNone : isClass ? kClasses : kVendors;
      parent = id.value_or(0);
      if (id) {
        add(Key(list, parent), line);
      }
    } else if (list != kNone) {  // with a second tab it is a subsystem or an interface, and no id
      if (const auto id = TakeId(line, list == kClasses ? 2 : 4)) {
        add(Key(list == kClasses ? kSubclasses : kDevices, parent, *id), line);
      }
    }
  }
  std::stable_sort(fEntries.begin(), fEntries.end(), [](const TEntry& left, const TEntry& right) {
    return left.first < right.first;
  });
}

std::optional<std::string> TIdDatabase::Find(std::uint64_t key) const {
  const auto entry =
      std::lower_bound(fEntries.begin(), fEntries.end(), key,
                       [](const TEntry& left, std::uint64_t right) { return left.first < right; });
  const bool isFound = entry != fEntries.end() && entry->first == key;
  return isFound ? std::optional(CutAtNul(entry->second)) : std::nullopt;
}

std::optional<std::string> TIdDatabase::Vendor(std::uint16_t vendor) const {
  return Find(Key(kVendors, vendor));
}

std::optional<std::string> TIdDatabase::Device(std::uint16_t vendor, std::uint16_t device) const {
  return Find(Key(kDevices, vendor, device));
}

std::optional<std::string> TIdDatabase::Class(std::uint8_t baseClass, std::uint8_t subclass) const {
  const auto name = Find(Key(kSubclasses, baseClass, subclass));
  return name ? name : Find(Key(kClasses, baseClass));
}

TIdDatabase ReadIdDatabase(const std::string& root, const std::string& name) {
  for (const char* place : kPlaces) {
    if (auto text = ReadFile(root + place + name, kSizeLimit)) {
      return TIdDatabase(std::move(*text));
    }
  }
  return TIdDatabase(std::string());
}

}  // namespace linux_machine
