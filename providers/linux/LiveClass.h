// A class of the provider whose instances are the rows that a reader gives. What a property is
// called, where its value comes from and what it means stand together in one line:
//
//     TLiveClass<TDisk>(ns, "CIM_DiskDrive", "A disk.", &ReadDisks)
//         .Key("DeviceID", &TDisk::fDeviceID, "Path of the block device.")
//         .Property("Size", &TDisk::fSize, "What the disk holds.").Units("Bytes")
//         .Commit();
//
// Thread-safety: none, as the kit has none.

#ifndef PROVIDERS_LINUX_LIVECLASS_H
#define PROVIDERS_LINUX_LIVECLASS_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "hwxcore/value/TCIMValue.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TInstanceList.h"
#include "hwxsys/SystemRoot.h"
#include "providers/linux/Classes.h"
#include "providers/linux/Date.h"

namespace linux_machine {

/// The type of the schema that stands for a type of the readers.
template <typename Value>
struct TTypeTag;

using TTag = NQORHWX20::TCIMValue::TCIMType;

// clang-format off
template <> struct TTypeTag<bool> { static constexpr int kTag = TTag::kCIMTypeBoolean; };
template <> struct TTypeTag<std::uint8_t> { static constexpr int kTag = TTag::kCIMTypeUInt8; };
template <> struct TTypeTag<std::uint16_t> { static constexpr int kTag = TTag::kCIMTypeUInt16; };
template <> struct TTypeTag<std::uint32_t> { static constexpr int kTag = TTag::kCIMTypeUInt32; };
template <> struct TTypeTag<std::uint64_t> { static constexpr int kTag = TTag::kCIMTypeUInt64; };
template <> struct TTypeTag<float> { static constexpr int kTag = TTag::kCIMTypeReal32; };
template <> struct TTypeTag<std::string> { static constexpr int kTag = TTag::kCIMTypeString; };
template <> struct TTypeTag<TDate> { static constexpr int kTag = TTag::kCIMTypeDateTime; };
template <typename Value> struct TTypeTag<std::optional<Value>> : TTypeTag<Value> {};
template <typename Value> struct TTypeTag<std::vector<Value>> {
  static constexpr int kTag = TTypeTag<Value>::kTag | TTag::kCIMTypeArrayFlag;
};
// clang-format on

template <typename Value>
constexpr TTag::ECIMType kTypeTag = static_cast<TTag::ECIMType>(TTypeTag<Value>::kTag);

/// The value of a property, a null of its type where the reader has none.
template <typename Value>
NQORHWX20::TCIMValue ToValue(const Value& value) {
  return NQORHWX20::TCIMValue(value);
}

/// Midnight, UTC; a null for a day that no date-time can be made of.
NQORHWX20::TCIMValue ToValue(const TDate& date);

template <typename Element>
NQORHWX20::TCIMValue ToValue(const std::vector<Element>& elements) {
  std::vector<NQORHWX20::TCIMValue> values;
  values.reserve(elements.size());
  for (const Element& element : elements) {
    values.push_back(ToValue(element));
  }
  return NQORHWX20::TCIMValue(kTypeTag<std::vector<Element>>, 0, values);
}

template <typename Value>
NQORHWX20::TCIMValue ToValue(const std::optional<Value>& value) {
  return value ? ToValue(*value) : NQORHWX20::TCIMValue(kTypeTag<Value>, 0);
}

/// Numbers with their meanings, in the order in which the schema lists them.
using TValueMap = std::vector<std::pair<unsigned int, const char*>>;

/// Puts the qualifiers "ValueMap" and "Values" on what was declared last.
void DeclareValues(NQORHWX20::TClassBuilder& builder, const TValueMap& values);

/// See the top of this file. `Row` is what the reader gives, one for each instance.
template <typename Row>
class TLiveClass {
 public:
  using TReader = std::vector<Row> (*)(const std::string& root);

  TLiveClass(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns, const char* name,
             const char* description, TReader reader)
      : fBuilder(ns, name), fReader(reader) {
    fBuilder.Description(description);
  }

  /// The one key. Of several rows with the same key only the first becomes an instance. Such rows
  /// come from a copied /sys or from odd firmware, and must not make the whole class fail.
  TLiveClass& Key(const char* name, std::string Row::*field, const char* description) {
    fKey = field;
    Property(name, field, description);
    fBuilder.Qualifier("Key", true);
    return *this;
  }

  /// A property; `read` is a member of the row or a function of it, whose type decides the
  /// property's.
  template <typename Read>
  TLiveClass& Property(const char* name, Read read, const char* description) {
    using Value = std::decay_t<std::invoke_result_t<Read, const Row&>>;
    fBuilder.Property(name, kTypeTag<Value>, description);
    fFillers.push_back([name, read](NQORHWX20::TMemoryInstance& instance, const Row& row) {
      instance.Set(name, ToValue(std::invoke(read, row)));
    });
    return *this;
  }

  /// The unit of the property that was declared last.
  TLiveClass& Units(const char* units) {
    fBuilder.Qualifier("Units", units);
    return *this;
  }

  /// The unit to the letter, where the name of `Units` has two meanings.
  TLiveClass& ProgrammaticUnit(const char* unit) {
    fBuilder.Qualifier("PUnit", unit);
    return *this;
  }

  /// What the numbers of the property that was declared last mean.
  TLiveClass& Values(const TValueMap& values) {
    DeclareValues(fBuilder, values);
    return *this;
  }

  void Commit() {
    fBuilder.Source(
        [reader = fReader, key = fKey, fillers = fFillers](NQORHWX20::TInstanceList& instances) {
          std::set<std::string> keys;
          for (const Row& row : reader(hwxsys::SystemRoot())) {
            if (!keys.insert(row.*key).second) {
              continue;
            }
            NQORHWX20::TMemoryInstance& instance = instances.Add();
            for (const TFiller& fill : fillers) {
              fill(instance, row);
            }
          }
        });
    fBuilder.Commit();
  }

 private:
  using TFiller = std::function<void(NQORHWX20::TMemoryInstance&, const Row&)>;

  NQORHWX20::TClassBuilder fBuilder;
  const TReader fReader;
  std::string Row::*fKey = nullptr;
  std::vector<TFiller> fFillers;
};

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_LIVECLASS_H
