#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hwxcore/os/TOSSpecific.h"
#include "support/ScopedLogCapture.h"
#include "support/TransferRoot.h"

using hwxtest::FileText;
using hwxtest::ScopedLogCapture;
using hwxtest::TransferRoot;
using NQORHWX20::TOSSpecific;
using testing::Contains;
using testing::ElementsAre;
using testing::Pair;

namespace {

const std::string kProxyError = "Error: TOSSpecific|CheckProxySetting: ";

class ProxyCheck : public testing::Test {
 protected:
  ProxyCheck() { std::filesystem::create_directory(fDirectory); }

  void AddCurl() { fRoot.AddCurl("stub_curl", "libcurl.so"); }

  /// Runs the check in a directory of its own; the steps that follow come behind.
  std::string Check(const std::string& user, const std::string& password,
                    const std::string& proxy = "10.0.0.1",
                    const std::vector<std::string>& then = {}) {
    std::vector<std::string> steps = {"chdir:" + fDirectory,
                                      "proxy:" + user + "|" + password + "|" + proxy + "|3128"};
    steps.insert(steps.end(), then.begin(), then.end());
    const std::string output = fRoot.Run(steps);
    const std::string first = "chdir 0\n";
    return output.rfind(first, 0) == 0 ? output.substr(first.size()) : "no such directory";
  }

