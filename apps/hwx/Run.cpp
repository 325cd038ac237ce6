#include "hwx/Run.h"

#include <cstdlib>
#include <exception>
#include <string>

#include "hwx/CommandLine.h"
#include "hwx/Failure.h"
#include "hwx/Identity.h"
#include "hwx/Machine.h"
#include "hwx/Output.h"
#include "hwx/Providers.h"
#include "hwx/Report.h"
#include "hwxcore/diagnostics/TLogger.h"
#include "hwxcore/value/THWXException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

// There is a log for those who ask for one: a question that takes milliseconds writes no file, and
// leaves the last log as it was. Nothing hangs on it, so that without a file the command runs all
// the same, and says so.
void SetUpLogger(const TOptions& options) {
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

// What the user gave in place of the machine's tables must be good; the machine's own needn't be.
void RequireFirmware(const TMachine& machine, const std::string& firmware) {
  const auto status = FirmwareStatus(machine);
  if (status && !status->empty()) {
    throw TFailure("--firmware " + firmware + ": " + *status);
  }
}

std::string IdentityReport(const TOptions& options) {
  const TMachine machine = OpenMachine();
  if (options.fFirmware) RequireFirmware(machine, *options.fFirmware);
  const TIdentity identity = AskIdentity(machine);
  return options.fJson ? IdentityJson(identity) : IdentityText(identity);
}

std::string ProvidersReport(const TOptions& options) {
  const TPluginList list = ListPlugins(options.fPluginDirectory);
  return options.fJson ? ProvidersJson(list) : ProvidersText(list);
}

int Print(const TNotice& notice) {
  if (notice.fStatus == kExitOK) {
    WriteOutput(notice.fText);
  } else {
    WriteErrorText(notice.fText);
  }
  return notice.fStatus;
}

int RunCommand(const TOptions& options) {
  SetUpLogger(options);
  // Providers read the environment when they are asked, or when they are loaded.
  if (options.fFirmware) ::setenv("HWX_SMBIOS_TABLES", options.fFirmware->c_str(), 1);
  const bool isIdentity = options.fCommand == ECommand::kIdentity;
  WriteOutput(isIdentity ? IdentityReport(options) : ProvidersReport(options));
  return kExitOK;
}

int Failed(const std::string& message) {
  ReportError(message);
  return kExitFailed;
}

}  // namespace

int Run(int argc, const char* const* argv) {
  try {
    RequireOpenOutput();
    const auto request = ParseCommandLine(argc, argv);
    if (const auto* const notice = std::get_if<TNotice>(&request)) return Print(*notice);
    return RunCommand(std::get<TOptions>(request));
  } catch (const THWXException& failure) {
    return Failed("the library failed: " + InWords(failure.GetStatus()));
  } catch (const std::exception& failure) {
    return Failed(failure.what());
  } catch (...) {  // of a plug-in's own type
    return Failed("a plug-in failed");
  }
}

}  // namespace hwx
