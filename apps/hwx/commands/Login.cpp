#include "hwx/commands/Login.h"

#include "hwx/commands/CommandOptions.h"
#include "hwx/text/Failure.h"
#include "hwx/transfer/Password.h"

namespace hwx {

void TLogin::AddTo(CLI::App& app) {
  CLI::Option* const file = AddText(app, "--password-file", fPasswordFile,
                                    "Read the password from the first line of FILE, which\n"
                                    "nobody else may be able to read; else it is asked for",
                                    "FILE");
  app.add_flag("--no-password", fHasNoPassword,
               "Log in without a password: over SFTP with the keys of\n"
               "the agent and of ~/.ssh")
      ->excludes(file);
}

std::string TLogin::PasswordFor(const TServerAddress& server) const {
  if (server.fUser.empty() && fPasswordFile) {
    throw TFailure("a password needs a user, as in user@" + server.fHost);
  }
  if (server.fUser.empty() || fHasNoPassword) return std::string();
  return PasswordOf(server.fUser + "@" + server.fHost, fPasswordFile);
}

CLI::Option* AddAddress(CLI::App& app, const char* name, std::optional<std::string>& target,
                        const char* description, const char* argument) {
  const auto check = [](const std::string& text) {
    try {
      ParseServerAddress(text);
      return std::string();
    } catch (const TFailure& failure) {
      return std::string(failure.what());
    }
  };
  return AddText(app, name, target, description, argument)->check(check)->required();
}

}  // namespace hwx
