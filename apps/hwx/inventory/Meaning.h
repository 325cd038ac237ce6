// What the values of a property mean, by the qualifiers of its declaration: words for numbers
// ("ValueMap" and "Values") and units ("PUnit" or "Units"). Thread-safety: that of the classes
// while they are asked, and none while objects of this file change.

#ifndef HWX_INVENTORY_MEANING_H
#define HWX_INVENTORY_MEANING_H

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hwx/inventory/Namespace.h"
#include "hwx/text/Json.h"
#include "hwx/text/Units.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"

namespace hwx {

/// Whether values show as they are stored, or what they mean: words, amounts with units.
enum class EValues { kStored, kMeant };

/// How to read the values of one property.
class TMeaning {
 public:
  /// Of a property that nothing is known of: its values are what they are.
  TMeaning() = default;
  explicit TMeaning(NQORHWX20::ICIMPropertyDecl& declaration);

  /// A value for people, where that differs from the value as it is stored: "DIMM" for 8, "16 GiB",
  /// "2022-03-14 00:00:00 UTC". Elements of arrays have ", " between them. `stored` is what
  /// `ValueJson` makes of a value.
  std::optional<std::string> Words(const TJson& stored) const;

  /// What a number counts; missing without a unit that is known.
  const std::optional<TUnit>& Unit() const { return fUnit; }

  /// The numbers, or ranges of numbers, and their words, in the order of the schema.
  const std::vector<std::pair<std::string, std::string>>& ValueMap() const { return fValueMap; }

 private:
  std::optional<std::string> ElementWords(const TJson& stored) const;
  std::optional<std::string> WordFor(const TJson& stored) const;

  bool fIsDateTime = false;
  std::optional<TUnit> fUnit;
  std::vector<std::pair<std::string, std::string>> fValueMap;
};

/// The meanings in a namespace, each class looked at once.
class TMeanings {
 public:
  /// Of the property `name` of an instance of `cimClass`.
  const TMeaning& Of(NQORHWX20::ICIMClass& cimClass, const std::string& name);

 private:
  using TOfClass = std::map<std::string, TMeaning>;  // by the folded name of the property
  std::map<std::string, TOfClass> fOfClasses;        // by the folded name of the class
};

/// What a class, or a property's declaration, says of itself; empty without the qualifier
/// "Description".
std::string DescriptionOf(NQORHWX20::ICIMQualifiedElement& element);

/// What the qualifier "Units" says, or else "PUnit"; empty without both.
std::string UnitsOf(NQORHWX20::ICIMQualifiedElement& element);

/// {"value": stored, "text": words}, or the value alone where it has no words.
TJson WithWords(const TJson& stored, const TMeaning& meaning);

}  // namespace hwx

#endif  // HWX_INVENTORY_MEANING_H
