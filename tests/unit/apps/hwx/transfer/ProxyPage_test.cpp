#include "hwx/transfer/ProxyPage.h"

#include <gtest/gtest.h>

namespace hwx {
namespace {

std::string WithTitle(const std::string& title) {
  return "<html><head><title>" + title + "</title></head></html>";
}

TEST(PageTitle, IsOneLine) {
  EXPECT_EQ(PageTitle("<HTML><TITLE lang='en'>\n An  example\tpage\r\n</Title>"),
            "An example page");
  EXPECT_EQ(PageTitle("<html>no title</html>"), "");
  EXPECT_EQ(PageTitle("<title>never closed"), "");
  EXPECT_EQ(PageTitle("<title"), "");
}

TEST(WhyNotThePage, LetsAWebSitesPagePass) {
  for (const char* title : {"Example Domain", "", "5000 years of proxies", "Terror in 1407"})
    EXPECT_EQ(WhyNotThePage(WithTitle(title)), std::nullopt) << title;
  EXPECT_EQ(WhyNotThePage("plain text"), std::nullopt);
}

TEST(WhyNotThePage, KnowsARefusal) {
  for (const char* title :
       {"407 Proxy Authentication Required", "401 Unauthorized", "ERROR: Cache Access Denied"})
    EXPECT_EQ(WhyNotThePage(WithTitle(title)), "it refused the user or the password") << title;
  EXPECT_EQ(WhyNotThePage("<h1>Proxy authentication required</h1>"),
            "it refused the user or the password");
  EXPECT_EQ(WhyNotThePage(WithTitle(std::string("\0 407 no", 9))),
            "it refused the user or the password");
}

TEST(WhyNotThePage, KnowsAProxysOwnError) {
  EXPECT_EQ(WhyNotThePage(WithTitle("502 Bad Gateway")),
            "it sent a page about an error, \"502 Bad Gateway\"");
  EXPECT_EQ(WhyNotThePage(WithTitle("ERROR: The requested URL could not be retrieved")),
            "it sent a page about an error, \"ERROR: The requested URL could not be retrieved\"");
  EXPECT_EQ(WhyNotThePage(""), "what came back is empty");
}

TEST(WhyNotThePage, StandsAVeryLongHeading) {
  EXPECT_EQ(WhyNotThePage(WithTitle(std::string(10000000, 'x'))), std::nullopt);
}

}  // namespace
}  // namespace hwx
