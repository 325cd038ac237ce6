#include "hwx/transfer/ServerAddress.h"

#include "hwx/text/Failure.h"

namespace hwx {

namespace {

const char kHexDigits[] = "0123456789ABCDEF";

bool IsPlain(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= '0' && byte <= '9') || std::string_view("-._~").find(byte) != std::string::npos;
}

// Takes the scheme off `text`. Without one, it is FTP.
bool TakeScheme(std::string& text) {
  const std::size_t end = text.find("://");
  if (end == std::string::npos) return false;
  std::string scheme = text.substr(0, end);
  for (char& letter : scheme)
    letter = static_cast<char>(letter >= 'A' && letter <= 'Z' ? letter - 'A' + 'a' : letter);
  if (scheme != "ftp" && scheme != "sftp") {
    throw TFailure("only addresses of ftp:// and sftp:// are known");
  }
  text.erase(0, end + 3);
  return scheme == "sftp";
}

void RequireSoundPort(const std::string& port) {
  const bool isNumber = !port.empty() && port.size() <= 5 &&
                        port.find_first_not_of("0123456789") == std::string::npos;
  if (!isNumber || std::stoi(port) < 1 || std::stoi(port) > 65535) {
    throw TFailure("the port isn't a number from 1 to 65535");
  }
}

// The name, or the number in brackets; then perhaps a port.
void RequireSoundHost(const std::string& host) {
  for (const char byte : host) {
    const bool isPart = IsPlain(byte) || std::string_view(":[]%").find(byte) != std::string::npos ||
                        static_cast<unsigned char>(byte) >= 0x80;
    if (!isPart) throw TFailure("the host's name holds a character that names don't have");
  }
  const std::size_t bracket = host.rfind(']');
  const std::size_t colon = host.find(':', bracket == std::string::npos ? 0 : bracket);
  if (host.empty() || colon == 0) throw TFailure("the address holds no host");
  if (colon != std::string::npos) RequireSoundPort(host.substr(colon + 1));
}

}  // namespace

std::string TServerAddress::HostName() const {
  if (!fHost.empty() && fHost.front() == '[') return fHost.substr(1, fHost.find(']') - 1);
  return fHost.substr(0, fHost.find(':'));
}

std::string TServerAddress::HostWith(const std::string& password) const {
  if (fUser.empty()) return fHost;
  const std::string user = UrlEscaped(fUser, "%");
  return password.empty() ? user + "@" + fHost : user + ":" + UrlEscaped(password) + "@" + fHost;
}

TServerAddress ParseServerAddress(const std::string& text) {
  TServerAddress address;
  std::string rest = text;
  address.fIsSecure = TakeScheme(rest);
  const std::size_t slash = rest.find('/');
  if (slash != std::string::npos) address.fPath = rest.substr(slash + 1);
  std::string server = rest.substr(0, slash);
  const std::size_t at = server.rfind('@');
  if (at != std::string::npos) {
    address.fUser = server.substr(0, at);
    server.erase(0, at + 1);
    if (address.fUser.empty()) throw TFailure("the address holds no user in front of the \"@\"");
  }
  if (address.fUser.find(':') != std::string::npos) {
    throw TFailure(
        "a password has no place on the command line, where other users see it; it is asked for, "
        "or read from the file of --password-file");
  }
  RequireSoundHost(server);
  address.fHost = server;
  return address;
}

std::string UrlEscaped(std::string_view text, std::string_view kept) {
  std::string escaped;
  for (const char byte : text) {
    if (IsPlain(byte) || kept.find(byte) != std::string_view::npos) {
      escaped += byte;
    } else {
      const auto value = static_cast<unsigned char>(byte);
      escaped.append({'%', kHexDigits[value / 16], kHexDigits[value % 16]});
    }
  }
  return escaped;
}

}  // namespace hwx
