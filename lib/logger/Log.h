// The framework logger: trace lines on the standard error stream.

#ifndef LOGGER_LOG_H
#define LOGGER_LOG_H

#include <ostream>
#include <sstream>

#include "hwxbase/Export.h"

namespace QModule {

/// One line of trace. It is built through `Stream()` and emitted by the destructor:
///
///     if (QModule::Log::GetMinLogLevel() > 3) {
///       QModule::Log(4, __FILE__, __LINE__).Stream() << "opening " << path;
///     }
///
/// A `Log` that is constructed always emits; who uses it asks the minimum level first, so that a
/// silent process builds no text.
///
/// Thread-safety: an object belongs to one thread. Lines of several threads don't mix, each is
/// written whole. `GetMinLogLevel` may be called from any thread, as long as none changes the
/// environment meanwhile.
class HWX_EXPORT Log {
 public:
  /// The level up to which lines are wanted: the number in the environment variable
  /// `QMODULE_LOG_LEVEL`, read anew at each call. 0, which is silent, when the variable is not set
  /// or holds anything but a number. A number too large for an `int` gives the nearest `int`.
  static int GetMinLogLevel();

  /// Starts a line of the given level. `file` is not copied and must live as long as the object, as
  /// `__FILE__` does; null is allowed.
  Log(int level, const char* file, int line);

  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;

  /// Writes "file:line: [level] text" and a newline to the standard error stream. A newline within
  /// the text becomes a blank: a `Log` is one line. Failures are ignored.
  ~Log();

  /// Takes the text. Valid as long as the object.
  std::ostream& Stream();

 private:
  const int fLevel;
  const char* const fFile;
  const int fLine;
  std::ostringstream fText;
};

}  // namespace QModule

#endif  // LOGGER_LOG_H
