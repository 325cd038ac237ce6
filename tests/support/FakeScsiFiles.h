#ifndef HWXTESTS_SUPPORT_FAKESCSIFILES_H
#define HWXTESTS_SUPPORT_FAKESCSIFILES_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace hwxtest {

/// Has the kernel take files for SCSI devices: its executable's own `ioctl` stands before the
/// system's. Asks that aren't about SCSI addresses, or about a file that isn't added, reach the
/// system.
class FakeScsiFiles {
 public:
  FakeScsiFiles();
  ~FakeScsiFiles();

  FakeScsiFiles(const FakeScsiFiles&) = delete;
  FakeScsiFiles& operator=(const FakeScsiFiles&) = delete;

  /// What the file answers to a request: the numbers, put in the buffer from its beginning. Without
  /// any, it fails.
  void Answer(const std::string& path, unsigned long request,
              const std::vector<std::int32_t>& numbers);

  /// For `ioctl`: whether the file is added for this request, and then what comes of it.
  bool Answers(int descriptor, unsigned long request, void* buffer, int& result) const;

 private:
  std::map<std::pair<std::string, unsigned long>, std::vector<std::int32_t>> fAnswers;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FAKESCSIFILES_H
