#ifndef HWXKIT_DETAIL_CHILD_H
#define HWXKIT_DETAIL_CHILD_H

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace NQORHWX20::detail {

/// One message between a process and its child.
struct TMessage {
  std::uint8_t fKind = 0;  ///< What it means is the two sides' business.
  std::string fText;       ///< Any bytes.
};

/// The end of the connection that the child holds. Thread-safety: none.
class TParentLine {
 public:
  explicit TParentLine(int socket) : fSocket(socket) {}

  /// Missing when the parent wants no more.
  std::optional<TMessage> Receive();
  /// Ends the process when the parent is gone.
  void Send(std::uint8_t kind, std::string_view text);

 private:
  int fSocket;
};

/// A process that does for this one what may crash, hang or print. It has no standard input, its
/// standard output is caught, and it ends with its parent. It belongs to a process group of its
/// own, which is ended with it.
///
/// Thread-safety: none. Made by the main thread, while there are no others.
class TChild {
 public:
  using TDeadline = std::chrono::steady_clock::time_point;

  /// Starts the process, which runs `serve` and then ends without running destructors. `memory` is
  /// how many bytes of data it may have, 0 for no limit. Throws `std::system_error`.
  TChild(const std::function<void(TParentLine&)>& serve, std::uint64_t memory);
  /// Kills the process, if it still runs.
  ~TChild();
  TChild(const TChild&) = delete;
  TChild& operator=(const TChild&) = delete;

  /// A child that is gone is told by the next `Receive`.
  void Send(std::uint8_t kind, std::string_view text);

  /// The next message. Missing if the process ended or `deadline` passed: it is killed then, and
  /// `WhyLost` tells.
  std::optional<TMessage> Receive(TDeadline deadline);

  /// What became of the process, for people: "it was killed by SIGSEGV", "it exited with status 0".
  /// Empty after a deadline, unless the process can't be killed.
  const std::string& WhyLost() const { return fWhyLost; }

  /// The beginning of what it has printed since the last call, any bytes.
  std::string TakeOutput();

 private:
  enum EArrival { kSome, kNoneYet, kNoMore };

  EArrival ReadMessages();
  void ReadOutput();
  void Wait(TDeadline deadline) const;
  std::optional<TMessage> Buffered();
  bool HasEnded();
  void Kill();

  pid_t fProcess = -1;  // -1 once it is reaped or given up
  int fSocket = -1;
  int fOutput = -1;
  std::string fBuffer;
  std::size_t fTaken = 0;  // of the buffer
  std::string fPrinted;
  std::string fWhyLost;
};

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_CHILD_H
