#ifndef HWX_SYSTEM_PROGRAMRUN_H
#define HWX_SYSTEM_PROGRAMRUN_H

#include <string>
#include <vector>

namespace hwx {

/// A program and its arguments, with the time-out of a wait for output; see
/// `TOSSpecific::SpawnProcess`.
///
/// Thread-safety: a plain value.
struct TProgram {
  std::string fCommand;
  std::vector<std::string> fArguments;
  int fTimeout = 300;  ///< In seconds, -1 for no limit. As the library's own callers have it.
};

/// What a collector gets from running a program.
///
/// Thread-safety: a plain value.
struct TProgramRun {
  int fResult;              ///< 0 if it ended by itself with status 0, else -1: no more is told.
  std::string fOutput;      ///< Any bytes but NUL.
  std::string fWhatFailed;  ///< For people; empty if the result is 0.
};

/// Runs a program as a collector does. Throws what `TOSSpecific::SpawnProcess` throws.
/// Thread-safety: none; no other thread may start children or wait for them meanwhile.
TProgramRun RunProgram(const TProgram& program);

/// {"command": ["...", ...], "timeout": ..., "result": ..., "output": "..."}, with "reason" where
/// the program failed.
std::string ProgramRunJson(const TProgram& program, const TProgramRun& run);

}  // namespace hwx

#endif  // HWX_SYSTEM_PROGRAMRUN_H
