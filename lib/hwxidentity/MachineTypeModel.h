// Machine type and model, as product names hold them. Thread-safety: functions without state.

#ifndef HWXIDENTITY_MACHINETYPEMODEL_H
#define HWXIDENTITY_MACHINETYPEMODEL_H

#include <optional>
#include <string>

namespace hwxidentity {

/// Whether the first four characters are a machine type, letters and digits. The rest isn't looked
/// at. Which bytes beyond ASCII are letters is up to the process's locale, here and below.
bool IsMachineType(const std::string& text);

/// Whether the first four characters are a machine type and the next three letters, digits or
/// blanks. The rest isn't looked at.
bool IsMachineTypeModel(const std::string& text);

/// The seven characters of machine type and model that `productName` holds, if it holds any.
std::optional<std::string> ParseMachineTypeModel(std::string productName);

}  // namespace hwxidentity

#endif  // HWXIDENTITY_MACHINETYPEMODEL_H
