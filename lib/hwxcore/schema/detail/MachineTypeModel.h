#ifndef HWXCORE_SCHEMA_DETAIL_MACHINETYPEMODEL_H
#define HWXCORE_SCHEMA_DETAIL_MACHINETYPEMODEL_H

#include <optional>
#include <string>

namespace NQORHWX20::detail {

/// The seven characters of machine type and model that `productName` holds, if it holds any.
std::optional<std::string> ParseMachineTypeModel(std::string productName);

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_SCHEMA_DETAIL_MACHINETYPEMODEL_H
