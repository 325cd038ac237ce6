#include "hwx/transfer/Password.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "hwx/text/Failure.h"
#include "support/FileText.h"
#include "support/TemporaryDirectory.h"
#include "support/TextOf.h"

namespace hwx {
namespace {

class PasswordFile : public testing::Test {
 protected:
  std::string Read(const std::string& text, unsigned mode = 0600) {
    hwxtest::MakeFile(fPath, text);
    std::filesystem::permissions(fPath, std::filesystem::perms(mode));
    return PasswordFromFile(fPath);
  }

  std::string WhyNot(const std::string& path) {
    return hwxtest::TextOf<TFailure>([&] { PasswordFromFile(path); });
  }

  hwxtest::TemporaryDirectory fDirectory;
  std::string fPath = fDirectory / "password";
};

TEST_F(PasswordFile, GivesItsFirstLine) {
  EXPECT_EQ(Read("word"), "word");
  EXPECT_EQ(Read("word\n"), "word");
  EXPECT_EQ(Read(" two words \nmore\n"), " two words ");
  EXPECT_EQ(Read("\n"), "");
  EXPECT_EQ(Read("word", 0400), "word");
}

TEST_F(PasswordFile, MayNotBeEmptyOrAbsent) {
  EXPECT_THROW(Read(""), TFailure);
  EXPECT_EQ(WhyNot(fPath + "-none"),
            "the password can't be read from " + fPath + "-none: No such file or directory");
}

TEST_F(PasswordFile, MayBeReadByItsOwnerOnly) {
  for (const unsigned mode : {0640u, 0604u, 0620u, 0602u, 0610u, 0601u})
    EXPECT_THROW(Read("word", mode), TFailure) << std::oct << mode;
}

TEST_F(PasswordFile, MustBeAFile) {
  ASSERT_EQ(::mkfifo((fPath + "-pipe").c_str(), 0600), 0);
  const std::string reason = ": it must be a file of yours that nobody else may read (chmod 600)";
  for (const std::string& path : {fPath + "-pipe", fDirectory.Path(), std::string("/dev/null")})
    EXPECT_EQ(WhyNot(path), "the password isn't read from " + path + reason);
}

}  // namespace
}  // namespace hwx
