#ifndef HWXTESTS_INTEGRATION_TRANSFER_REALTRANSFER_H
#define HWXTESTS_INTEGRATION_TRANSFER_REALTRANSFER_H

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/FileServers.h"
#include "support/TransferRoot.h"

namespace hwxtest {

/// Transfers by the system's libcurl with a real server, of FTP or of SFTP.
class RealTransfer : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(HWX_TEST_LIBCURL)) GTEST_SKIP() << "there is no libcurl";
    const auto whyNot = IsFtp() ? FtpServer::WhyNot() : SftpServer::WhyNot();
    if (whyNot) GTEST_SKIP() << *whyNot;
    fRoot.AddLink(HWX_TEST_LIBCURL, "libcurl.so.4");
    Serve();
  }

  bool IsFtp() const { return GetParam() == "ftp"; }

  /// Starts a server in the place of the one that is there.
  void Serve(const FileServer::Ways& ways = FileServer::Ways()) {
    if (IsFtp()) {
      fServer = std::make_unique<FtpServer>(ways);
    } else {
      auto server = std::make_unique<SftpServer>(ways);
      fRoot.Set("HOME", server->UserHome());
      fServer = std::move(server);
    }
  }

  std::string UploadStep(const std::string& local, const std::string& remote) const {
    return UploadStep(fServer->Host(), local, remote);
  }
  std::string UploadStep(const std::string& host, const std::string& local,
                         const std::string& remote) const {
    const std::string operation = IsFtp() ? "FTPFile:" : "sFTPFile:";
    return operation + host + "|" + local + "|" + fServer->Remote(remote);
  }

  std::string DownloadStep(const std::string& local, const std::string& remote) const {
    return DownloadStep(fServer->Host(), local, remote);
  }
  std::string DownloadStep(const std::string& host, const std::string& local,
                           const std::string& remote) const {
    const std::string operation = IsFtp() ? "FTPFileFromQOR:" : "sFTPFileFromQOR:";
    return operation + host + "|" + local + "|" + fServer->Remote(remote);
  }

  /// A path of the client's own.
  std::string Local(const std::string& name) const { return fRoot.Scratch(name); }

  /// The server's copy of a file.
  std::string OnServer(const std::string& name) const { return fServer->Home() + "/" + name; }

  static std::string Logged(const std::string& text) {
    return "Error: TOSSpecific|CurlTransferFile: " + text;
  }

  TransferRoot fRoot;
  std::unique_ptr<FileServer> fServer;
};

}  // namespace hwxtest

#endif  // HWXTESTS_INTEGRATION_TRANSFER_REALTRANSFER_H
