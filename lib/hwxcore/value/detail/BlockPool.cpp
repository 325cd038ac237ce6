#include "hwxcore/value/detail/BlockPool.h"

#include <new>

#include "hwxsys/Sanitizers.h"

namespace NQORHWX20::detail {

namespace {

// The sanitizers are to see each block come and go.
constexpr bool kKeepsBlocks = !hwxsys::kIsSanitized;

constexpr std::size_t kUnit = 8;  // of all sizes
constexpr std::size_t kLargest = 64;
constexpr std::size_t kSizes = kLargest / kUnit + 1;
constexpr unsigned kMostKept = 512;

struct TBlock {
  TBlock* fNext;
};

enum EPoolState : unsigned char { kNotYetOpen, kOpen, kClosed };

// Of trivial type, so that it can be asked until the thread's very end.
struct TPool {
  TBlock* fFirst[kSizes];
  unsigned fKept[kSizes];
  EPoolState fState;
};

thread_local TPool tPool;

// Frees what the thread has kept.
struct TPoolCloser {
  TPoolCloser() { tPool.fState = kOpen; }
  ~TPoolCloser() {
    tPool.fState = kClosed;
    for (TBlock*& first : tPool.fFirst) {
      while (first) {
        TBlock* const next = first->fNext;
        ::operator delete(first);
        first = next;
      }
    }
  }
};

// Apart, so that only a thread's first block pays for it. False once the thread has ended.
[[gnu::noinline]] bool Open(TPool& pool) {
  if (pool.fState == kNotYetOpen) static thread_local const TPoolCloser closer;
  return pool.fState == kOpen;
}

bool IsPooled(std::size_t size) {
  return kKeepsBlocks && size <= kLargest && size % kUnit == 0;
}

}  // namespace

void* TakeBlock(std::size_t size) {
  if (!IsPooled(size)) return ::operator new(size);
  TPool& pool = tPool;
  TBlock*& first = pool.fFirst[size / kUnit];
  TBlock* const block = first;
  if (!block) return ::operator new(size);
  first = block->fNext;
  --pool.fKept[size / kUnit];
  return block;
}

void GiveBlock(void* block, std::size_t size) noexcept {
  if (!IsPooled(size)) return ::operator delete(block);
  TPool& pool = tPool;
  unsigned& kept = pool.fKept[size / kUnit];
  const bool isOpen = pool.fState == kOpen || Open(pool);
  if (!isOpen || kept >= kMostKept) return ::operator delete(block);
  TBlock*& first = pool.fFirst[size / kUnit];
  first = new (block) TBlock{first};
  ++kept;
}

}  // namespace NQORHWX20::detail
