#include "support/FakePatience.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace hwxtest {

namespace {

thread_local FakePatience* tPatience = nullptr;

int SystemPoll(pollfd* files, nfds_t count, const timespec* limit, const sigset_t* mask) {
  constexpr std::size_t kMaskSize = 8;          // as the kernel has it
  timespec rest = limit ? *limit : timespec{};  // the kernel writes to it
  return static_cast<int>(
      ::syscall(SYS_ppoll, files, count, limit ? &rest : nullptr, mask, kMaskSize));
}

}  // namespace

FakePatience::FakePatience(IsOver isOver) : fIsOver(std::move(isOver)) {
  tPatience = this;
}

FakePatience::~FakePatience() {
  tPatience = nullptr;
}

int FakePatience::Wait(pollfd* files, nfds_t count, const timespec* limit) {
  constexpr double kNano = 1e-9;
  const timespec now{0, 0};
  const timespec moment{0, 10000000};
  fLimits.push_back(limit ? static_cast<double>(limit->tv_sec) +
                                kNano * static_cast<double>(limit->tv_nsec)
                          : -1);
  for (;;) {
    const bool isOver = fIsOver(fInputs);  // asked first: what came before it counts as input
    const int result = SystemPoll(files, count, isOver ? &now : &moment, nullptr);
    if (result > 0) ++fInputs;
    if (result != 0 || isOver) return result;
  }
}

}  // namespace hwxtest

extern "C" int ppoll(pollfd* files, nfds_t count, const timespec* limit, const sigset_t* mask) {
  using hwxtest::tPatience;
  return tPatience ? tPatience->Wait(files, count, limit)
                   : hwxtest::SystemPoll(files, count, limit, mask);
}
