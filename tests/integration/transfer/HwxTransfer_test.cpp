// `hwx send` and `hwx fetch` with real servers.

#include <gmock/gmock.h>

#include "integration/hwx/HwxProcess.h"
#include "support/FileServers.h"
#include "support/FileText.h"
#include "support/TerminalProcess.h"

namespace hwxtest {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class HwxTransfer : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(HWX_TEST_LIBCURL)) GTEST_SKIP() << "there is no libcurl";
    if (const auto whyNot = FtpServer::WhyNot()) GTEST_SKIP() << *whyNot;
    Serve();
    MakeFile(fPasswordFile, FtpServer::Password() + "\n");
    std::filesystem::permissions(fPasswordFile, std::filesystem::perms(0600));
    fHwx.InputFrom("/dev/null");
    // A failed transfer leaves what it held (docs/contracts.md, curl-left-open), which leaks.
    fHwx.Set("ASAN_OPTIONS", "detect_leaks=0");
  }

  void Serve(const FileServer::Ways& ways = FileServer::Ways()) {
    fServer = std::make_unique<FtpServer>(ways);
    fAddress = "me@" + fServer->Place();
  }

  HwxResult Run(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--password-file", fPasswordFile});
    return fHwx.Run(arguments);
  }

  void ExpectFailure(const HwxResult& result, const std::string& message) {
    EXPECT_EQ(result.fStatus, 1);
    EXPECT_EQ(result.fOut, "");
    EXPECT_EQ(result.fErr, "hwx: " + message + "\n");
  }

  std::string OnServer(const std::string& name) const { return fServer->Home() + "/" + name; }

  /// What a transfer may leave in the scratch directory.
  std::size_t FileCount() const {
    const std::filesystem::directory_iterator files(fScratch.Path());
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  TemporaryDirectory fScratch;
  std::string fPasswordFile = fScratch / "password";
  std::unique_ptr<FtpServer> fServer;
  std::string fAddress;
  HwxProcess fHwx;
};

TEST_F(HwxTransfer, SendsAndFetches) {
  MakeFile(fScratch / "file", AllBytes(5000));
  const HwxResult sent = Run({"send", fScratch / "file", fAddress});
  EXPECT_EQ(sent.fStatus, 0);
  EXPECT_EQ(sent.fOut,
            "Sent " + fScratch / "file" + " to ftp://" + fServer->Place() + "/file: 5000 bytes\n");
  EXPECT_EQ(sent.fErr, "");
  const HwxResult fetched = Run({"fetch", fAddress, "file", fScratch / "back"});
  EXPECT_EQ(fetched.fStatus, 0);
  EXPECT_EQ(fetched.fOut, "Fetched ftp://" + fServer->Place() + "/file to " + fScratch / "back" +
                              ": 5000 bytes\n");
  EXPECT_TRUE(FileText(fScratch / "back") == AllBytes(5000));
}

TEST_F(HwxTransfer, TakesAPathInTheAddressAndAnyName) {
  MakeFile(fScratch / "file", "text");
  EXPECT_EQ(Run({"send", fScratch / "file", "ftp://" + fAddress + "/a%20b/as"}).fStatus, 0);
  EXPECT_EQ(FileText(OnServer("a b/as")), "text");
  EXPECT_EQ(Run({"send", fScratch / "file", "FTP://" + fAddress + "/c/"}).fStatus, 0);
  EXPECT_EQ(FileText(OnServer("c/file")), "text");
  const std::string name = "\xC3\xA4 \xE4 #1?;%41";
  EXPECT_EQ(Run({"send", fScratch / "file", fAddress + "/c", name}).fStatus, 0);
  EXPECT_EQ(FileText(OnServer("c/" + name)), "text");
  EXPECT_EQ(Run({"fetch", fAddress + "/c", name, fScratch / "back"}).fStatus, 0);
  EXPECT_EQ(FileText(fScratch / "back"), "text");
}

TEST_F(HwxTransfer, FetchesAnEmptyFile) {
  MakeFile(OnServer("empty"), "");
  EXPECT_EQ(Run({"fetch", fAddress, "empty", fScratch / "back"}).fStatus, 0);
  EXPECT_EQ(FileText(fScratch / "back"), "");
}

