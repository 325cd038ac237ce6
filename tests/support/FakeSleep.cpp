#include "support/FakeSleep.h"

#include <ctime>

namespace hwxtest {

namespace {

thread_local FakeSleep* tSleep = nullptr;

}  // namespace

FakeSleep::FakeSleep() {
  tSleep = this;
}

FakeSleep::~FakeSleep() {
  tSleep = nullptr;
}

}  // namespace hwxtest

extern "C" int usleep(useconds_t microseconds) {
  if (hwxtest::tSleep) {
    hwxtest::tSleep->Note(microseconds);
    return 0;
  }
  constexpr useconds_t kSecond = 1000000;
  const timespec duration{microseconds / kSecond, microseconds % kSecond * 1000L};
  return ::nanosleep(&duration, nullptr);
}
