// What the kernel keeps of the firmware's tables, with the reason where it doesn't.
// Thread-safety: reads the environment, which no thread may change meanwhile.

#ifndef HWX_FIRMWARE_KERNELCOPY_H
#define HWX_FIRMWARE_KERNELCOPY_H

#include <string>

#include "hwx/text/Answer.h"

namespace hwx {

/// The text in one of its files, such as "product_name". Missing also if the firmware tables are
/// another machine's.
TAnswer<std::string> KernelCopy(const std::string& name);

}  // namespace hwx

#endif  // HWX_FIRMWARE_KERNELCOPY_H
