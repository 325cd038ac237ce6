#ifndef HWX_TRANSFER_TRANSFERPROGRESS_H
#define HWX_TRANSFER_TRANSFERPROGRESS_H

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace hwx {

/// A line that shows how far a transfer is, while the object lives. Shown only if the standard
/// error stream is a terminal. The library doesn't report progress, so the line shows how much of
/// the file has been read or written.
///
/// Thread-safety: belongs to one thread. It has another of its own, on which it asks `position`.
class TTransferProgress {
 public:
  using TPosition = std::function<std::optional<std::uintmax_t>()>;

  /// `position` gives the bytes that are through, and `total` is all of them, if that is known.
  TTransferProgress(TPosition position, std::optional<std::uintmax_t> total);
  ~TTransferProgress();

  TTransferProgress(const TTransferProgress&) = delete;
  TTransferProgress& operator=(const TTransferProgress&) = delete;

 private:
  void Show();

  TPosition fPosition;
  std::optional<std::uintmax_t> fTotal;
  std::mutex fMutex;
  std::condition_variable fEnd;
  bool fHasEnded = false;
  std::thread fThread;
};

/// The line's text: "1234567 of 2000000 bytes (61 %)", or "1234567 bytes".
std::string ProgressText(std::uintmax_t position, std::optional<std::uintmax_t> total);

/// How far this process has read the file at `path`, by the descriptor that is open on it; missing
/// if there is none.
std::optional<std::uintmax_t> ReadingPosition(const std::string& path);

}  // namespace hwx

#endif  // HWX_TRANSFER_TRANSFERPROGRESS_H
