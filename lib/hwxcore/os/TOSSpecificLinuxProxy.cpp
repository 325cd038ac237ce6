#include "hwxcore/os/TOSSpecific.h"

#include <netdb.h>

#include <array>

#include "hwxcore/os/detail/CurlLibrary.h"

namespace NQORHWX20 {

namespace {

using detail::TCurlLibrary;
using detail::TCurlSink;

const char kTestURL[] = HWX_PROXY_CHECK_HOST "/";
const char kPageFile[] = "./content.html";  // Contract: proxy-page-stays.

}  // namespace

int TOSSpecific::DetectHostnameAvailable(std::string hostname, std::string) {
  if (!::gethostbyname(hostname.c_str())) {
    DebugOut("Network is unavailable.");
    return 1;
  }
  DebugOut("Network is ok.");
  return 0;  // Contract: resolves-to-zero.
}

int TOSSpecific::CheckProxySetting(std::string userId, std::string passwd, std::string proxyIp,
                                   long proxyPort) {
  TCurlLibrary curl(__func__);
  std::array<char, detail::kCurlErrorSize> error{};  // never read. Contract: proxy-one-failure.
  TCurlSink sink = {kPageFile, nullptr};
  curl.SetOption(detail::kCurlOptErrorBuffer, static_cast<void*>(error.data()),
                 "Error configuring curl error buffer");
  curl.SetOption(detail::kCurlOptProxy, proxyIp, "Error setting proxyIp");
  curl.SetOption(detail::kCurlOptProxyPort, proxyPort, "Error setting proxyPort");
  curl.SetOption(detail::kCurlOptURL, kTestURL, "Error setting URL");
  curl.SetSink(sink);
  if (!userId.empty()) {
    curl.SetOption(detail::kCurlOptProxyUserPwd, userId + ":" + passwd,
                   "Error setting userId & passwd");
  }
  if (curl.Perform() != detail::kCurlOK) {
    curl.Fail("curl_easy_perform FAILed;", kHWXStatusLibCurlFailure);
  }
  curl.Close();
  return 1;
}

}  // namespace NQORHWX20
