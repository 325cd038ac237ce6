#include "hwxcore/os/TOSSpecific.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "hwxcore/os/detail/CurlLibrary.h"

namespace NQORHWX20 {

namespace {

using detail::TCurlLibrary;
using detail::TCurlSink;

using StreamPtr = boost::shared_ptr<std::FILE>;
using ErrorBuffer = std::array<char, detail::kCurlErrorSize>;

// 32 bits wide. Contract: write-failed-32-bits.
constexpr std::size_t kWriteFailed = 0xFFFFFFFF;

// Whether the process runs on the maker's bootable medium, whose uploads have a place of their own.
bool IsBootable() {
  const char* const value = std::getenv("HWX_ISBOOTABLE");
  return std::string(value ? value : "no") == "yes";  // Contract: bootable-exactly-yes.
}

std::string UploadURL(const std::string& scheme, const std::string& host, const std::string& file) {
  const std::string path = IsBootable() ? "ecorvex/toqor/kseries/fdr_upload/" + file : file;
  return scheme + "://" + host + "/" + path;
}

bool CanBeRead(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file == -1) return false;
  ::close(file);
  return true;
}

// Asks until the answer is one of four. Contract: dialogue-asks-for-ever.
bool UserOverwrites() {
  for (;;) {
    std::cout << "Local file exists, overwrite it anyway?(y/n): " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    if (answer == "y" || answer == "Y") return true;
    if (answer == "n" || answer == "N") return false;
  }
}

// Removes the local file if the user agrees, since blocks are appended to it. False if a file
// stays.
bool MakeRoomFor(const std::string& localFile) {
  if (!CanBeRead(localFile)) return true;
  if (!UserOverwrites()) return false;
  if (std::remove(localFile.c_str()) == 0) return true;
  std::cout << "Permission denied." << std::flush;
  return false;
}

void SetCommonOptions(TCurlLibrary& curl, ErrorBuffer& error) {
  curl.SetOption(detail::kCurlOptErrorBuffer, static_cast<void*>(error.data()),
                 "Error configuring curl error buffer");
  curl.SetOption(detail::kCurlOptFTPUseEPSV, 0L, "Error configuring curl passive mode");
  // Contract: no-proxy.
  curl.SetOption(detail::kCurlOptProxy, std::string(), "Error configuring curl proxy server");
}

void SetURL(TCurlLibrary& curl, const std::string& url) {
  curl.SetOption(detail::kCurlOptURL, url, "Error setting curl target");
}

void SetCreateMissingDirs(TCurlLibrary& curl) {
  curl.SetOption(detail::kCurlOptFTPCreateMissingDirs, 1L,
                 "Error setting curl option: CURLOPT_FTP_CREATE_MISSING_DIRS");
}

StreamPtr OpenForReading(TCurlLibrary& curl, const std::string& localFile) {
  const int file = ::open(localFile.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status;
  if (::fstat(file, &status) != 0) {  // also of no file. Contract: missing-file-has-no-size.
    curl.Fail("Error getting file size", kHWXStatusFileSystemError);
  }
  std::FILE* const stream = ::fdopen(file, "rb");
  if (!stream) {
    ::close(file);
    curl.Fail("Error creating file stream", kHWXStatusFileSystemError);
  }
  return StreamPtr(stream, &std::fclose);
}

void SetUploadOptions(TCurlLibrary& curl, const std::string& url, const StreamPtr& stream) {
  curl.SetOption(detail::kCurlOptUpload, 1L, "Error setting curl upload");
  SetURL(curl, url);
  curl.SetOption(detail::kCurlOptReadData, static_cast<void*>(stream.get()),
                 "Error setting curl upload file");
  SetCreateMissingDirs(curl);
}

void SetDownloadOptions(TCurlLibrary& curl, const std::string& url, TCurlSink& sink) {
  curl.SetSink(sink);
  SetURL(curl, url);
  SetCreateMissingDirs(curl);
}

void Perform(TCurlLibrary& curl, ErrorBuffer& error) {
  switch (curl.Perform()) {
    case detail::kCurlOK:
      return;
    case detail::kCurlCouldntResolveHost:
    case detail::kCurlCouldntConnect:
      curl.Fail("Error connecting to Server", kHWXStatusConnectionFailed);
    default:  // Contract: access-denied-for-the-rest.
      error.back() = '\0';
      curl.FailWith(error.data(), "Error performing command: ", kHWXStatusAccessDenied);
  }
}

}  // namespace

void TOSSpecific::CurlTransferFile(std::string url, std::string localFile, bool download) {
  TCurlLibrary curl(__func__);
  ErrorBuffer error{};
  TCurlSink sink = {localFile.c_str(), nullptr};
  StreamPtr stream;
  SetCommonOptions(curl, error);
  if (download) {
    if (!MakeRoomFor(localFile)) {
      curl.Close();
      return;  // Contract: declined-returns.
    }
    SetDownloadOptions(curl, url, sink);
  } else {
    stream = OpenForReading(curl, localFile);
    SetUploadOptions(curl, url, stream);
  }
  Perform(curl, error);
  curl.Close();
}

int TOSSpecific::FTPFile(std::string host, std::string localFile, std::string remoteFile) {
  CurlTransferFile(UploadURL("ftp", host, remoteFile), localFile, false);
  return 1;
}

int TOSSpecific::sFTPFile(std::string host, std::string localFile, std::string remoteFile) {
  CurlTransferFile(UploadURL("sftp", host, remoteFile), localFile, false);
  return 1;
}

int TOSSpecific::UserFTPFile(std::string host, std::string localFile, std::string remoteFile) {
  // Contract: user-file-name.
  const std::string url = "ftp://" + host + "/" + remoteFile + ".xml.gz";
  std::cout << "Remote file name = " << url << std::endl;
  CurlTransferFile(url, localFile, false);
  return 1;
}

int TOSSpecific::FTPFileFromQOR(std::string host, std::string localFile, std::string remoteFile) {
  CurlTransferFile("ftp://" + host + "/" + remoteFile, localFile, true);
  return 1;
}

int TOSSpecific::sFTPFileFromQOR(std::string host, std::string localFile, std::string remoteFile) {
  CurlTransferFile("sftp://" + host + "/" + remoteFile, localFile, true);
  return 1;
}

std::size_t curl_fwrite(void* data, std::size_t size, std::size_t count, void* sink) {
  TCurlSink* const record = static_cast<TCurlSink*>(sink);
  if (!record || !record->fFilename || !*record->fFilename) return kWriteFailed;
  record->fStream = std::fopen(record->fFilename, "ab");
  if (!record->fStream) return kWriteFailed;
  // Opened and closed for each block. Contract: download-appends.
  const StreamPtr stream(record->fStream, &std::fclose);
  if (size == 0 || count == 0) return 0;  // fwrite would, but must not be handed a null pointer
  return static_cast<std::uint32_t>(std::fwrite(data, size, count, stream.get()));
}

}  // namespace NQORHWX20
