// The six operations over the one transfer: which way, and which URL.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TransferRoot.h"

using hwxtest::FileText;
using hwxtest::TransferRoot;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string kBootablePath = "ecorvex/toqor/kseries/fdr_upload/";

class TransferForms : public testing::Test {
 protected:
  TransferForms() {
    fRoot.AddCurl("stub_curl", "libcurl.so");
    hwxtest::MakeFile(fFile, "a local text");
  }

  /// Takes one step, and returns the URL that libcurl was given. It must return 1.
  std::string URLOf(const std::string& step, const std::string& printed = "") {
    std::filesystem::remove(fRoot.Scratch("trace"));
    EXPECT_EQ(fRoot.Run({step}), printed + "returned 1\n");
    for (const std::string& call : fRoot.CurlCalls()) {
      const std::string front = "curl_easy_setopt 10002 ";
      if (call.rfind(front, 0) == 0) return call.substr(front.size());
    }
    return "none";
  }

  std::string URLOfUpload(const std::string& operation) {
    const std::string url = URLOf(operation + ":host|" + fFile + "|dir/name");
    EXPECT_THAT(fRoot.CurlCalls(), Contains("reads \"a local text\""));
    return url;
  }

  std::string URLOfDownload(const std::string& operation) {
    fRoot.Set("STUB_CURL_BLOCKS", "a remote text");
    const std::string url = URLOf(operation + ":host|" + fFile + "-new|dir/name");
    EXPECT_EQ(FileText(fFile + "-new"), "a remote text");
    std::filesystem::remove(fFile + "-new");
    return url;
  }

  TransferRoot fRoot;
  std::string fFile = fRoot.Scratch("file");
};

TEST_F(TransferForms, UploadToTheNameThatIsGiven) {
  EXPECT_EQ(URLOfUpload("FTPFile"), "\"ftp://host/dir/name\"");
  EXPECT_EQ(URLOfUpload("sFTPFile"), "\"sftp://host/dir/name\"");
}

TEST_F(TransferForms, UploadFromABootableMediumToItsPlace) {
  fRoot.Set("HWX_ISBOOTABLE", "yes");
  EXPECT_EQ(URLOfUpload("FTPFile"), "\"ftp://host/" + kBootablePath + "dir/name\"");
  EXPECT_EQ(URLOfUpload("sFTPFile"), "\"sftp://host/" + kBootablePath + "dir/name\"");
}

TEST_F(TransferForms, AreBootableForTheOneWordOnly) {
  for (const char* word : {"YES", "Yes", "", "y", "yes ", "no", "1"}) {
    fRoot.Set("HWX_ISBOOTABLE", word);
    EXPECT_EQ(URLOfUpload("FTPFile"), "\"ftp://host/dir/name\"") << word;
    EXPECT_EQ(URLOfUpload("sFTPFile"), "\"sftp://host/dir/name\"") << word;
  }
}

TEST_F(TransferForms, OfTheUserNameTheFileCompressedAndPrintTheURLFirst) {
  const std::string url = "ftp://host/x.xml.gz";
  for (const char* word : {"no", "yes"}) {  // bootable or not
    fRoot.Set("HWX_ISBOOTABLE", word);
    EXPECT_EQ(URLOf("UserFTPFile:host|" + fFile + "|x", "Remote file name = " + url + "\n"),
              "\"" + url + "\"");
    EXPECT_THAT(fRoot.CurlCalls(), Contains("reads \"a local text\""));  // byte for byte
  }
}

TEST_F(TransferForms, OfTheUserPrintTheURLEvenIfTheTransferFails) {
  EXPECT_THAT(fRoot.Run({"UserFTPFile:host|/nowhere|x"}),
              StartsWith("Remote file name = ftp://host/x.xml.gz\nstatus 11\n"));
}

TEST_F(TransferForms, DownloadWithoutThePlaceOfBootableMedia) {
  for (const char* word : {"no", "yes"}) {
    fRoot.Set("HWX_ISBOOTABLE", word);
    EXPECT_EQ(URLOfDownload("FTPFileFromQOR"), "\"ftp://host/dir/name\"");
    EXPECT_EQ(URLOfDownload("sFTPFileFromQOR"), "\"sftp://host/dir/name\"");
  }
}

TEST_F(TransferForms, PassFailuresOn) {
  fRoot.Set("STUB_CURL_RESULT", "7");
  for (const char* operation : {"FTPFile", "sFTPFile", "FTPFileFromQOR", "sFTPFileFromQOR"}) {
    const bool isUpload = std::string(operation).find("From") == std::string::npos;
    const std::string file = isUpload ? fFile : fFile + "-new";
    EXPECT_EQ(fRoot.Run({std::string(operation) + ":host|" + file + "|name"}),
              "status 34\nError: TOSSpecific|CurlTransferFile: Error connecting to Server\n");
  }
}

TEST_F(TransferForms, KeepCredentialsOutOfTheLog) {
  for (const char* result : {"6", "7", "67"}) {
    fRoot.Set("STUB_CURL_RESULT", result);
    EXPECT_THAT(fRoot.Run({"FTPFile:me:secret@host|" + fFile + "|name"}),
                AllOf(StartsWith("status "), Not(HasSubstr("secret"))));
  }
}

}  // namespace
