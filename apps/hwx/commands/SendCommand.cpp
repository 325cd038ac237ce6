#include <filesystem>

#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/commands/Login.h"
#include "hwx/text/Output.h"
#include "hwx/text/Printable.h"
#include "hwx/transfer/Transfer.h"

namespace hwx {

namespace {

class TSendCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand("send", "Send a file to an FTP or SFTP server");
    AddText(*app, "file", fFile, "The file to send", "FILE")->required();
    AddAddress(*app, "address", fAddress,
               "The server: [USER@]HOST[:PORT] for FTP, or a URL that\n"
               "begins with ftp:// or sftp://, with or without a path",
               "URL-OR-HOST");
    AddText(*app, "name", fName,
            "Its name there, in the path's directory; without it, the\n"
            "path is the name, or a directory if it ends in \"/\"",
            "NAME");
    fLogin.AddTo(*app);
    return app;
  }

  int Run(const TGlobalOptions&) override {
    const TServerAddress server = ParseServerAddress(*fAddress);
    const TRemoteFile remote = {server, fLogin.PasswordFor(server), PathOn(server)};
    const auto size = SendFile(*fFile, remote);
    WriteOutput("Sent " + Printable(*fFile) + " to " + Printable(remote.URL()) + ": " +
                std::to_string(size) + " bytes\n");
    return kExitOK;
  }

 private:
  std::string PathOn(const TServerAddress& server) const {
    const bool isDirectory = server.fPath.empty() || server.fPath.back() == '/';
    if (fName) return RemotePath(server, *fName);
    if (!isDirectory) return UrlEscaped(server.fPath, "/%");
    return RemotePath(server, std::filesystem::path(*fFile).filename().string());
  }

  std::optional<std::string> fFile;
  std::optional<std::string> fAddress;
  std::optional<std::string> fName;
  TLogin fLogin;
};

}  // namespace

CommandPtr MakeSendCommand() {
  return std::make_unique<TSendCommand>();
}

}  // namespace hwx
