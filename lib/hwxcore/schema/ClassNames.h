// Names of classes that the library reads, for those who provide them or ask for them.

#ifndef HWXCORE_SCHEMA_CLASSNAMES_H
#define HWXCORE_SCHEMA_CLASSNAMES_H

namespace NQORHWX20 {

/// The product that gathers the data: its version and build are those of the data source.
constexpr char kProductClassName[] = "QORSG_HWXProduct";

/// The SCSI devices, among which the removable drives are.
constexpr char kSCSIDeviceClassName[] = "QORSG_SCSIDevice";

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_CLASSNAMES_H
