#include "providers/linux/Caches.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(CacheSize, HasAUnitOrNone) {
  EXPECT_EQ(ParseCacheSize("48K"), 48u * 1024);
  EXPECT_EQ(ParseCacheSize("2M"), 2u * 1024 * 1024);
  EXPECT_EQ(ParseCacheSize("512"), 512u);
  for (const char* text : {"", "K", "4G", "-1K", "18446744073709551615M"}) {
    EXPECT_FALSE(ParseCacheSize(text)) << text;
  }
}

TEST(NumberList, HasNumbersAndRanges) {
  EXPECT_THAT(ParseNumberList("0-2,8,10-11"), ElementsAre(0, 1, 2, 8, 10, 11));
  EXPECT_THAT(ParseNumberList("7"), ElementsAre(7));
  for (const char* text : {"", "x", "2-1", "1-", "0-18446744073709551615", "0-999999,0-9"}) {
    EXPECT_THAT(ParseNumberList(text), IsEmpty()) << text;
  }
}

class Caches : public ::testing::Test {
 protected:
  void Write(const std::string& path, const std::string& text) {
    WriteMachineFile(fDirectory.Path(), path, text);
  }

  const TemporaryDirectory fDirectory;
  ScopedEnvironment fTables{"HWX_SMBIOS_TABLES", std::nullopt};
};

TEST_F(Caches, TellWhatTheirFilesSay) {
  Write("proc/cpuinfo", "processor : 0\n\nprocessor : 1\n");
  const std::string index = "sys/devices/system/cpu/cpu0/cache/index4/";
  Write(index + "level", "4\n");
  Write(index + "type", "Unified\n");
  Write(index + "size", "64M\n");
  Write(index + "ways_of_associativity", "18\n");
  Write(index + "write_policy", "WriteBack\n");
  Write(index + "shared_cpu_list", "0\n");
  const auto caches = ReadCaches(fDirectory.Path());
  ASSERT_THAT(caches, SizeIs(1));
  EXPECT_EQ(caches[0].fDeviceID, "L4 Cache 0");
  EXPECT_EQ(caches[0].fLevel, 1);
  EXPECT_EQ(caches[0].fLevelName, "L4");
  EXPECT_EQ(caches[0].fType, 4);
  EXPECT_EQ(caches[0].fSize, 64u * 1024 * 1024);
  EXPECT_EQ(caches[0].fAssociativity, 1);
  EXPECT_EQ(caches[0].fAssociativityName, "18-way Set-Associative");
  EXPECT_EQ(caches[0].fWritePolicy, 2);
  EXPECT_FALSE(caches[0].fLineSize);
  EXPECT_THAT(caches[0].fCores, ElementsAre("QORSG:CPU0:Core0"));
  EXPECT_THAT(caches[0].fProcessors, IsEmpty());
}

TEST_F(Caches, ComeToAnEndOnOddFiles) {
  Write("proc/cpuinfo", "processor : 0\n");
  const std::string cache = "sys/devices/system/cpu/cpu0/cache/";
  Write(cache + "index0/shared_cpu_list", "everybody\n");
  Write(cache + "index1/shared_cpu_list", "0-18446744073709551615\n");
  Write(cache + "uevent", "\n");
  const auto caches = ReadCaches(fDirectory.Path());
  ASSERT_THAT(caches, SizeIs(2));
  EXPECT_EQ(caches[0].fLevel, 0);
  EXPECT_THAT(caches[0].fCores, IsEmpty());
}

}  // namespace

}  // namespace hwxtest
