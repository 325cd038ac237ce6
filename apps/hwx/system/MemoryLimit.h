// A limit for the memory of the program itself. Thread-safety: for the main thread.

#ifndef HWX_SYSTEM_MEMORYLIMIT_H
#define HWX_SYSTEM_MEMORYLIMIT_H

#include <cstdint>

namespace hwx {

/// From now on the data of the process takes no more than so many bytes: what needs more throws
/// `std::bad_alloc`. A lower limit that holds already stays. Programs that are started have the
/// limit too.
void LimitMemory(std::uint64_t bytes);

}  // namespace hwx

#endif  // HWX_SYSTEM_MEMORYLIMIT_H
