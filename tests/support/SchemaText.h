#ifndef HWXTESTS_SUPPORT_SCHEMATEXT_H
#define HWXTESTS_SUPPORT_SCHEMATEXT_H

#include <string>
#include <vector>

#include "hwxcore/schema/ICIMNamespace.h"

namespace hwxtest {

/// Everything that the schema interfaces tell of a namespace's definitions, one line for each, so
/// that two namespaces can be compared:
///
///     qualifier Key boolean false 127 1
///     EX_Disk : EX_Device
///     EX_Disk[Description] string A disk.
///     EX_Disk.Size uint64 null
///     EX_Disk.Size[Units] string Bytes
///     EX_Disk::Size uint64 5
///     EX_Disk.Reset() uint32
///     EX_Disk.Reset(Mode) string
///
/// Classes stand in the order of their names, the rest in the order of its enumeration.
std::vector<std::string> SchemaText(NQORHWX20::ICIMNamespace& ns);

/// The first line in which two texts differ, as "line of one | line of other"; empty if they are
/// the same.
std::string FirstDifference(const std::vector<std::string>& one,
                            const std::vector<std::string>& other);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SCHEMATEXT_H
