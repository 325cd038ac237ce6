// Files that go to a real server and come back.

#include <gmock/gmock.h>

#include <cstdlib>

#include "integration/transfer/RealTransfer.h"

namespace hwxtest {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string kDone = "returned 1\n";

using Transfer = RealTransfer;

INSTANTIATE_TEST_SUITE_P(Servers, Transfer, testing::Values("ftp", "sftp"),
                         [](const auto& which) { return which.param; });

TEST_P(Transfer, SendsAFileByteByByteAndFetchesItBack) {
  const std::string bytes = AllBytes(100001);
  MakeFile(Local("file"), bytes);
  EXPECT_EQ(fRoot.Run({UploadStep(Local("file"), "name")}), kDone);
  EXPECT_TRUE(FileText(OnServer("name")) == bytes);
  EXPECT_EQ(fRoot.Run({DownloadStep(Local("back"), "name")}), kDone);
  EXPECT_TRUE(FileText(Local("back")) == bytes);
}

TEST_P(Transfer, CarriesALargeFileByteByByte) {
  const std::string make = "head -c 209715200 /dev/urandom > ";
  ASSERT_EQ(std::system((make + Local("file")).c_str()), 0);
  EXPECT_EQ(fRoot.Run({UploadStep(Local("file"), "name"), DownloadStep(Local("back"), "name")}),
            kDone + kDone);
  EXPECT_EQ(std::filesystem::file_size(Local("back")), 209715200u);
  const std::string compare = "cmp " + Local("file") + " ";
  EXPECT_EQ(std::system((compare + OnServer("name")).c_str()), 0);
  EXPECT_EQ(std::system((compare + Local("back")).c_str()), 0);
}

TEST_P(Transfer, SendsAnEmptyFileAndFetchesNoFileOfIt) {
  MakeFile(Local("file"), "");
  EXPECT_EQ(fRoot.Run({UploadStep(Local("file"), "name")}), kDone);
  EXPECT_EQ(FileText(OnServer("name")), "");
  EXPECT_EQ(fRoot.Run({DownloadStep(Local("back"), "name")}), kDone);
  EXPECT_FALSE(std::filesystem::exists(Local("back")));
}

TEST_P(Transfer, ReplacesAFileOnTheServerWithoutAQuestion) {
  MakeFile(Local("file"), "new");
  MakeFile(Local("older"), "an older text");
  EXPECT_EQ(fRoot.Run({UploadStep(Local("older"), "name"), UploadStep(Local("file"), "name")}),
            kDone + kDone);
  EXPECT_EQ(FileText(OnServer("name")), "new");
}

TEST_P(Transfer, MakesDirectoriesThatAreMissingOnTheServer) {
  MakeFile(Local("file"), "text");
  EXPECT_EQ(fRoot.Run({UploadStep(Local("file"), "a/b/c/name")}), kDone);
  EXPECT_EQ(FileText(OnServer("a/b/c/name")), "text");
}

TEST_P(Transfer, UsesThePlaceOfBootableMedia) {
  if (!IsFtp()) GTEST_SKIP() << "over SFTP that is a directory of this machine's root";
  fRoot.Set("HWX_ISBOOTABLE", "yes");
  MakeFile(Local("file"), "text");
  EXPECT_EQ(fRoot.Run({UploadStep(Local("file"), "name")}), kDone);
  EXPECT_EQ(FileText(OnServer("ecorvex/toqor/kseries/fdr_upload/name")), "text");
}

TEST_P(Transfer, TakesNamesWithBlanksAndOtherBytesInEscapedForm) {
  MakeFile(Local("a b \xC3\xA4 \xE4"), "text");  // UTF-8, and a byte that isn't
  EXPECT_EQ(fRoot.Run({UploadStep(Local("a b \xC3\xA4 \xE4"), "a%20b%20%C3%A4%20%E4%23")}), kDone);
  EXPECT_EQ(FileText(OnServer("a b \xC3\xA4 \xE4#")), "text");
  EXPECT_EQ(fRoot.Run({DownloadStep(Local("b a \xE4"), "a%20b%20%C3%A4%20%E4%23")}), kDone);
  EXPECT_EQ(FileText(Local("b a \xE4")), "text");
}

TEST_P(Transfer, TakesOtherBytesAsTheyStandButNoBlanks) {
  MakeFile(Local("file"), "text");
  EXPECT_EQ(fRoot.Run({UploadStep(Local("file"), "\xC3\xA4")}), kDone);
  EXPECT_EQ(FileText(OnServer("\xC3\xA4")), "text");
  EXPECT_THAT(fRoot.Run({UploadStep(Local("file"), "a b")}),
              HasSubstr("status 27\n" + Logged("Error performing command: ")));
}

TEST_P(Transfer, IsRefusedForAWrongLoginAndThatIsNoFailureOfTheConnection) {
  MakeFile(Local("file"), "text");
  const std::string failure = "status 27\n" + Logged("Error performing command: ");
  for (const std::string& step : {UploadStep(fServer->HostRefused(), Local("file"), "name"),
                                  DownloadStep(fServer->HostRefused(), Local("back"), "name")}) {
    const std::string output = fRoot.Run({step});
    EXPECT_THAT(output, HasSubstr(failure));
    EXPECT_THAT(output, Not(HasSubstr("wrong")));
  }
  EXPECT_FALSE(std::filesystem::exists(OnServer("name")));
  EXPECT_FALSE(std::filesystem::exists(Local("back")));
}

TEST_P(Transfer, FailsForAFileThatIsNotThere) {
  EXPECT_THAT(fRoot.Run({DownloadStep(Local("back"), "none")}),
              HasSubstr("status 27\n" + Logged("Error performing command: ")));
  EXPECT_FALSE(std::filesystem::exists(Local("back")));
  EXPECT_THAT(fRoot.Run({UploadStep(Local("none"), "name")}),
              HasSubstr("status 11\n" + Logged("Error getting file size\n")));
  EXPECT_FALSE(std::filesystem::exists(OnServer("name")));
}

TEST_P(Transfer, FailsWhereNobodyListensOrTheNameDoesNotResolve) {
  MakeFile(Local("file"), "text");
  const std::string failure = "status 34\n" + Logged("Error connecting to Server\n");
  for (const std::string& host :
       {"127.0.0.1:" + std::to_string(FreePort()), std::string("nowhere.invalid")}) {
    EXPECT_THAT(fRoot.Run({UploadStep(host, Local("file"), "name")}), HasSubstr(failure));
    EXPECT_THAT(fRoot.Run({DownloadStep(host, Local("back"), "name")}), HasSubstr(failure));
  }
}

TEST_P(Transfer, FailsIfTheLocalDirectoryCannotBeWritten) {
  MakeFile(OnServer("name"), "text");
  for (const char* directory : {"/proc", "/nowhere"}) {  // not even by root
    EXPECT_THAT(fRoot.Run({DownloadStep(directory + std::string("/hwx-file"), "name")}),
                HasSubstr("status 27\n" + Logged("Error performing command: ")));
  }
}

const std::string kQuestion = "Local file exists, overwrite it anyway?(y/n): ";

TEST_P(Transfer, AsksBeforeItReplacesALocalFile) {
  MakeFile(OnServer("name"), "new");
  for (const char* answer : {"n", "N"}) {
    MakeFile(Local("back"), "an older text");
    EXPECT_EQ(fRoot.Run({DownloadStep(Local("back"), "name")}, std::string(answer) + "\n"),
              kQuestion + kDone);
    EXPECT_EQ(FileText(Local("back")), "an older text");
  }
  for (const char* answer : {"y", "Y"}) {
    MakeFile(Local("back"), "an older text");
    EXPECT_EQ(fRoot.Run({DownloadStep(Local("back"), "name")}, "\n" + std::string(answer) + "\n"),
              kQuestion + kQuestion + kDone);
    EXPECT_EQ(FileText(Local("back")), "new");
  }
}

TEST_P(Transfer, AsksForEverAtTheEndOfTheInput) {
  MakeFile(OnServer("name"), "new");
  MakeFile(Local("back"), "an older text");
  const std::string output = fRoot.Run({DownloadStep(Local("back"), "name")}, "", 100000);
  EXPECT_GT(output.size(), 100000u);
  EXPECT_THAT(output, StartsWith(kQuestion + kQuestion + kQuestion));
  EXPECT_EQ(FileText(Local("back")), "an older text");
}

}  // namespace
}  // namespace hwxtest
