// What a transfer asks of libcurl, and how each failure ends.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TransferRoot.h"

using hwxtest::FileText;
using hwxtest::TransferRoot;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

const std::string kTransferError = "Error: TOSSpecific|CurlTransferFile: ";

class TransferOptions : public testing::Test {
 protected:
  TransferOptions() { fRoot.AddCurl("stub_curl", "libcurl.so"); }

  std::string Upload(const std::string& file) { return "upload:ftp://host/name|" + file; }
  std::string Download(const std::string& file) { return "download:ftp://host/name|" + file; }

  /// The calls whose text begins so.
  TransferRoot::Lines Calls(const std::string& front) const {
    TransferRoot::Lines calls;
    for (const std::string& call : fRoot.CurlCalls()) {
      if (call.rfind(front, 0) == 0) calls.push_back(call);
    }
    return calls;
  }

  TransferRoot fRoot;
  std::string fFile = fRoot.Scratch("file");
};

TEST_F(TransferOptions, OfAnUploadAreSetInOrder) {
  hwxtest::MakeFile(fFile, "some text");
  EXPECT_EQ(fRoot.Run({Upload(fFile)}), "returned 0\n");
  EXPECT_THAT(
      fRoot.CurlCalls(),
      ElementsAre("curl_global_init 3 of libcurl.so", "curl_easy_init",
                  "curl_easy_setopt 10010 the error buffer", "curl_easy_setopt 85 0",
                  "curl_easy_setopt 10004 \"\"", "curl_easy_setopt 46 1",
                  "curl_easy_setopt 10002 \"ftp://host/name\"", "curl_easy_setopt 10009 the source",
                  "curl_easy_setopt 110 1", "curl_easy_perform", "reads \"some text\"",
                  "curl_easy_cleanup", "curl_global_cleanup"));
}

TEST_F(TransferOptions, OfADownloadAreSetInOrder) {
  fRoot.Set("STUB_CURL_BLOCKS", "one|two");
  EXPECT_EQ(fRoot.Run({Download(fFile)}), "returned 0\n");
  EXPECT_THAT(fRoot.CurlCalls(),
              ElementsAre("curl_global_init 3 of libcurl.so", "curl_easy_init",
                          "curl_easy_setopt 10010 the error buffer", "curl_easy_setopt 85 0",
                          "curl_easy_setopt 10004 \"\"", "curl_easy_setopt 20011 the callback",
                          "curl_easy_setopt 10001 \"" + fFile + "\", null",
                          "curl_easy_setopt 10002 \"ftp://host/name\"", "curl_easy_setopt 110 1",
                          "curl_easy_perform", "delivers \"one\", taken 3",
                          "delivers \"two\", taken 3", "curl_easy_cleanup", "curl_global_cleanup"));
  EXPECT_EQ(FileText(fFile), "onetwo");
}

TEST_F(TransferOptions, SendTheURLAsItStands) {
  hwxtest::MakeFile(fFile, "");
  fRoot.Run({"upload:any thing, \xE4 or %20|" + fFile});
  EXPECT_THAT(Calls("curl_easy_setopt 10002"),
              ElementsAre("curl_easy_setopt 10002 \"any thing, \xE4 or %20\""));
}

TEST_F(TransferOptions, SendAnEmptyFile) {
  hwxtest::MakeFile(fFile, "");
  EXPECT_EQ(fRoot.Run({Upload(fFile)}), "returned 0\n");
  EXPECT_THAT(Calls("reads"), ElementsAre("reads \"\""));
}

TEST_F(TransferOptions, MakeNoFileOfAnEmptyDownload) {
  EXPECT_EQ(fRoot.Run({Download(fFile)}), "returned 0\n");
  EXPECT_FALSE(std::filesystem::exists(fFile));
}

struct Refusal {
  int fOption;
  std::string fText;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
  *out << refusal.fOption;
}

class RefusedOption : public TransferOptions, public testing::WithParamInterface<Refusal> {
 protected:
  /// The step fails, with nothing done after the refusal, nothing given back, and no file left
  /// open.
  void ExpectFailure(const std::string& step) {
    fRoot.Set("STUB_CURL_REFUSES", std::to_string(GetParam().fOption));
    const std::string failure = "status 35\n" + kTransferError + GetParam().fText + "\n";
    EXPECT_EQ(fRoot.Run({step, "mapped:stub_curl.so"}), failure + "mapped\n");
    EXPECT_THAT(fRoot.CurlCalls().back(),
                testing::StartsWith("curl_easy_setopt " + std::to_string(GetParam().fOption)));
  }
};

class RefusedUploadOption : public RefusedOption {};

TEST_P(RefusedUploadOption, FailsWithAStatusAndALine) {
  hwxtest::MakeFile(fFile, "text");
  ExpectFailure(Upload(fFile));
}

class RefusedDownloadOption : public RefusedOption {};

TEST_P(RefusedDownloadOption, FailsWithAStatusAndALine) {
  ExpectFailure(Download(fFile));
  EXPECT_FALSE(std::filesystem::exists(fFile));
}

const Refusal kErrorBuffer = {10010, "Error configuring curl error buffer"};
const Refusal kPassive = {85, "Error configuring curl passive mode"};
const Refusal kProxy = {10004, "Error configuring curl proxy server"};
const Refusal kURL = {10002, "Error setting curl target"};
const Refusal kDirectories = {110, "Error setting curl option: CURLOPT_FTP_CREATE_MISSING_DIRS"};

