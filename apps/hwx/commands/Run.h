// The program, but for `main`. Thread-safety: for the main thread.

#ifndef HWX_COMMANDS_RUN_H
#define HWX_COMMANDS_RUN_H

namespace hwx {

/// Runs the command line and returns the exit status. Throws nothing: a failure is reported on the
/// standard error stream.
int Run(int argc, const char* const* argv);

}  // namespace hwx

#endif  // HWX_COMMANDS_RUN_H
