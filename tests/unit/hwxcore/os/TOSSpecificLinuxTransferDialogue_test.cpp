// The question that a download asks when the local file is there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TerminalProcess.h"
#include "support/TransferRoot.h"

using hwxtest::FileText;
using hwxtest::TerminalProcess;
using hwxtest::TransferRoot;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;

namespace {

const std::string kQuestion = "Local file exists, overwrite it anyway?(y/n): ";

class TransferDialogue : public testing::Test {
 protected:
  TransferDialogue() {
    fRoot.AddCurl("stub_curl", "libcurl.so");
    fRoot.Set("STUB_CURL_BLOCKS", "new");
    hwxtest::MakeFile(fFile, "old text");
  }

  std::string Answer(const std::string& input) {
    return fRoot.Run({"download:ftp://host/name|" + fFile}, input);
  }

  bool Transferred() const {
    const TransferRoot::Lines calls = fRoot.CurlCalls();
    return testing::Value(calls, Contains("curl_easy_perform"));
  }

  TransferRoot fRoot;
  std::string fFile = fRoot.Scratch("file");
};

TEST_F(TransferDialogue, IsNotHeldWhereThereIsNoFile) {
  std::filesystem::remove(fFile);
  EXPECT_EQ(Answer(""), "returned 0\n");
  EXPECT_EQ(FileText(fFile), "new");
}

TEST_F(TransferDialogue, IsNotHeldForAnUpload) {
  EXPECT_EQ(fRoot.Run({"upload:ftp://host/name|" + fFile}), "returned 0\n");
}

TEST_F(TransferDialogue, ReplacesTheFileOnAYes) {
  for (const char* answer : {"y\n", "Y\n", "y"}) {
    hwxtest::MakeFile(fFile, "old text");
    EXPECT_EQ(Answer(answer), kQuestion + "returned 0\n");
    EXPECT_EQ(FileText(fFile), "new");
  }
}

TEST_F(TransferDialogue, FetchesNothingOnANoAndReturnsAsEver) {
  for (const char* answer : {"n\n", "N\n", "n"}) {
    EXPECT_EQ(Answer(answer), kQuestion + "returned 0\n");
    EXPECT_EQ(FileText(fFile), "old text");
  }
  EXPECT_FALSE(Transferred());
}

TEST_F(TransferDialogue, OnANoEndsWithOneFromTheForms) {
  for (const char* operation : {"FTPFileFromQOR", "sFTPFileFromQOR"}) {
    EXPECT_EQ(fRoot.Run({std::string(operation) + ":host|" + fFile + "|name"}, "n\n"),
              kQuestion + "returned 1\n");
    EXPECT_EQ(FileText(fFile), "old text");
  }
}

TEST_F(TransferDialogue, IsHeldBehindTheFirstOptionsAndCleansUpOnANo) {
  EXPECT_EQ(fRoot.Run({"download:ftp://host/name|" + fFile, "mapped:stub_curl.so"}, "n\n"),
            kQuestion + "returned 0\nnot mapped\n");
  EXPECT_THAT(fRoot.CurlCalls(), ElementsAre("curl_global_init 3 of libcurl.so", "curl_easy_init",
                                             "curl_easy_setopt 10010 the error buffer",
                                             "curl_easy_setopt 85 0", "curl_easy_setopt 10004 \"\"",
                                             "curl_easy_cleanup", "curl_global_cleanup"));
  if (!TransferRoot::TracesLoader()) return;
  EXPECT_THAT(fRoot.Trace(), EndsWith("curl_global_cleanup\ndlclose\n"));
}

TEST_F(TransferDialogue, AsksAgainForAnyOtherAnswer) {
  std::string input;
  std::string output = kQuestion;
  for (const char* other : {"", "yes", "no", " y", "y ", "yn", "N N", "j", "y\r"}) {
    input += std::string(other) + "\n";
    output += kQuestion;
  }
  EXPECT_EQ(Answer(input + "n\n"), output + "returned 0\n");
  EXPECT_EQ(FileText(fFile), "old text");
}

TEST_F(TransferDialogue, TakesOneLineAndLeavesTheRestToTheNext) {
  const std::string download = "download:ftp://host/name|" + fFile;
  EXPECT_EQ(fRoot.Run({download, download}, "n\ny\n"),
            kQuestion + "returned 0\n" + kQuestion + "returned 0\n");
  EXPECT_EQ(FileText(fFile), "new");
}

TEST_F(TransferDialogue, KeepsAskingAtTheEndOfTheInput) {
  const std::size_t limit = kQuestion.size() * 1000;
  for (const char* input : {"", "what\n", "what"}) {
    const std::string output = fRoot.Run({"download:ftp://host/name|" + fFile}, input, limit);
    ASSERT_GT(output.size(), limit);  // it was killed
    for (std::size_t at = 0; at + kQuestion.size() <= output.size(); at += kQuestion.size())
      ASSERT_EQ(output.substr(at, kQuestion.size()), kQuestion);
  }
  EXPECT_EQ(FileText(fFile), "old text");
  EXPECT_FALSE(Transferred());
}

TEST_F(TransferDialogue, SaysThatTheFileCannotBeRemovedAndReturnsAsEver) {
  std::filesystem::create_directories(fFile + "-dir/with-a-file");
  EXPECT_EQ(fRoot.Run({"download:ftp://host/name|" + fFile + "-dir", "mapped:stub_curl.so"}, "y\n"),
            kQuestion + "Permission denied.returned 0\nnot mapped\n");
  EXPECT_EQ(fRoot.CurlCalls().back(), "curl_global_cleanup");
  EXPECT_FALSE(Transferred());
}

TEST_F(TransferDialogue, IsHeldOnATerminalWithTheCursorBehindTheQuestion) {
  TerminalProcess child([this] { fRoot.Become({"download:ftp://host/name|" + fFile}); });
  ASSERT_TRUE(child.WaitFor(kQuestion));
  EXPECT_EQ(child.Screen(), kQuestion);
  child.Type("\n");
  ASSERT_TRUE(child.WaitFor("\r\n" + kQuestion));
  EXPECT_EQ(FileText(fFile), "old text");
  child.Type("Y\n");
  EXPECT_EQ(child.End(), 0);
  EXPECT_THAT(child.Screen(), EndsWith("Y\r\nreturned 0\r\n"));
  EXPECT_EQ(FileText(fFile), "new");
}

}  // namespace