INSTANTIATE_TEST_SUITE_P(Options, RefusedUploadOption,
                         testing::Values(kErrorBuffer, kPassive, kProxy,
                                         Refusal{46, "Error setting curl upload"}, kURL,
                                         Refusal{10009, "Error setting curl upload file"},
                                         kDirectories));
INSTANTIATE_TEST_SUITE_P(Options, RefusedDownloadOption,
                         testing::Values(kErrorBuffer, kPassive, kProxy,
                                         Refusal{20011, "Error setting curl write function"},
                                         Refusal{10001, "Error setting curl write function"}, kURL,
                                         kDirectories));

TEST_F(TransferOptions, AMissingLocalFileFailsBeforeTheNetworkAndAfterLibcurl) {
  EXPECT_EQ(fRoot.Run({Upload(fFile), "mapped:stub_curl.so"}),
            "status 11\n" + kTransferError + "Error getting file size\nmapped\n");
  EXPECT_EQ(fRoot.CurlCalls().back(), "curl_easy_setopt 10004 \"\"");
}

TEST_F(TransferOptions, AFileWithoutAStreamFailsAndIsClosed) {
  hwxtest::MakeFile(fFile, "text");
  EXPECT_EQ(fRoot.Run({"no-stream", Upload(fFile), "mapped:stub_curl.so"}),
            "status 11\n" + kTransferError + "Error creating file stream\nmapped\n");
  EXPECT_EQ(fRoot.CurlCalls().back(), "curl_easy_setopt 10004 \"\"");
}

TEST_F(TransferOptions, OnlyTwoResultsAreFailuresOfTheConnection) {
  hwxtest::MakeFile(fFile, "text");
  fRoot.Set("STUB_CURL_ERROR", "the server's words");
  const std::vector<std::string> results = {"5", "6", "7", "8", "67"};
  const std::string connecting = "status 34\n" + kTransferError + "Error connecting to Server\n";
  const std::string other =
      "status 27\n" + kTransferError + "Error performing command: the server's words\n";
  for (const std::string& step : {Upload(fFile), Download(fFile + "-none")}) {
    std::vector<std::string> steps;
    for (const std::string& result : results) {
      steps.push_back("set:STUB_CURL_RESULT|" + result);
      steps.push_back(step);
    }
    EXPECT_EQ(fRoot.Run(steps), other + connecting + connecting + other + other);
  }
}

TEST_F(TransferOptions, AFailedTransferIsNotCleanedUpButItsFileIsClosed) {
  hwxtest::MakeFile(fFile, "text");
  fRoot.Set("STUB_CURL_RESULT", "67");
  const std::string failure = "status 27\n" + kTransferError + "Error performing command: \n";
  EXPECT_EQ(fRoot.Run({Upload(fFile), "mapped:stub_curl.so"}), failure + "mapped\n");
  EXPECT_EQ(fRoot.CurlCalls().back(), "reads \"text\"");
  EXPECT_THAT(fRoot.LoaderCalls(), Not(testing::Contains("dlclose")));
}

TEST_F(TransferOptions, AFailureCarriesLibcurlsWords) {
  fRoot.Set("STUB_CURL_RESULT", "67");
  fRoot.Set("STUB_CURL_ERROR", "the server's words");
  EXPECT_THAT(fRoot.Run({Download(fFile), "last-failure"}),
              EndsWith("detailed exception: the server's words\n"));
}

TEST_F(TransferOptions, AFailureOfTheConnectionCarriesNoWords) {
  fRoot.Set("STUB_CURL_RESULT", "7");
  fRoot.Set("STUB_CURL_ERROR", "the server's words");
  EXPECT_THAT(fRoot.Run({Download(fFile), "last-failure"}), EndsWith("bare exception\n"));
}

TEST_F(TransferOptions, TheErrorBufferHas256Bytes) {
  hwxtest::MakeFile(fFile, "text");
  fRoot.Set("STUB_CURL_RESULT", "9");
  fRoot.Set("STUB_CURL_ERROR", std::string(300, 'e'));
  EXPECT_EQ(
      fRoot.Run({Upload(fFile)}),
      "status 27\n" + kTransferError + "Error performing command: " + std::string(255, 'e') + "\n");
}

TEST_F(TransferOptions, AFileThatCannotBeMadeEndsTheDownload) {
  fRoot.Set("STUB_CURL_BLOCKS", "one|two");
  EXPECT_EQ(fRoot.Run({Download(fRoot.Scratch("none/file"))}),
            "status 27\n" + kTransferError +
                "Error performing command: Failure writing output to destination\n");
  EXPECT_EQ(fRoot.CurlCalls().back(), "delivers \"one\", taken 4294967295");
}

TEST_F(TransferOptions, WhatADownloadGotBeforeItFailedStays) {
  fRoot.Set("STUB_CURL_BLOCKS", "one|two");
  fRoot.Set("STUB_CURL_RESULT", "18");
  EXPECT_THAT(fRoot.Run({Download(fFile)}), HasSubstr("status 27\n"));
  EXPECT_EQ(FileText(fFile), "onetwo");
}

}  // namespace
