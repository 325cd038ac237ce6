// What "hwx classes" and "hwx describe" print. Thread-safety: that of the classes.

#ifndef HWX_INVENTORY_CLASSREPORT_H
#define HWX_INVENTORY_CLASSREPORT_H

#include <cstddef>
#include <optional>
#include <string>

#include "hwx/inventory/Reading.h"

namespace hwx {

/// A line for each class: its name, how many instances it has itself, "-" if it can have none, and
/// what it is for. Long lines go on in the next one, if there is a width.
std::string ClassesText(const TReading& reading, std::optional<std::size_t> width);

/// {"classes": [{"name": "...", "superclass": "...", "abstract": false, "instances": 5,
/// "description": "..."}, ...]}.
std::string ClassesJson(const TReading& reading);

/// What a class is for, and a paragraph for each property: name, type, unit, whether it is a key,
/// what it tells, and the words of its numbers.
std::string DescribedText(NQORHWX20::ICIMClass& cimClass, std::optional<std::size_t> width);

/// {"name": "...", "superclass": "...", "abstract": false, "description": "...", "properties":
/// [{"name": "...", "type": "...", "key": false, "units": "...", "description": "...", "values":
/// [{"value": "8", "text": "DIMM"}, ...]}, ...]}. What isn't told is null, and "values" empty.
std::string DescribedJson(NQORHWX20::ICIMClass& cimClass);

}  // namespace hwx

#endif  // HWX_INVENTORY_CLASSREPORT_H
