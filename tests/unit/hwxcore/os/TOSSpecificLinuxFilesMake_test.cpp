#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "hwxcore/diagnostics/TLogger.h"
#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/Descriptors.h"
#include "support/FileText.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::AllBytes;
using hwxtest::FileText;
using hwxtest::MakeFile;
using hwxtest::OpenDescriptors;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::ScopedLogCapture;
using hwxtest::TemporaryDirectory;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::Pair;

namespace {

TEST(CreateFile, WritesTheContentAndSaysSo) {
  const TemporaryDirectory scratch;
  const ScopedLogCapture log;
  const std::size_t before = OpenDescriptors();
  const std::string path = scratch / "file";
  EXPECT_TRUE(TOSSpecific::createFile(path, AllBytes(100000)));
  EXPECT_EQ(OpenDescriptors(), before);
  EXPECT_TRUE(FileText(path) == AllBytes(100000));
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "Entering TOSSpecific::createFile, path=" + path),
                          Pair("Debug", "Successfully created file: " + path),
                          Pair("Debug", "Exiting TOSSpecific::createFile")));
}

TEST(CreateFile, EmptiesAFileThatIsThere) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "old and longer");
  EXPECT_TRUE(TOSSpecific::createFile(scratch / "file", "new"));
  EXPECT_EQ(FileText(scratch / "file"), "new");
  EXPECT_TRUE(TOSSpecific::createFile(scratch / "file", ""));
  EXPECT_EQ(FileText(scratch / "file"), "");
}

TEST(CreateFile, GivesEveryoneTheRightToReadAndWriteLessTheUmask) {
  const TemporaryDirectory scratch;
  const int result = RunInChild([&] {
    ::umask(0);
    TOSSpecific::createFile(scratch / "open", "");
    ::umask(027);
    TOSSpecific::createFile(scratch / "masked", "");
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(std::filesystem::status(scratch / "open").permissions(), std::filesystem::perms(0666));
  EXPECT_EQ(std::filesystem::status(scratch / "masked").permissions(),
            std::filesystem::perms(0640));
}

TEST(CreateFile, IsFalseWithTheErrorsNumberIfItCannotBeOpened) {
  const TemporaryDirectory scratch;
  const std::string path = scratch / "absent/file";
  const ScopedLogCapture log;
  EXPECT_FALSE(TOSSpecific::createFile(path, "text"));
  EXPECT_FALSE(TOSSpecific::createFile(scratch.Path(), "text"));
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "Entering TOSSpecific::createFile, path=" + path),
                          Pair("Debug", "Unable to create file, errno=2"),
                          Pair("Debug", "Exiting TOSSpecific::createFile"),
                          Pair("Debug", "Entering TOSSpecific::createFile, path=" + scratch.Path()),
                          Pair("Debug", "Unable to create file, errno=21"),
                          Pair("Debug", "Exiting TOSSpecific::createFile")));
}

TEST(CreateFile, DoesNotLookWhetherTheContentWasWritten) {
  const TemporaryDirectory scratch;
  RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(scratch.Path())) {
      return hwxtest::kSceneNotAllowed;
    }
    EXPECT_TRUE(TOSSpecific::createFile(scratch / "large", AllBytes(3000000)));
    EXPECT_LT(TOSSpecific::GetFileSize(scratch / "large"), 2000000);
    EXPECT_TRUE(TOSSpecific::createFile(scratch / "next", "text"));
    EXPECT_EQ(TOSSpecific::GetFileSize(scratch / "next"), 0);
    if (!hwxtest::RemountReadOnly(scratch.Path())) return hwxtest::kSceneNotAllowed;
    EXPECT_FALSE(TOSSpecific::createFile(scratch / "third", "text"));
    return 0;
  });
}

TEST(DeleteFile, RemovesAFileAndSaysSo) {
  const TemporaryDirectory scratch;
  const std::string path = scratch / std::string(200, 'x');
  MakeFile(path, "text");
  const ScopedLogCapture log;
  EXPECT_TRUE(TOSSpecific::deleteFile(path));
  EXPECT_FALSE(TOSSpecific::FileExists(path));
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "Entering TOSSpecific::deleteFile, path=" + path),
                          Pair("Debug", "Exiting TOSSpecific::deleteFile")));
}

TEST(DeleteFile, IsTrueWhetherOrNotAFileWasRemoved) {
  const TemporaryDirectory scratch;
  EXPECT_TRUE(TOSSpecific::deleteFile(scratch / "absent"));
  EXPECT_TRUE(TOSSpecific::deleteFile(scratch.Path() + " 2>/dev/null"));
  EXPECT_TRUE(TOSSpecific::DirExists(scratch.Path()));
  EXPECT_TRUE(TOSSpecific::deleteFile(""));
}

TEST(DeleteFile, HandsThePathToTheShellUnquoted) {
  const TemporaryDirectory scratch;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(scratch.Path());
  for (const char* const name : {"one", "two", "one two", "wild-1", "wild-2", "other"})
    MakeFile(scratch / name, "");
  TOSSpecific::deleteFile("one two");
  EXPECT_FALSE(TOSSpecific::FileExists("one"));
  EXPECT_FALSE(TOSSpecific::FileExists("two"));
  EXPECT_TRUE(TOSSpecific::FileExists("one two"));
  TOSSpecific::deleteFile("wild-*");
  EXPECT_FALSE(TOSSpecific::FileExists("wild-1"));
  EXPECT_FALSE(TOSSpecific::FileExists("wild-2"));
  TOSSpecific::deleteFile("'one two'; touch made");
  EXPECT_FALSE(TOSSpecific::FileExists("one two"));
  EXPECT_TRUE(TOSSpecific::FileExists("made"));
  EXPECT_TRUE(TOSSpecific::FileExists("other"));
  std::filesystem::current_path(before);
}

