// Memory for small objects that come and go by the million: the bodies of values.

#ifndef HWXCORE_VALUE_DETAIL_BLOCKPOOL_H
#define HWXCORE_VALUE_DETAIL_BLOCKPOOL_H

#include <cstddef>

namespace NQORHWX20::detail {

/// A block of `size` bytes, from those that the thread has given back, else by `operator new`.
/// Throws `std::bad_alloc`.
void* TakeBlock(std::size_t size);

/// Takes back a block of `size` bytes, which came from `TakeBlock` or from `operator new`, on any
/// thread. The thread keeps a bounded number of each size, and frees them when it ends.
void GiveBlock(void* block, std::size_t size) noexcept;

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_VALUE_DETAIL_BLOCKPOOL_H
