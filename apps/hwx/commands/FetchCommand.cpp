#include <unistd.h>

#include <filesystem>
#include <iostream>

#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/commands/Login.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwx/text/Printable.h"
#include "hwx/transfer/Transfer.h"

namespace hwx {

namespace fs = std::filesystem;

namespace {

// Asks until the answer is clear. The end of the input is a no.
bool UserReplaces(const std::string& file) {
  for (std::string answer;;) {
    std::cerr << Printable(file) << " exists. Replace it? (y/n): " << std::flush;
    if (!std::getline(std::cin, answer)) return false;
    if (answer == "y" || answer == "Y") return true;
    if (answer == "n" || answer == "N") return false;
  }
}

class TFetchCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("fetch", "Fetch a file from an FTP or SFTP server");
    AddAddress(*app, "address", fAddress,
               "The server: [USER@]HOST[:PORT] for FTP, or a URL that\n"
               "begins with ftp:// or sftp://, with or without a\n"
               "directory",
               "HOST");
    AddText(*app, "name", fName, "The file's name there, in the directory", "NAME")->required();
    AddText(*app, "file", fFile, "The file to write", "FILE")->required();
    app->add_flag("--overwrite", fOverwrites, "Replace FILE if it exists, without a question");
    fLogin.AddTo(*app);
    return app;
  }

  int Run(const TGlobalOptions&) override {
    const TServerAddress server = ParseServerAddress(*fAddress);
    RequireLeave();
    const TRemoteFile remote = {server, fLogin.PasswordFor(server), RemotePath(server, *fName)};
    const auto size = FetchFile(remote, *fFile);
    WriteOutput("Fetched " + Printable(remote.URL()) + " to " + Printable(*fFile) + ": " +
                std::to_string(size) + " bytes\n");
    return kExitOK;
  }

 private:
  // A file of this name may be replaced if the user says so.
  void RequireLeave() const {
    std::error_code failure;
    const fs::file_status status = fs::status(*fFile, failure);
    if (!fs::exists(status)) return;
    if (!fs::is_regular_file(status)) throw TFailure(*fFile + " exists, and is no file");
    if (fOverwrites) return;
    if (::isatty(STDIN_FILENO) != 1) {
      throw TFailure(*fFile + " exists; --overwrite replaces it");
    }
    if (!UserReplaces(*fFile)) throw TFailure(*fFile + " was left as it is");
  }

  std::optional<std::string> fAddress;
  std::optional<std::string> fName;
  std::optional<std::string> fFile;
  bool fOverwrites = false;
  TLogin fLogin;
};

}  // namespace

CommandPtr MakeFetchCommand() {
  return std::make_unique<TFetchCommand>();
}

}  // namespace hwx
