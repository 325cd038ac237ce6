// What the kernel keeps of the firmware's tables in /sys/class/dmi/id, also where it doesn't hand
// out the tables themselves. Thread-safety: reads the environment, which no thread may change
// meanwhile.

#ifndef HWXSYS_KERNELCOPY_H
#define HWXSYS_KERNELCOPY_H

#include <string>

namespace hwxsys {

/// Whether the environment variable `HWX_SMBIOS_TABLES` puts the tables of another machine in the
/// place of this one's, of which the kernel knows nothing.
bool IsOtherFirmware();

/// One of the kernel's texts, or why it can't be read.
struct TKernelCopy {
  std::string fPath;
  int fError;         ///< 0, or the operating system's error; EFBIG for more than a page.
  std::string fText;  ///< Up to the first NUL byte, without a newline at the end.
};

/// Reads the file `name`, "product_name" for one, of the machine whose /sys lies below `root`.
TKernelCopy ReadKernelCopy(const std::string& root, const std::string& name);

}  // namespace hwxsys

#endif  // HWXSYS_KERNELCOPY_H
