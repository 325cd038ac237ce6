#include "support/FakeScsiFiles.h"

#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <filesystem>

namespace hwxtest {

namespace {

FakeScsiFiles* gScsiFiles = nullptr;

}  // namespace

FakeScsiFiles::FakeScsiFiles() {
  gScsiFiles = this;
}

FakeScsiFiles::~FakeScsiFiles() {
  gScsiFiles = nullptr;
}

void FakeScsiFiles::Answer(const std::string& path, unsigned long request,
                           const std::vector<std::int32_t>& numbers) {
  fAnswers[{path, request}] = numbers;
}

bool FakeScsiFiles::Answers(int descriptor, unsigned long request, void* buffer,
                            int& result) const {
  std::error_code ignored;
  const auto path =
      std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), ignored);
  const auto found = fAnswers.find({path.string(), request});
  if (found == fAnswers.end()) return false;
  const std::vector<std::int32_t>& numbers = found->second;
  std::memcpy(buffer, numbers.data(), numbers.size() * sizeof(std::int32_t));
  result = numbers.empty() ? -1 : 0;
  return true;
}

}  // namespace hwxtest

extern "C" int ioctl(int descriptor, unsigned long request, ...) noexcept {
  std::va_list arguments;
  va_start(arguments, request);
  void* const buffer = va_arg(arguments, void*);
  va_end(arguments);
  int result = 0;
  if (hwxtest::gScsiFiles && hwxtest::gScsiFiles->Answers(descriptor, request, buffer, result)) {
    return result;
  }
  return static_cast<int>(::syscall(SYS_ioctl, descriptor, request, buffer));
}
