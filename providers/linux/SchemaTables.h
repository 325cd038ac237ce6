// The tables in schema/, which the build makes part of the module.

#ifndef PROVIDERS_LINUX_SCHEMATABLES_H
#define PROVIDERS_LINUX_SCHEMATABLES_H

#include <string_view>

namespace linux_machine {

extern const std::string_view kStandardSchema;
extern const std::string_view kOwnSchema;

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_SCHEMATABLES_H
