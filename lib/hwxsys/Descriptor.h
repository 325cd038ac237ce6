#ifndef HWXSYS_DESCRIPTOR_H
#define HWXSYS_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace hwxsys {

/// An open file, closed in the end. Thread-safety: belongs to one thread.
class TDescriptor {
 public:
  /// Takes what `::open` returned: a negative number is no file.
  explicit TDescriptor(int number = -1) : fNumber(number) {}
  TDescriptor(TDescriptor&& other) noexcept : fNumber(std::exchange(other.fNumber, -1)) {}
  TDescriptor& operator=(TDescriptor&& other) noexcept {
    Reset(std::exchange(other.fNumber, -1));
    return *this;
  }
  ~TDescriptor() { Reset(-1); }

  bool IsOpen() const { return fNumber >= 0; }
  int Get() const { return fNumber; }

  /// Closes the file that is open, and holds `number` from now on.
  void Reset(int number) {
    const int before = std::exchange(fNumber, number);
    if (before >= 0) ::close(before);
  }

 private:
  int fNumber;
};

}  // namespace hwxsys

#endif  // HWXSYS_DESCRIPTOR_H
