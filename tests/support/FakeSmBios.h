#ifndef HWXTESTS_SUPPORT_FAKESMBIOS_H
#define HWXTESTS_SUPPORT_FAKESMBIOS_H

#include <map>
#include <optional>

#include "smbios/smbios.h"
#include "support/SmbiosTables.h"

namespace hwxtest {

/// Stands before libsmbios: its executable's own three operations do. Each call of them writes a
/// line to the log at debug level, "(load)", "(read type 1 into 1024 bytes)" or "(close)", so that
/// a test sees calls and log lines in one order. What isn't set is asked of the real library.
class FakeSmBios {
 public:
  FakeSmBios();
  ~FakeSmBios();

  FakeSmBios(const FakeSmBios&) = delete;
  FakeSmBios& operator=(const FakeSmBios&) = delete;

  FakeSmBios& FailLoad(int code) { return fLoadCode = code, *this; }
  FakeSmBios& GiveNullHandle() { return fGivesNullHandle = true, *this; }

  /// The next `count` loads are the real library's, whatever is set.
  FakeSmBios& LetLoadsPass(int count) { return fPassingLoads = count, *this; }

  /// What reads of `type` return, and what they put in the buffer and in the length.
  FakeSmBios& Answer(int type, int code, const Bytes& bytes, int length);
  FakeSmBios& Answer(int type, int code) { return Answer(type, code, {}, 0); }
  FakeSmBios& Answer(int type, const Bytes& bytes) {
    return Answer(type, kSmBiosOK, bytes, static_cast<int>(bytes.size()));
  }

  bool IsClosed() const { return fHandle == nullptr; }

  /// Releases the handle and the buffer of the last read, which the code under test left behind.
  void ReleaseLeftBehind();

  // For the operations.
  TSmBiosStatus Load(void** handle);
  TSmBiosStatus GetFirst(void* handle, int type, void* buffer, int* length);
  TSmBiosStatus Close(void** handle);

 private:
  struct TAnswer {
    int fCode;
    Bytes fBytes;
    int fLength;
  };

  std::optional<int> fLoadCode;
  bool fGivesNullHandle = false;
  int fPassingLoads = 0;
  std::map<int, TAnswer> fAnswers;
  void* fHandle = nullptr;
  void* fBuffer = nullptr;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FAKESMBIOS_H