int StatusOfOpen(std::ofstream& stream, const std::string& path) {
  return hwxtest::StatusOf([&] { TOSSpecific::OpenOutputFileStream(stream, path); });
}

TEST(OpenOutputFileStream, OpensAndEmptiesTheFile) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "old");
  const ScopedLogCapture log;
  std::ofstream stream;
  TOSSpecific::OpenOutputFileStream(stream, scratch / "file");
  EXPECT_TRUE(stream.good());
  EXPECT_EQ(FileText(scratch / "file"), "");
  stream << "new" << std::flush;
  EXPECT_EQ(FileText(scratch / "file"), "new");
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "TOSSpecific::OpenOutputFileStream -- Entering "),
                          Pair("Debug", "TOSSpecific::OpenOutputFileStream -- Exting ")));
}

TEST(OpenOutputFileStream, ClosesAnOpenStreamFirst) {
  const TemporaryDirectory scratch;
  std::ofstream stream(scratch / "first");
  stream << "buffered";
  TOSSpecific::OpenOutputFileStream(stream, scratch / "second");
  EXPECT_EQ(FileText(scratch / "first"), "buffered");
  stream << "text" << std::flush;
  EXPECT_EQ(FileText(scratch / "second"), "text");
}

TEST(OpenOutputFileStream, ForgetsTheStateOfTheStream) {
  const TemporaryDirectory scratch;
  std::ofstream stream("/dev/full");
  stream << "lost";  // so that closing fails
  stream.setstate(std::ios::badbit | std::ios::eofbit);
  TOSSpecific::OpenOutputFileStream(stream, scratch / "file");
  EXPECT_TRUE(stream.good());
}

TEST(OpenOutputFileStream, ForgetsTheStateAlsoWhereTheFileCannotBeOpened) {
  const TemporaryDirectory scratch;
  std::ofstream stream;
  stream.setstate(std::ios::badbit | std::ios::eofbit);
  EXPECT_EQ(StatusOfOpen(stream, scratch / "absent/file"), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(stream.rdstate(), std::ios::failbit);
}

TEST(OpenOutputFileStream, ThrowsFileSystemErrorWithTheFailBitSet) {
  const TemporaryDirectory scratch;
  const std::string path = scratch / "absent/file";
  const ScopedLogCapture log;
  std::ofstream stream;
  EXPECT_EQ(StatusOfOpen(stream, path), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_TRUE(stream.fail());
  EXPECT_FALSE(stream.is_open());
  EXPECT_THAT(
      log.Lines(),
      ElementsAre(
          Pair("Debug", "TOSSpecific::OpenOutputFileStream -- Entering "),
          Pair("Error",
               "TOSSpecific::OpenOutputFileStream --  Failed to open output file: " + path)));
  EXPECT_EQ(StatusOfOpen(stream, scratch.Path()), NQORHWX20::kHWXStatusFileSystemError);
}

TEST(OpenOutputFileStream, ThrowsAccessDeniedWhereTheUserMayNotWrite) {
  const TemporaryDirectory scratch;
  ::chmod(scratch.Path().c_str(), 0555);
  RunScene("no right to change the user", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    const ScopedLogCapture log;
    const std::string path = scratch / "file";
    std::ofstream stream;
    EXPECT_EQ(StatusOfOpen(stream, path), NQORHWX20::kHWXStatusAccessDenied);
    EXPECT_TRUE(stream.fail());
    EXPECT_THAT(
        log.Lines(),
        ElementsAre(
            Pair("Debug", "TOSSpecific::OpenOutputFileStream -- Entering "),
            Pair("Error",
                 "TOSSpecific::OpenOutputFileStream --  Failed to open output file: " + path)));
    return 0;
  });
  ::chmod(scratch.Path().c_str(), 0755);
}

TEST(OpenOutputFileStream, ThrowsFileSystemErrorOnAReadOnlyFileSystem) {
  const TemporaryDirectory scratch;
  RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(scratch.Path()) ||
        !hwxtest::RemountReadOnly(scratch.Path())) {
      return hwxtest::kSceneNotAllowed;
    }
    std::ofstream stream;
    EXPECT_EQ(StatusOfOpen(stream, scratch / "file"), NQORHWX20::kHWXStatusFileSystemError);
    return 0;
  });
}

TEST(FileServices, LogNothingWithTheDefaultThreshold) {
  const TemporaryDirectory scratch;
  const ScopedLogCapture log;
  NQORHWX20::TLogger::SetLogThreshold(NQORHWX20::ILogger::kHWXLogStatus);
  TOSSpecific::createFile(scratch / "file", "text");
  TOSSpecific::createFile(scratch / "absent/file", "text");
  TOSSpecific::deleteFile(scratch / "file");
  std::ofstream stream;
  TOSSpecific::OpenOutputFileStream(stream, scratch / "file");
  EXPECT_THAT(log.Lines(), testing::IsEmpty());
}

}  // namespace
