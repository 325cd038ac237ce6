// The proxy check through a real proxy.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Proxies.h"
#include "support/TransferRoot.h"

namespace hwxtest {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string kPage = "<html><title>A page</title></html>\n";
const std::string kFailure =
    "status 35\nError: TOSSpecific|CheckProxySetting: curl_easy_perform FAILed;\n";

class RealProxy : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(HWX_TEST_LIBCURL)) GTEST_SKIP() << "there is no libcurl";
    if (const auto whyNot = HttpProxy::WhyNot()) GTEST_SKIP() << *whyNot;
    fRoot.AddLink(HWX_TEST_LIBCURL, "libcurl.so.4");
    std::filesystem::create_directory(fDirectory);
  }

  std::string Check(const std::string& user, const std::string& password, int port) {
    const std::string output =
        fRoot.Run({"chdir:" + fDirectory,
                   "proxy:" + user + "|" + password + "|127.0.0.1|" + std::to_string(port)});
    return output.substr(output.find('\n') + 1);
  }

  TransferRoot fRoot;
  WebServer fWeb{kPage};
  std::string fDirectory = fRoot.Scratch("current");
  std::string fPage = fDirectory + "/content.html";
};

TEST_F(RealProxy, BringsThePageTwiceForTwoChecks) {
  const HttpProxy proxy(fWeb.Port());
  EXPECT_EQ(Check("", "", proxy.Port()), "returned 1\n");
  EXPECT_EQ(FileText(fPage), kPage);
  EXPECT_EQ(Check("", "", proxy.Port()), "returned 1\n");
  EXPECT_EQ(FileText(fPage), kPage + kPage);
  EXPECT_THAT(fWeb.Requests(), HasSubstr("Host: " HWX_TEST_PROXY_CHECK_HOST));
}

TEST_F(RealProxy, TakesThePassword) {
  const HttpProxy proxy(fWeb.Port(), "me", "word");
  EXPECT_EQ(Check("me", "word", proxy.Port()), "returned 1\n");
  EXPECT_EQ(FileText(fPage), kPage);
}

TEST_F(RealProxy, ThatRefusesTheUserCountsAsSuccessForItAnswers) {
  const HttpProxy proxy(fWeb.Port(), "me", "word");
  EXPECT_EQ(Check("", "", proxy.Port()), "returned 1\n");
  EXPECT_EQ(Check("me", "wrong", proxy.Port()), "returned 1\n");
  EXPECT_THAT(FileText(fPage), HasSubstr("407 Proxy Authentication Required"));
  EXPECT_THAT(FileText(fPage), Not(HasSubstr("A page")));
  EXPECT_EQ(fWeb.Requests(), "(none)");
}

TEST_F(RealProxy, SendsTheUserAndPasswordAsPartsOfAURL) {
  EXPECT_EQ(Check("m%65", "w%3ard", fWeb.Port()), "returned 1\n");  // the server as a proxy
  EXPECT_THAT(fWeb.Requests(), HasSubstr("Proxy-Authorization: Basic bWU6dzpyZA=="));  // me:w:rd
}

TEST_F(RealProxy, ThatIsNotThereFails) {
  EXPECT_THAT(Check("", "", FreePort()), HasSubstr(kFailure));
  EXPECT_FALSE(std::filesystem::exists(fPage));
}

TEST_F(RealProxy, FailsLikeTheNetworkIfThePageCannotBeWritten) {
  const HttpProxy proxy(fWeb.Port());
  std::filesystem::create_directory(fPage);  // in the place of the file
  EXPECT_THAT(Check("", "", proxy.Port()), HasSubstr(kFailure));
}

}  // namespace
}  // namespace hwxtest
