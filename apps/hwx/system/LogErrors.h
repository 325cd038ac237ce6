#ifndef HWX_SYSTEM_LOGERRORS_H
#define HWX_SYSTEM_LOGERRORS_H

#include <cstddef>
#include <string>

namespace hwx {

/// Tells what went wrong in words: the library throws a bare status, after an entry in the log.
///
///     TLogErrors errors;
///     try { TOSSpecific::LoadNSPLibrary(name); }
///     catch (const THWXException&) { reason = errors.Last(); }
///
/// Thread-safety: none, and an error that another thread logs meanwhile counts too.
class TLogErrors {
 public:
  /// Entries from here on count.
  TLogErrors();

  /// The newest error's message; empty if there is none.
  std::string Last() const;

 private:
  std::size_t fStart;
};

}  // namespace hwx

#endif  // HWX_SYSTEM_LOGERRORS_H
