#include "hwxcore/value/detail/BlockPool.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <vector>

#include "hwxcore/value/TCIMNumericValueImpl.h"

namespace {

using NQORHWX20::TCIMNumericValueImpl;
using NQORHWX20::TCIMValueImpl;
using NQORHWX20::detail::GiveBlock;
using NQORHWX20::detail::TakeBlock;

TEST(BlockPool, GivesBlocksThatCanBeFilled) {
  for (std::size_t size = 1; size <= 200; ++size) {
    void* const blocks[] = {TakeBlock(size), TakeBlock(size)};
    for (void* const block : blocks)
      std::memset(block, 0xA5, size);
    EXPECT_NE(blocks[0], blocks[1]);
    for (void* const block : blocks)
      GiveBlock(block, size);
  }
}

TEST(BlockPool, KeepsABoundedNumberOfBlocks) {
  std::vector<void*> blocks;
  for (int i = 0; i < 10000; ++i)
    blocks.push_back(TakeBlock(24));
  for (void* const block : blocks)
    GiveBlock(block, 24);
  for (void*& block : blocks)
    block = TakeBlock(24);
  for (void* const block : blocks)
    GiveBlock(block, 24);
}

// A plug-in of another build may have made the body by the global operator.
TEST(BlockPool, TakesBlocksThatItDidNotGive) {
  GiveBlock(::operator new(24), 24);
  ::operator delete(TakeBlock(24));
}

TEST(BlockPool, ServesBodiesMadeAndDeletedByHand) {
  const std::unique_ptr<TCIMValueImpl> body(new TCIMNumericValueImpl(7u));
  EXPECT_EQ(body->ToString(10), "7");
}

}  // namespace
