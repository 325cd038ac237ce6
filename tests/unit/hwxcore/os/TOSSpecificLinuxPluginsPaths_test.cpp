#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "hwxcore/os/TOSSpecific.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "support/TextOf.h"

using hwxtest::ScopedLogCapture;
using hwxtest::StatusOf;
using NQORHWX20::TOSSpecific;
using testing::IsEmpty;

namespace {

TEST(BuildSpecificationPath, NamesTheDocumentBesideTheModule) {
  EXPECT_EQ(TOSSpecific::BuildSpecificationPath("/opt/x/libfoo.pi.so", "pi"),
            "/opt/x/foo.properties.xml");
  EXPECT_EQ(TOSSpecific::BuildSpecificationPath("libfoo.nsp.so", "nsp"), "foo.properties.xml");
}

TEST(BuildSpecificationPath, TakesPlainPlugInsByDefault) {
  EXPECT_EQ(TOSSpecific::BuildSpecificationPath("/opt/x/libfoo.pi.so"),
            "/opt/x/foo.properties.xml");
}

TEST(BuildSpecificationPath, CutsAtTheFirstMark) {
  EXPECT_EQ(TOSSpecific::BuildSpecificationPath("/opt/libfoo.pi.so.pi.so", "pi"),
            "/opt/foo.properties.xml");
}

TEST(BuildSpecificationPath, DropsTheLastLibOfTheWholePath) {
  EXPECT_EQ(TOSSpecific::BuildSpecificationPath("/usr/lib/foo.pi.so"), "/usr//foo.properties.xml");
  EXPECT_EQ(TOSSpecific::BuildSpecificationPath("/usr/lib/libfoo.pi.so"),
            "/usr/lib/foo.properties.xml");
  EXPECT_EQ(TOSSpecific::BuildSpecificationPath("/usr/liblib.pi.so"), "/usr/lib.properties.xml");
}

void ExpectEraseOutOfRange(const std::string& path, const std::string& word) {
  ScopedLogCapture log;
  EXPECT_EQ(
      hwxtest::TextOf<std::out_of_range>([&] { TOSSpecific::BuildSpecificationPath(path, word); }),
      "basic_string::erase")
      << path;
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(BuildSpecificationPath, PassesTheStandardErrorOnForALibBehindTheCut) {
  ExpectEraseOutOfRange("/opt/foo.pi.so.lib", "pi");
  ExpectEraseOutOfRange("/opt/libfoo.pi.so/lib", "pi");
  ExpectEraseOutOfRange("/opt/libfoo.lib.so", "lib");
}

TEST(BuildSpecificationPath, FailsWithoutTheMark) {
  ScopedLogCapture log;
  for (const char* const path : {"/opt/libfoo.so", "/opt/libfoo.pi", "/opt/libfoopi.so", ""}) {
    EXPECT_EQ(StatusOf([&] { TOSSpecific::BuildSpecificationPath(path); }),
              NQORHWX20::kHWXStatusFail)
        << path;
  }
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(BuildSpecificationPath, FailsWithoutALib) {
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([] { TOSSpecific::BuildSpecificationPath("/opt/foo.nsp.so", "nsp"); }),
            NQORHWX20::kHWXStatusFail);
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(BuildRegistrationPath, NamesTheDocumentBesideTheModule) {
  EXPECT_EQ(TOSSpecific::BuildRegistrationPath("/opt/x/libfoo.pi.so", "pi"),
            "/opt/x/foo.registration.xml");
  EXPECT_EQ(TOSSpecific::BuildRegistrationPath("/usr/lib/foo.nsp.so", "nsp"),
            "/usr//foo.registration.xml");
}

TEST(BuildRegistrationPath, FailsAsTheOtherDoes) {
  ScopedLogCapture log;
  for (const char* const path : {"/opt/foo.nsp.so", "/opt/libfoo.so"}) {
    EXPECT_EQ(StatusOf([&] { TOSSpecific::BuildRegistrationPath(path, "nsp"); }),
              NQORHWX20::kHWXStatusFail)
        << path;
  }
  EXPECT_THROW(TOSSpecific::BuildRegistrationPath("/opt/foo.pi.so.lib", "pi"), std::out_of_range);
  EXPECT_THAT(log.Lines(), IsEmpty());
}

}  // namespace