TEST_F(HwxTransfer, SaysWhatIsWrong) {
  MakeFile(fScratch / "file", "text");
  const std::string place = fServer->Place();
  ExpectFailure(Run({"send", fScratch / "none", fAddress}),
                fScratch / "none" + " can't be read: No such file or directory");
  ExpectFailure(Run({"send", fScratch.Path(), fAddress}), fScratch.Path() + " is no file");
  ExpectFailure(Run({"fetch", fAddress, "none", fScratch / "back"}),
                "no transfer with " + place + ": The file does not exist");
  ExpectFailure(Run({"fetch", fAddress, "name", "/nowhere/file"}),
                "/nowhere can't be written: No such file or directory");
  const std::string nobody = "127.0.0.1:" + std::to_string(FreePort());
  ExpectFailure(Run({"send", fScratch / "file", "me@" + nobody}),
                "no transfer with " + nobody + ": nobody answers there, or on that port");
  ExpectFailure(Run({"send", fScratch / "file", "me@nowhere.invalid"}),
                "no transfer with nowhere.invalid: the name doesn't resolve");
  MakeFile(fPasswordFile, "wrong");
  const HwxResult refused = Run({"send", fScratch / "file", fAddress});
  ExpectFailure(refused, "no transfer with " + place + ": Access denied: 530");
}

TEST_F(HwxTransfer, SaysWhatIsMissingWithoutLibcurl) {
  MakeFile(fScratch / "file", "text");
  const HwxTree tree;
  tree.Remove("libcurl.so.4");
  tree.Use(fHwx);
  ExpectFailure(Run({"send", fScratch / "file", fAddress}),
                "transfers need libcurl, and it isn't there: install it (on Debian the package "
                "libcurl4) and put a link to it beside the library, as " +
                    tree / "libcurl.so.4");
  tree.AddText("libcurl.so.4", "no module");
  ExpectFailure(Run({"send", fScratch / "file", fAddress}),
                "transfers need libcurl, and " + tree / "libcurl.so.4" + " can't be loaded");
}

TEST_F(HwxTransfer, LeavesTheOldFileWholeIfItFails) {
  MakeFile(fScratch / "back", "old");
  const std::size_t before = FileCount();
  EXPECT_EQ(Run({"fetch", fAddress, "none", fScratch / "back", "--overwrite"}).fStatus, 1);
  EXPECT_EQ(FileText(fScratch / "back"), "old");
  EXPECT_EQ(FileCount(), before);
}

