#include "hwx/commands/Run.h"

#include <cstdlib>
#include <exception>
#include <new>
#include <string>

#include "hwx/commands/CommandLine.h"
#include "hwx/commands/Commands.h"
#include "hwx/text/FittedTable.h"
#include "hwx/text/Output.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/diagnostics/TLogger.h"
#include "hwxcore/value/THWXException.h"
#include "smbios/TableReader.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

// Opens a log only if the user asks for one. Otherwise a short question would replace the last log.
// If the log can't be opened, the command says so and runs without it.
void SetUpLogger(const TGlobalOptions& options) {
  if (!options.fVerbose && !options.fLogDirectory) return;
  if (options.fVerbose) TLogger::SetLogThreshold(ILogger::kHWXLogVerbose);
  if (options.fLogDirectory) TLogger::SetLogFileDir(*options.fLogDirectory + "/");
  try {
    TLogger::GetInstance()->Initialize("hwx");
  } catch (const THWXException& failure) {
    ReportError("no log: " + TLogger::GetLogFileDir() +
                "hwx.log can't be opened: " + InWords(failure.GetStatus()));
  }
}

int Print(const TNotice& notice) {
  if (notice.fStatus == kExitOK) {
    WriteOutput(notice.fText);
  } else {
    WriteErrorText(notice.fText);
  }
  return notice.fStatus;
}

int RunCommand(const TRequest& request) {
  RequireOpenOutput();  // first: the log is a file that could take its place
  SetUpLogger(request.fOptions);
  SetQuiet(request.fOptions.fQuiet);
  // Providers read the environment when they are asked, or when they are loaded.
  const auto& firmware = request.fOptions.fFirmware;
  if (firmware) ::setenv("HWX_SMBIOS_TABLES", firmware->c_str(), 1);
  // Many classes and queries are of the firmware's tables. They are read once.
  const smbios::TSnapshot firmwareTables;
  return request.fCommand->Run(request.fOptions);
}

// Runs `step`, and returns its exit status, or `failureStatus` when it throws.
template <typename Step>
int Guarded(int failureStatus, Step step) {
  try {
    return step();
  } catch (const THWXException& failure) {
    ReportError("the library failed: " + InWords(failure.GetStatus()));
  } catch (const std::bad_alloc&) {
    ReportError("there isn't enough memory");
  } catch (const std::exception& failure) {
    ReportError(failure.what());
  } catch (...) {  // of a plug-in's own type
    ReportError("a plug-in failed");
  }
  return failureStatus;
}

int Obey(const std::variant<TRequest, TNotice>& line) {
  if (const auto* const notice = std::get_if<TNotice>(&line)) return Print(*notice);
  const TRequest& request = std::get<TRequest>(line);
  return Guarded(request.fCommand->FailureStatus(), [&] { return RunCommand(request); });
}

}  // namespace

int Run(int argc, const char* const* argv) {
  // Who calls the program by its name alone, in a terminal, sees the machine.
  const char* const summary[] = {argv[0], "summary"};
  if (argc == 1 && OutputWidth()) return Run(2, summary);
  return Guarded(kExitFailed, [&] { return Obey(ParseCommandLine(argc, argv, AllCommands())); });
}

}  // namespace hwx
