#ifndef HWXTESTS_SUPPORT_VIRTUALSLOTS_H
#define HWXTESTS_SUPPORT_VIRTUALSLOTS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

namespace hwxtest {

/// The slot of a virtual operation in the table of its class, from 0: what providers that are built
/// apart rely on. The C++ ABI puts its offset in the table, plus 1, in the first word of a pointer
/// to the member.
template <typename Member>
std::size_t SlotOf(Member member) {
  static_assert(sizeof member == 2 * sizeof(std::size_t), "a pointer to a member function");
  std::size_t words[2];
  std::memcpy(words, &member, sizeof words);
  EXPECT_EQ(words[0] % sizeof(void*), 1u) << "not virtual";
  return words[0] / sizeof(void*);
}

/// Expects operations in the slots of a class one after the other, behind the two that the
/// destructor takes.
class SlotTable {
 public:
  explicit SlotTable(std::size_t firstSlot = 2) : fNext(firstSlot) {}

  /// The next slots.
  template <typename... Members>
  SlotTable& Has(Members... members) {
    (ExpectNext(SlotOf(members)), ...);
    return *this;
  }

  std::size_t Size() const { return fNext; }

 private:
  void ExpectNext(std::size_t slot) { EXPECT_EQ(slot, fNext++); }

  std::size_t fNext;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_VIRTUALSLOTS_H
