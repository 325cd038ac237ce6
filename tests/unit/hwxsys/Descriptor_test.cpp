#include "hwxsys/Descriptor.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <utility>

namespace hwxsys {
namespace {

int OpenNull() {
  return ::open("/dev/null", O_RDONLY | O_CLOEXEC);
}

bool IsOpen(int number) {
  return ::fcntl(number, F_GETFD) != -1;
}

TEST(Descriptor, ClosesItsFile) {
  const int number = OpenNull();
  {
    const TDescriptor file(number);
    EXPECT_TRUE(file.IsOpen());
    EXPECT_EQ(file.Get(), number);
  }
  EXPECT_FALSE(IsOpen(number));
}

TEST(Descriptor, MayHoldNothing) {
  const TDescriptor none;
  EXPECT_FALSE(none.IsOpen());
}

TEST(Descriptor, ClosesWhatItHeldForAnother) {
  const int first = OpenNull();
  const int second = OpenNull();
  TDescriptor file(first);
  file.Reset(second);
  EXPECT_FALSE(IsOpen(first));
  EXPECT_TRUE(IsOpen(second));
}

TEST(Descriptor, GivesItsFileAway) {
  const int number = OpenNull();
  TDescriptor from(number);
  TDescriptor to(std::move(from));
  EXPECT_EQ(to.Get(), number);
  TDescriptor last;
  last = std::move(to);
  EXPECT_EQ(last.Get(), number);
  EXPECT_TRUE(IsOpen(number));
}

}  // namespace
}  // namespace hwxsys
