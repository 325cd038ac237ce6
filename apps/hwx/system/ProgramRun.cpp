#include "hwx/system/ProgramRun.h"

#include <sys/wait.h>

#include "hwx/text/Json.h"
#include "hwxcore/os/TOSSpecific.h"

namespace hwx {

using NQORHWX20::TOSSpecific;

namespace {

// Whether this process has a child, running or ended. Doesn't wait for it.
bool HasChild() {
  siginfo_t ignored;
  return ::waitid(P_ALL, 0, &ignored, WEXITED | WNOHANG | WNOWAIT) == 0;
}

std::string SilenceReason(int timeout) {
  return "printed nothing for " + std::to_string(timeout) + " s and was left running";
}

}  // namespace

// A child that is left over tells of a time-out: in all other cases the library waits for its end.
// That can't be told if there was a child before, as there may be after an `exec`.
TProgramRun RunProgram(const TProgram& program) {
  const bool hadChild = HasChild();
  TProgramRun run;
  run.fResult = TOSSpecific::SpawnProcess(program.fCommand, program.fArguments, run.fOutput,
                                          program.fTimeout);
  if (run.fResult == 0) return run;
  run.fWhatFailed = !hadChild && HasChild()
                        ? SilenceReason(program.fTimeout)
                        : "can't be run, or ended by a signal or with a status other than 0";
  return run;
}

std::string ProgramRunJson(const TProgram& program, const TProgramRun& run) {
  std::vector<std::string> command = program.fArguments;
  command.insert(command.begin(), program.fCommand);
  TJson json = {{"command", command}, {"timeout", program.fTimeout}, {"result", run.fResult}};
  if (run.fResult != 0) json["reason"] = run.fWhatFailed;
  json["output"] = run.fOutput;
  return JsonText(json);
}

}  // namespace hwx
