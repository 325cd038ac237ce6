#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwx/text/Printable.h"
#include "hwx/transfer/Password.h"
#include "hwx/transfer/ProxyPage.h"
#include "hwx/transfer/ServerAddress.h"
#include "hwx/transfer/Transfer.h"
#include "hwxcore/os/TLoadException.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/value/THWXException.h"
#include "hwxsys/Descriptor.h"

namespace hwx {

using NQORHWX20::THWXException;
using NQORHWX20::TLoadException;
using NQORHWX20::TOSSpecific;

namespace {

// An empty directory, and the current one while this lives. The library appends the page to a file
// in the current directory.
class TPageDirectory {
 public:
  TPageDirectory() : fBefore(::open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    fPath = (std::filesystem::temp_directory_path() / "hwx-proxy-XXXXXX").string();
    if (!::mkdtemp(fPath.data()) || ::chdir(fPath.c_str()) != 0) {
      throw TFailure("there is no place for the page, in " + fPath + ": " + std::strerror(errno));
    }
  }

  ~TPageDirectory() {
    if (fBefore.IsOpen() && ::fchdir(fBefore.Get()) != 0)
      ReportError("the current directory is gone");
    std::error_code ignored;
    std::filesystem::remove_all(fPath, ignored);
  }

  TPageDirectory(const TPageDirectory&) = delete;
  TPageDirectory& operator=(const TPageDirectory&) = delete;

  std::string Page() const {
    std::ifstream file(fPath + "/content.html", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }

 private:
  const hwxsys::TDescriptor fBefore;
  std::string fPath;
};

class TCheckProxyCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand(
        "check-proxy", "Check an HTTP proxy: fetch the page of " HWX_PROXY_CHECK_HOST);
    AddText(*app, "address", fAddress, "The proxy's name or address", "ADDRESS")->required();
    app->add_option("port", fPort, "Its port")
        ->check(CLI::Range(1L, 65535L).description(""))
        ->type_name("PORT")
        ->required();
    CLI::Option* const user =
        AddText(*app, "--user", fUser, "Log in as NAME; the password is asked for", "NAME");
    AddText(*app, "--password-file", fPasswordFile,
            "Read the password from the first line of FILE, which\n"
            "nobody else may be able to read",
            "FILE")
        ->needs(user);
    return app;
  }

  int Run(const TGlobalOptions&) override {
    const std::string proxy = *fAddress + ":" + std::to_string(fPort);
    const std::string page = Fetch(proxy);
    if (const auto why = WhyNotThePage(page)) {
      throw TFailure("the proxy " + proxy + " answers, but " + *why);
    }
    const std::string title = PageTitle(page);
    WriteOutput("The proxy " + Printable(proxy) +
                " works: it brought the page of " HWX_PROXY_CHECK_HOST +
                (title.empty() ? "" : ", \"" + Printable(title) + "\"") + ".\n");
    return kExitOK;
  }

 private:
  // The page that comes through the proxy, whatever page that is.
  std::string Fetch(const std::string& proxy) const {
    std::string password;
    if (fUser) password = PasswordOf(*fUser + " at " + proxy, fPasswordFile);
    const TPageDirectory directory;
    try {
      // libcurl reads the two as parts of a URL.
      TOSSpecific::CheckProxySetting(UrlEscaped(fUser.value_or("")), UrlEscaped(password),
                                     *fAddress, fPort);
    } catch (const TLoadException&) {
      throw TFailure(WhyNoLibcurl());
    } catch (const THWXException&) {
      throw TFailure("no page comes through the proxy " + proxy);
    } catch (const std::logic_error&) {  // its text doesn't name the function
      throw TFailure("the libcurl beside the library lacks a function that transfers need");
    }
    return directory.Page();
  }

  std::optional<std::string> fAddress;
  long fPort = 0;
  std::optional<std::string> fUser;
  std::optional<std::string> fPasswordFile;
};

}  // namespace

CommandPtr MakeCheckProxyCommand() {
  return std::make_unique<TCheckProxyCommand>();
}

}  // namespace hwx