TEST_F(HwxTransfer, ReplacesAFileOnlyIfToldTo) {
  MakeFile(OnServer("name"), "new");
  MakeFile(fScratch / "back", "old");
  const std::vector<std::string> fetch = {"fetch", fAddress, "name", fScratch / "back"};
  ExpectFailure(Run(fetch), fScratch / "back" + " exists; --overwrite replaces it");
  EXPECT_EQ(FileText(fScratch / "back"), "old");
  std::vector<std::string> overwriting = fetch;
  overwriting.push_back("--overwrite");
  std::filesystem::create_symlink("back", fScratch / "link");
  overwriting[3] = fScratch / "link";
  EXPECT_EQ(Run(overwriting).fStatus, 0);
  EXPECT_EQ(FileText(fScratch / "back"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(fScratch / "link"));
  ExpectFailure(Run({"fetch", fAddress, "name", fScratch.Path(), "--overwrite"}),
                fScratch.Path() + " exists, and is no file");
}

TEST_F(HwxTransfer, AsksOnATerminalBeforeItReplaces) {
  MakeFile(OnServer("name"), "new");
  const std::vector<std::string> fetch = {"fetch",           fAddress,          "name",
                                          fScratch / "back", "--password-file", fPasswordFile};
  const std::string question = fScratch / "back" + " exists. Replace it? (y/n): ";
  struct {
    const char* fTyped;
    int fStatus;
    const char* fText;
  } const kAnswers[] = {{"n\n", 1, "old"}, {"\x04", 1, "old"}, {"Y\n", 0, "new"}};
  for (const auto& answer : kAnswers) {
    MakeFile(fScratch / "back", "old");
    TerminalProcess child([&] { fHwx.Become(fetch); });
    ASSERT_TRUE(child.WaitFor(question));
    child.Type("yes\n");
    ASSERT_TRUE(child.WaitFor(question));
    child.Type(answer.fTyped);
    EXPECT_EQ(child.End(), answer.fStatus) << child.Screen();
    EXPECT_EQ(FileText(fScratch / "back"), answer.fText);
  }
}

TEST_F(HwxTransfer, AsksForThePasswordAndDoesNotShowIt) {
  MakeFile(fScratch / "file", "text");
  TerminalProcess child([&] { fHwx.Become({"send", fScratch / "file", fAddress}); });
  ASSERT_TRUE(child.WaitFor("Password of " + fAddress + ": "));
  child.Type(FtpServer::Password() + "\n");
  EXPECT_EQ(child.End(), 0);
  EXPECT_THAT(child.Screen(), AllOf(HasSubstr("Sent "), Not(HasSubstr(FtpServer::Password()))));
  EXPECT_EQ(FileText(OnServer("file")), "text");
}

TEST_F(HwxTransfer, TakesNoPasswordFromTheCommandLine) {
  MakeFile(fScratch / "file", "text");
  const HwxResult result = fHwx.Run({"send", fScratch / "file", "me:secret@" + fServer->Place()});
  EXPECT_EQ(result.fStatus, 2);
  EXPECT_THAT(result.fErr, AllOf(HasSubstr("a password has no place on the command line"),
                                 Not(HasSubstr("secret"))));
}

TEST_F(HwxTransfer, TakesNoPasswordFromAFileThatOthersMayRead) {
  MakeFile(fScratch / "file", "text");
  std::filesystem::permissions(fPasswordFile, std::filesystem::perms(0640));
  ExpectFailure(Run({"send", fScratch / "file", fAddress}),
                "the password isn't read from " + fPasswordFile +
                    ": it must be a file of yours that nobody else may read (chmod 600)");
  ExpectFailure(Run({"send", fScratch / "file", fServer->Place()}),
                "a password needs a user, as in user@" + fServer->Place());
}

TEST_F(HwxTransfer, WritesNoPasswordToTheLog) {
  MakeFile(fScratch / "file", "text");
  const std::string directory = fScratch / "log";
  for (const char* name : {"file", "none"}) {
    Run({"send", fScratch / name, fAddress, "--verbose", "--log-dir", directory});
    EXPECT_THAT(FileText(directory + "/hwx.log"),
                AllOf(StartsWith("-- HWX Log Opened"), Not(HasSubstr(FtpServer::Password()))));
  }
  Run({"fetch", fAddress, "none", fScratch / "back", "--verbose", "--log-dir", directory});
  EXPECT_THAT(FileText(directory + "/hwx.log"),
              AllOf(HasSubstr("The file does not exist"), Not(HasSubstr(FtpServer::Password()))));
}

TEST_F(HwxTransfer, ShowsOnATerminalHowFarItIs) {
  Serve({false, 200});
  MakeFile(fScratch / "file", std::string(300000, 'x'));
  TerminalProcess sending([&] {
    fHwx.Become({"send", fScratch / "file", fAddress, "--password-file", fPasswordFile});
  });
  EXPECT_TRUE(sending.WaitFor(" of 300000 bytes ("));
  EXPECT_EQ(sending.End(), 0);
  TerminalProcess fetching([&] {
    fHwx.Become({"fetch", fAddress, "file", fScratch / "b", "--password-file", fPasswordFile});
  });
  EXPECT_TRUE(fetching.WaitFor(" bytes\r"));
  EXPECT_EQ(fetching.End(), 0);
}

TEST(HwxSftp, SendsAndFetchesWithTheUsersKey) {
  if (!std::filesystem::exists(HWX_TEST_LIBCURL)) GTEST_SKIP() << "there is no libcurl";
  if (const auto whyNot = SftpServer::WhyNot()) GTEST_SKIP() << *whyNot;
  const SftpServer server;
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "text");
  HwxProcess hwx;
  hwx.Set("HOME", server.UserHome()).Set("ASAN_OPTIONS", "detect_leaks=0");
  const std::string address = "sftp://" + server.Host() + server.Home();
  EXPECT_EQ(hwx.Run({"send", scratch / "file", address, "a/b c", "--no-password"}).fErr, "");
  EXPECT_EQ(FileText(server.Home() + "/a/b c"), "text");
  EXPECT_EQ(hwx.Run({"fetch", address + "/a", "b c", scratch / "back", "--no-password"}).fStatus,
            0);
  EXPECT_EQ(FileText(scratch / "back"), "text");
}

}  // namespace
}  // namespace hwxtest
