// `hwx check-network` and `hwx check-proxy`.

#include <gmock/gmock.h>

#include "integration/hwx/HwxProcess.h"
#include "support/FileText.h"
#include "support/Proxies.h"
#include "support/TerminalProcess.h"

namespace hwxtest {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(HwxCheckNetwork, TellsWhetherANameResolves) {
  const HwxProcess hwx;
  const HwxResult known = hwx.Run({"check-network", "127.0.0.1"});
  EXPECT_EQ(known.fStatus, 0);
  EXPECT_EQ(known.fOut, "The name 127.0.0.1 resolves.\n");
  const HwxResult unknown = hwx.Run({"check-network", "nowhere.invalid"});
  EXPECT_EQ(unknown.fStatus, 1);
  EXPECT_EQ(unknown.fOut, "");
  EXPECT_EQ(unknown.fErr, "hwx: the name nowhere.invalid doesn't resolve\n");
}

class HwxCheckProxy : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(HWX_TEST_LIBCURL)) GTEST_SKIP() << "there is no libcurl";
    if (const auto whyNot = HttpProxy::WhyNot()) GTEST_SKIP() << *whyNot;
    fHwx.Set("ASAN_OPTIONS", "detect_leaks=0");
  }

  HwxResult Check(int port, const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments = {"check-proxy", "127.0.0.1", std::to_string(port)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return fHwx.Run(arguments);
  }

  std::vector<std::string> LoginWith(const std::string& password) {
    MakeFile(fScratch / "password", password + "\n");
    std::filesystem::permissions(fScratch / "password", std::filesystem::perms(0600));
    return {"--user", "me", "--password-file", fScratch / "password"};
  }

  static std::string Works(int port) {
    return "The proxy 127.0.0.1:" + std::to_string(port) +
           " works: it brought the page of " HWX_TEST_PROXY_CHECK_HOST ", \"A page\".\n";
  }

  static std::string Answers(int port, const std::string& but) {
    return "hwx: the proxy 127.0.0.1:" + std::to_string(port) + " answers, but " + but + "\n";
  }

  TemporaryDirectory fScratch;
  WebServer fWeb{"<html><head><title>A\n page</title></head></html>\n"};
  HwxProcess fHwx;
};

TEST_F(HwxCheckProxy, ShowsThePageThatCame) {
  const HttpProxy proxy(fWeb.Port());
  const HwxResult result = Check(proxy.Port());
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_EQ(result.fOut, Works(proxy.Port()));
  EXPECT_EQ(result.fErr, "");
}

TEST_F(HwxCheckProxy, LogsIn) {
  const HttpProxy proxy(fWeb.Port(), "me", "word");
  EXPECT_EQ(Check(proxy.Port(), LoginWith("word")).fOut, Works(proxy.Port()));
  TerminalProcess child([&] {
    fHwx.Become({"check-proxy", "127.0.0.1", std::to_string(proxy.Port()), "--user", "me"});
  });
  ASSERT_TRUE(child.WaitFor("Password of me at 127.0.0.1:" + std::to_string(proxy.Port()) + ": "));
  child.Type("word\n");
  EXPECT_EQ(child.End(), 0);
  EXPECT_THAT(child.Screen(), Not(HasSubstr("word\r")));
}

TEST_F(HwxCheckProxy, TellsARefusedPasswordFromSuccess) {
  const HttpProxy proxy(fWeb.Port(), "me", "word");
  const std::string refused = Answers(proxy.Port(), "it refused the user or the password");
  for (const auto& options : {std::vector<std::string>(), LoginWith("wrong")}) {
    const HwxResult result = Check(proxy.Port(), options);
    EXPECT_EQ(result.fStatus, 1);
    EXPECT_EQ(result.fOut, "");
    EXPECT_EQ(result.fErr, refused);
  }
}

TEST_F(HwxCheckProxy, TellsAPageOfTheProxysOwnFromSuccess) {
  const HttpProxy proxy(FreePort());  // it can't reach the web
  const HwxResult result = Check(proxy.Port());
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_THAT(result.fErr, HasSubstr(" answers, but it sent a page about an error, \"50"));
}

TEST_F(HwxCheckProxy, TellsThatNothingComesThrough) {
  const int port = FreePort();
  const HwxResult result = Check(port);
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fErr,
            "hwx: no page comes through the proxy 127.0.0.1:" + std::to_string(port) + "\n");
}

TEST_F(HwxCheckProxy, PassesAnyPasswordOnUnchanged) {
  EXPECT_EQ(Check(fWeb.Port(), LoginWith("w%41:@ \xC3\xA4")).fStatus, 0);
  EXPECT_THAT(fWeb.Requests(),  // me:w%41:@ ä
              HasSubstr("Proxy-Authorization: Basic bWU6dyU0MTpAIMOk\r\n"));
}

TEST_F(HwxCheckProxy, LeavesNothingInTheCurrentDirectory) {
  const HttpProxy proxy(fWeb.Port());
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(fScratch.Path());
  Check(proxy.Port());
  std::filesystem::current_path(before);
  EXPECT_TRUE(std::filesystem::is_empty(fScratch.Path()));
}

TEST_F(HwxCheckProxy, RefusesWrongUsage) {
  for (const char* port : {"0", "65536", "http"})
    EXPECT_EQ(fHwx.Run({"check-proxy", "127.0.0.1", port}).fStatus, 2);
  EXPECT_EQ(Check(80, {"--password-file", "file"}).fStatus, 2);
}

}  // namespace
}  // namespace hwxtest
