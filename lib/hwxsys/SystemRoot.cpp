#include "hwxsys/SystemRoot.h"

#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace hwxsys {

namespace {

constexpr int kMostLinks = 40;  // as many as the kernel follows

// Where the files are said to be; empty for this machine.
std::string NamedRoot() {
  const char* value = std::getenv("HWX_SYSROOT");
  std::string root = value == nullptr ? "" : value;
  while (!root.empty() && root.back() == '/') {
    root.pop_back();
  }
  return root;
}

// What a link holds; empty for anything else.
std::string LinkTarget(const std::string& path) {
  char target[PATH_MAX];
  const ssize_t size = ::readlink(path.c_str(), target, sizeof target);
  return size <= 0 ? std::string() : std::string(target, static_cast<std::size_t>(size));
}

// Takes the first name off a path, with the "/" before it.
std::string TakeName(std::string& path) {
  const std::size_t begin = path.find_first_not_of('/');
  if (begin == std::string::npos) {
    path.clear();
    return path;
  }
  const std::size_t end = path.find('/', begin);
  const std::string name = path.substr(begin, end - begin);
  path = end == std::string::npos ? std::string() : path.substr(end);
  return name;
}

}  // namespace

std::string SystemRoot() {
  const std::string root = NamedRoot();
  struct stat status {};
  if (root.empty()) {
    return root;
  }
  if (::stat(root.c_str(), &status) != 0) {
    throw std::runtime_error("HWX_SYSROOT names " + root + ": " + std::strerror(errno));
  }
  if (!S_ISDIR(status.st_mode)) {
    throw std::runtime_error("HWX_SYSROOT names " + root + ", which is no directory");
  }
  return root;
}

std::string FollowedInRoot(const std::string& path) {
  const std::string root = NamedRoot();
  if (root.empty() || path.compare(0, root.size() + 1, root + "/") != 0) {
    return path;
  }
  std::string followed = root;
  std::string rest = path.substr(root.size());
  for (int links = 0; !rest.empty();) {
    const std::string name = TakeName(rest);
    if (name == "..") {
      followed.resize(followed == root ? root.size() : followed.rfind('/'));
    } else if (!name.empty() && name != ".") {
      const std::string target = LinkTarget(followed + "/" + name);
      if (target.empty()) {
        followed += "/" + name;
        continue;
      }
      if (++links > kMostLinks) {
        return std::string();
      }
      followed = target.front() == '/' ? root : followed;
      rest = target + rest;
    }
  }
  return followed;
}

}  // namespace hwxsys
