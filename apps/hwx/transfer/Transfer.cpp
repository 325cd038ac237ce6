#include "hwx/transfer/Transfer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>

#include "hwx/text/Failure.h"
#include "hwx/text/StatusWords.h"
#include "hwx/transfer/TransferProgress.h"
#include "hwxcore/os/TLoadException.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/value/THWXException.h"
#include "hwxsys/Descriptor.h"

namespace hwx {

using namespace NQORHWX20;
namespace fs = std::filesystem;

namespace {

std::string WhyNoConnection(const TServerAddress& server) {
  const bool isNumber = server.fHost.front() == '[';
  const bool isKnown = isNumber || TOSSpecific::DetectHostnameAvailable(server.HostName(), "") == 0;
  return isKnown ? "nobody answers there, or on that port" : "the name doesn't resolve";
}

std::string WhyFailed(const TServerAddress& server, const THWXException& failure) {
  const bool isUnconnected = failure.GetStatus() == kHWXStatusConnectionFailed;
  return "no transfer with " + server.fHost + ": " +
         (isUnconnected ? WhyNoConnection(server) : InWords(failure));
}

// Calls the library, and throws in words what it throws.
void Transfer(const TServerAddress& server, const std::function<void()>& call) {
  try {
    call();
  } catch (const TLoadException&) {
    throw TFailure(WhyNoLibcurl());
  } catch (const THWXException& failure) {
    throw TFailure(WhyFailed(server, failure));
  } catch (const std::logic_error&) {  // its text doesn't name the function
    throw TFailure("the libcurl beside the library lacks a function that transfers need");
  }
}

void RequireReadableFile(const std::string& path) {
  const hwxsys::TDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen()) throw TFailure(path + " can't be read: " + LastError());
  struct stat status;
  if (::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode))
    throw TFailure(path + " is no file");
}

// A directory beside the target, removed at the end with what is in it. The file is fetched to it,
// so that a transfer that breaks off leaves the target as it was.
class TFetchDirectory {
 public:
  explicit TFetchDirectory(const fs::path& target) {
    const fs::path parent = target.has_parent_path() ? target.parent_path() : fs::path(".");
    fPath = (parent / ".hwx-fetch-XXXXXX").string();
    if (!::mkdtemp(fPath.data())) {
      throw TFailure(parent.string() + " can't be written: " + LastError());
    }
  }
  ~TFetchDirectory() {
    std::error_code ignored;
    fs::remove_all(fPath, ignored);
  }
  TFetchDirectory(const TFetchDirectory&) = delete;
  TFetchDirectory& operator=(const TFetchDirectory&) = delete;

  std::string File() const { return fPath + "/file"; }

 private:
  std::string fPath;
};

// The library doesn't notice if the last bytes couldn't be written. So a full disk is a failure.
void RequireRoom(const std::string& path) {
  struct statvfs room;
  if (::statvfs(path.c_str(), &room) == 0 && room.f_blocks > 0 && room.f_bfree == 0) {
    throw TFailure("the disk is full, so the file may have lost its end; it was not kept");
  }
}

std::uintmax_t Keep(const std::string& fetched, const std::string& target) {
  if (!fs::exists(fetched)) std::ofstream made(fetched);  // empty: nothing came
  RequireRoom(fetched);
  const std::uintmax_t size = fs::file_size(fetched);
  if (std::rename(fetched.c_str(), target.c_str()) != 0) {
    throw TFailure(target + " can't be written: " + LastError());
  }
  return size;
}

}  // namespace

std::string TRemoteFile::URL() const {
  return (fServer.fIsSecure ? "sftp://" : "ftp://") + fServer.fHost + "/" + fPath;
}

std::string RemotePath(const TServerAddress& server, const std::string& name) {
  std::string path = UrlEscaped(server.fPath, "/%");
  if (!path.empty() && path.back() != '/') path += '/';
  return path + UrlEscaped(name, "/");
}

std::uintmax_t SendFile(const std::string& localFile, const TRemoteFile& remote) {
  RequireReadableFile(localFile);
  const std::uintmax_t size = fs::file_size(localFile);
  const TTransferProgress progress([&] { return ReadingPosition(localFile); }, size);
  const std::string host = remote.fServer.HostWith(remote.fPassword);
  Transfer(remote.fServer, [&] {
    remote.fServer.fIsSecure ? TOSSpecific::sFTPFile(host, localFile, remote.fPath)
                             : TOSSpecific::FTPFile(host, localFile, remote.fPath);
  });
  return size;
}

std::uintmax_t FetchFile(const TRemoteFile& remote, const std::string& localFile) {
  // Follows links: to rename a file to the path of a link would replace the link.
  const std::string target = fs::exists(localFile) ? fs::canonical(localFile).string() : localFile;
  const TFetchDirectory directory(target);
  const std::string file = directory.File();
  const auto size = [&file]() -> std::optional<std::uintmax_t> {
    std::error_code none;
    const std::uintmax_t bytes = fs::file_size(file, none);
    return none ? std::nullopt : std::optional<std::uintmax_t>(bytes);
  };
  {
    const TTransferProgress progress(size, std::nullopt);
    const std::string host = remote.fServer.HostWith(remote.fPassword);
    Transfer(remote.fServer, [&] {
      remote.fServer.fIsSecure ? TOSSpecific::sFTPFileFromQOR(host, file, remote.fPath)
                               : TOSSpecific::FTPFileFromQOR(host, file, remote.fPath);
    });
  }
  return Keep(file, target);
}

std::string WhyNoLibcurl() {
  const std::string directory = TOSSpecific::GetHWXRootPath();
  for (const char* name : {"libcurl.so", "libcurl.so.4"}) {
    if (fs::exists(directory + "/" + name)) {
      return "transfers need libcurl, and " + directory + "/" + name + " can't be loaded";
    }
  }
  return "transfers need libcurl, and it isn't there: install it (on Debian the package libcurl4) "
         "and put a link to it beside the library, as " +
         directory + "/libcurl.so.4";
}

}  // namespace hwx
