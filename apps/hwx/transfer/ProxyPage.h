// What the page says that came through a proxy. The library only tells that one came, and a proxy
// that refuses sends one too. Thread-safety: functions without state.

#ifndef HWX_TRANSFER_PROXYPAGE_H
#define HWX_TRANSFER_PROXYPAGE_H

#include <optional>
#include <string>

namespace hwx {

/// The text of the page's title, with each run of white space as one blank; empty if it has none.
std::string PageTitle(const std::string& page);

/// What is wrong, in words, if `page` is empty or is the proxy's own page about an error. Missing
/// if it looks like a page of a web site. Proxies name the error in the page's title or heading.
std::optional<std::string> WhyNotThePage(const std::string& page);

}  // namespace hwx

#endif  // HWX_TRANSFER_PROXYPAGE_H
