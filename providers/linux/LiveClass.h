// A class of the provider whose instances are the rows that a reader gives. The schema declares the
// class; here each property is given the place that its value comes from:
//
//     TLiveClass<TDisk>(ns, "QORSG_DiskDrive", &ReadDisks)
//         .Key("DeviceID", &TDisk::fDeviceID)
//         .Set("Size", &TDisk::fSize)
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
#include "hwxkit/TInstanceList.h"
#include "hwxsys/SystemRoot.h"
#include "providers/linux/Classes.h"
#include "providers/linux/Date.h"
#include "providers/linux/OwnerKeys.h"

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
template <> struct TTypeTag<std::int32_t> { static constexpr int kTag = TTag::kCIMTypeSInt32; };
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

/// See the top of this file. `Row` is what the reader gives, one for each instance.
template <typename Row>
class TLiveClass {
 public:
  using TReader = std::function<std::vector<Row>(const std::string& root)>;

  /// The schema must have declared the class.
  TLiveClass(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns, const char* name,
             TReader reader)
      : fClass(DeclaredClass(*ns, name)), fReader(std::move(reader)) {}

  /// The key that tells the instances of a machine apart. Of several rows with the same key the
  /// first becomes an instance: only a copied /sys or odd firmware has such rows. The keys that
  /// name the machine and the class need not be set.
  TLiveClass& Key(const char* name, std::string Row::*field) {
    fKey = field;
    return Set(name, field);
  }

  /// A property; `read` is a member of the row or a function of it. Throws `std::logic_error` if
  /// the class has no such property of that type.
  template <typename Read>
  TLiveClass& Set(const char* name, Read read) {
    using Value = std::decay_t<std::invoke_result_t<Read, const Row&>>;
    CheckDeclared(*fClass, name, kTypeTag<Value>);
    fFillers.push_back([name, read](NQORHWX20::TMemoryInstance& instance, const Row& row) {
      instance.Set(name, ToValue(std::invoke(read, row)));
    });
    return *this;
  }

  /// The same property with the same value in all instances.
  template <typename Value>
  TLiveClass& SetAll(const char* name, const Value& value) {
    return Set(name, [value](const Row&) { return value; });
  }

  void Commit() {
    fClass->SetInstanceSource(
        [reader = fReader, key = fKey, fillers = fFillers](NQORHWX20::TInstanceList& instances) {
          const std::string root = hwxsys::SystemRoot();
          const TOwnerKeys owner(*instances.GetClass(), root);
          std::set<std::string> keys;
          for (const Row& row : reader(root)) {
            if (!keys.insert(row.*key).second) {
              continue;
            }
            NQORHWX20::TMemoryInstance& instance = instances.Add();
            owner.Fill(instance);
            for (const TFiller& fill : fillers) {
              fill(instance, row);
            }
          }
        });
  }

 private:
  using TFiller = std::function<void(NQORHWX20::TMemoryInstance&, const Row&)>;

  const boost::shared_ptr<NQORHWX20::TMemoryClass> fClass;
  const TReader fReader;
  std::string Row::*fKey = nullptr;
  std::vector<TFiller> fFillers;
};

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_LIVECLASS_H