  TransferRoot fRoot;
  std::string fDirectory = fRoot.Scratch("current");
  std::string fPage = fDirectory + "/content.html";
};

TEST_F(ProxyCheck, SetsItsOptionsInOrder) {
  AddCurl();
  fRoot.Set("STUB_CURL_BLOCKS", "<html>|</html>");
  EXPECT_EQ(Check("user", "word", "10.0.0.1", {"mapped:stub_curl.so"}), "returned 1\nnot mapped\n");
  EXPECT_THAT(fRoot.CurlCalls(),
              ElementsAre("curl_global_init 3 of libcurl.so", "curl_easy_init",
                          "curl_easy_setopt 10010 the error buffer",
                          "curl_easy_setopt 10004 \"10.0.0.1\"", "curl_easy_setopt 59 3128",
                          "curl_easy_setopt 10002 \"" HWX_TEST_PROXY_CHECK_HOST "/\"",
                          "curl_easy_setopt 20011 the callback",
                          "curl_easy_setopt 10001 \"./content.html\", null",
                          "curl_easy_setopt 10006 \"user:word\"", "curl_easy_perform",
                          "delivers \"<html>\", taken 6", "delivers \"</html>\", taken 7",
                          "curl_easy_cleanup", "curl_global_cleanup"));
  EXPECT_EQ(FileText(fPage), "<html></html>");
}

TEST_F(ProxyCheck, OpensLibcurlAsATransferDoes) {
  if (!TransferRoot::TracesLoader()) GTEST_SKIP() << "calls of the loader can't be traced";
  Check("", "");
  const std::string path = "dlopen " + fRoot / "libcurl.so";
  EXPECT_THAT(fRoot.LoaderCalls(),
              ElementsAre(path + " 1", path + ".4 1", path + " 1", path + ".4 1", path + ".3 1",
                          path + ".2 1", "dlerror text"));
  AddCurl();
  Check("", "");
  EXPECT_THAT(fRoot.LoaderCalls(), testing::IsSupersetOf({"dlsym curl_global_cleanup", "dlclose"}));
}

TEST_F(ProxyCheck, SendsNoCredentialsWithoutAUser) {
  AddCurl();
  EXPECT_EQ(Check("", "word"), "returned 1\n");
  for (const std::string& call : fRoot.CurlCalls())
    EXPECT_EQ(call.find("10006"), std::string::npos);
}

TEST_F(ProxyCheck, SendsAUserWithoutAPassword) {
  AddCurl();
  EXPECT_EQ(Check("user", ""), "returned 1\n");
  EXPECT_THAT(fRoot.CurlCalls(), Contains("curl_easy_setopt 10006 \"user:\""));
}

TEST_F(ProxyCheck, GoesDirectlyWithoutAProxy) {
  AddCurl();
  EXPECT_EQ(Check("", "", ""), "returned 1\n");
  EXPECT_THAT(fRoot.CurlCalls(), Contains("curl_easy_setopt 10004 \"\""));
}

TEST_F(ProxyCheck, LeavesThePageOfEachCheckInTheFile) {
  AddCurl();
  fRoot.Set("STUB_CURL_BLOCKS", "page");
  EXPECT_EQ(Check("", ""), "returned 1\n");
  EXPECT_EQ(Check("", ""), "returned 1\n");
  EXPECT_EQ(FileText(fPage), "pagepage");
}

TEST_F(ProxyCheck, FailsLikeTheNetworkIfThePageCannotBeWritten) {
  AddCurl();
  fRoot.Set("STUB_CURL_BLOCKS", "page");
  std::filesystem::create_directory(fPage);  // in the place of the file
  EXPECT_EQ(Check("", "", "10.0.0.1", {"mapped:stub_curl.so"}),
            "status 35\n" + kProxyError + "curl_easy_perform FAILed;\nmapped\n");
  EXPECT_EQ(fRoot.CurlCalls().back(), "delivers \"page\", taken 4294967295");
}

TEST_F(ProxyCheck, HasOneStatusForAllResults) {
  AddCurl();
  fRoot.Set("STUB_CURL_ERROR", "what libcurl says");
  for (const char* result : {"5", "6", "7", "56"}) {
    fRoot.Set("STUB_CURL_RESULT", result);
    EXPECT_EQ(Check("", ""), "status 35\n" + kProxyError + "curl_easy_perform FAILed;\n");
  }
}

TEST_F(ProxyCheck, SaysWhyLibcurlCannotBeOpened) {
  EXPECT_EQ(Check("", ""), "status 35\n" + kProxyError + "Error opening curl library: " +
                               fRoot.NotFound("libcurl.so.2") + "\n");
}

TEST_F(ProxyCheck, FailsWithoutAHandle) {
  AddCurl();
  fRoot.Set("STUB_CURL_NO_HANDLE", "1");
  EXPECT_EQ(Check("", "", "10.0.0.1", {"mapped:stub_curl.so"}),
            "status 35\n" + kProxyError + "Error initalizing curl\nmapped\n");
}

TEST_F(ProxyCheck, FailsAtEachOptionThatIsRefused) {
  AddCurl();
  const std::string ofTransfer =
      "Error: TOSSpecific|CurlTransferFile: Error setting curl write function";
  const std::vector<std::pair<int, std::string> > refusals = {
      {10010, kProxyError + "Error configuring curl error buffer"},
      {10004, kProxyError + "Error setting proxyIp"},
      {59, kProxyError + "Error setting proxyPort"},
      {10002, kProxyError + "Error setting URL"},
      {20011, ofTransfer},
      {10001, ofTransfer},
      {10006, kProxyError + "Error setting userId & passwd"}};
  for (const auto& [option, line] : refusals) {
    fRoot.Set("STUB_CURL_REFUSES", std::to_string(option));
    EXPECT_EQ(Check("user", "word", "10.0.0.1", {"mapped:stub_curl.so"}),
              "status 35\n" + line + "\nmapped\n");
    EXPECT_THAT(fRoot.CurlCalls().back(),
                testing::StartsWith("curl_easy_setopt " + std::to_string(option)));
  }
}

TEST(DetectHostnameAvailable, GivesZeroForAKnownHost) {
  ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::DetectHostnameAvailable("127.0.0.1", "never read"), 0);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "TOSSpecific debug output: Network is ok.")));
}

TEST(DetectHostnameAvailable, GivesOneForAnUnknownHost) {
  ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::DetectHostnameAvailable("nowhere.invalid", ""), 1);
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "TOSSpecific debug output: Network is unavailable.")));
}

}  // namespace
