#include <ctime>

#include "support/TimeZoneFile.h"
#include "unit/providers/linux/ProviderFixture.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using Type = TCIMValue::TCIMType;

constexpr const char* kOperatingSystem = "QORSG_OperatingSystem";

class OperatingSystemInstance : public ProviderTest {
 protected:
  std::optional<std::string> Text(const std::string& property) {
    return ReadText(kOperatingSystem, property);
  }
  void SetBootTime(const std::string& seconds) {
    WriteMachineFile(fDirectory.Path(), "proc/stat", "btime " + seconds + "\n");
  }

  // Of the made machine; without it the machine's time is UTC.
  void SetZone(const std::string& rules) {
    WriteMachineFile(fDirectory.Path(), "etc/localtime", TimeZoneFile(rules));
  }

  ScopedEnvironment fZone{"TZ", "IST-5:30"};
};

TEST_F(OperatingSystemInstance, OfAWholeMachineIsKnownInAllParts) {
  AddDebian(fDirectory.Path(), "host");
  ASSERT_EQ(List(kOperatingSystem).size(), 1u);
  EXPECT_EQ(Text("Name"), "Debian GNU/Linux");
  EXPECT_EQ(Text("Version"), "12");
  EXPECT_EQ(Text("Description"), "Debian GNU/Linux 12 (bookworm)");
  EXPECT_EQ(Text("KernelRelease"), "6.1.0-13-amd64");
  EXPECT_EQ(Text("LastBootUpTime"), "20231114221320.000000+000");
  EXPECT_EQ(static_cast<unsigned short>(Read(kOperatingSystem, "OSType")), 36);
  EXPECT_EQ(static_cast<unsigned long>(Read(kOperatingSystem, "TotalVisibleMemorySize")),
            16777216u);
  EXPECT_EQ(static_cast<unsigned long>(Read(kOperatingSystem, "FreePhysicalMemory")), 8388608u);
  EXPECT_EQ(static_cast<unsigned long>(Read(kOperatingSystem, "TotalSwapSpaceSize")), 2097152u);
  EXPECT_EQ(static_cast<unsigned long>(Read(kOperatingSystem, "TotalVirtualMemorySize")),
            18874368u);
  EXPECT_EQ(static_cast<unsigned long>(Read(kOperatingSystem, "FreeVirtualMemory")), 9437184u);
  EXPECT_EQ(static_cast<unsigned int>(Read(kOperatingSystem, "NumberOfUsers")), 2u);
  EXPECT_EQ(static_cast<unsigned int>(Read(kOperatingSystem, "NumberOfProcesses")), 3u);
  EXPECT_EQ(static_cast<unsigned int>(Read(kOperatingSystem, "MaxNumberOfProcesses")), 4194304u);
}

TEST_F(OperatingSystemInstance, OfAnUnknownMachineHasTypedNulls) {
  ASSERT_EQ(List(kOperatingSystem).size(), 1u);
  EXPECT_EQ(Text("Name"), "Linux");
  EXPECT_EQ(Text("OSType"), "36");
  for (const char* property : {"Version", "Description", "KernelRelease"}) {
    EXPECT_TRUE(IsNullOf(Type::kCIMTypeString, kOperatingSystem, property)) << property;
  }
  for (const char* property : {"TotalVisibleMemorySize", "FreePhysicalMemory", "TotalSwapSpaceSize",
                               "TotalVirtualMemorySize", "FreeVirtualMemory"}) {
    EXPECT_TRUE(IsNullOf(Type::kCIMTypeUInt64, kOperatingSystem, property)) << property;
  }
  for (const char* property : {"NumberOfUsers", "NumberOfProcesses", "MaxNumberOfProcesses"}) {
    EXPECT_TRUE(IsNullOf(Type::kCIMTypeUInt32, kOperatingSystem, property)) << property;
  }
  EXPECT_TRUE(IsNullOf(Type::kCIMTypeDateTime, kOperatingSystem, "LastBootUpTime"));
}

TEST_F(OperatingSystemInstance, SumsThatFitNoFieldAreNull) {
  MakeBrokenMachine(fDirectory.Path());
  EXPECT_EQ(Text("TotalVisibleMemorySize"), "18446744073709551615");
  EXPECT_TRUE(IsNullOf(Type::kCIMTypeUInt64, kOperatingSystem, "TotalVirtualMemorySize"));
  EXPECT_TRUE(IsNullOf(Type::kCIMTypeUInt64, kOperatingSystem, "FreeVirtualMemory"));
}

TEST_F(OperatingSystemInstance, BootTimeHasTheOffsetThatHeldThen) {
  SetZone("CET-1CEST,M3.5.0,M10.5.0/3");
  SetBootTime("1700000000");
  EXPECT_EQ(Text("LastBootUpTime"), "20231114231320.000000+060");
  SetBootTime("1690000000");
  EXPECT_EQ(Text("LastBootUpTime"), "20230722062640.000000+120");
  SetZone("EST5");
  EXPECT_EQ(Text("LastBootUpTime"), "20230721232640.000000-300");
}

TEST_F(OperatingSystemInstance, BootTimeThatNoDateTimeHoldsIsNull) {
  SetBootTime("253402300799");
  EXPECT_EQ(Text("LastBootUpTime"), "99991231235959.000000+000");
  for (const char* seconds : {"253402300800", "9223372036854775807", "9223372036854775808",
                              "18446744073709551615", "18446744073709551616", "-1"}) {
    SetBootTime(seconds);
    EXPECT_TRUE(IsNullOf(Type::kCIMTypeDateTime, kOperatingSystem, "LastBootUpTime")) << seconds;
  }
}

TEST_F(OperatingSystemInstance, BootTimeMayBeTheEpoch) {
  for (const char* zone : {"UTC0", "CET-1", "EST5"}) {
    SetZone(zone);
    SetBootTime("0");
    EXPECT_FALSE(Read(kOperatingSystem, "LastBootUpTime").IsNull()) << zone;
    SetBootTime("1");
    EXPECT_FALSE(Read(kOperatingSystem, "LastBootUpTime").IsNull()) << zone;
  }
}

TEST_F(OperatingSystemInstance, LocalTimeIsNow) {
  const std::time_t before = std::time(nullptr);
  const TCIMDateTime now = Read(kOperatingSystem, "LocalDateTime");
  SetBootTime(std::to_string(before));
  const TCIMDateTime then = Read(kOperatingSystem, "LastBootUpTime");
  EXPECT_FALSE(now < then);
  const TCIMDateTime elapsed = now - then;
  EXPECT_EQ(elapsed.GetDay() * 24 + elapsed.GetHour(), 0u);
}

TEST_F(OperatingSystemInstance, TimeZoneIsThatOfTheMachine) {
  const auto offsets = [this] {
    return std::pair(
        static_cast<short>(Read(kOperatingSystem, "CurrentTimeZone")),
        Read(kOperatingSystem, "LocalDateTime").operator TCIMDateTime().GetUTCOffset());
  };
  EXPECT_EQ(offsets(), std::pair(short{0}, short{0}));
  SetZone("EST5");
  EXPECT_EQ(offsets(), std::pair(short{-300}, short{-300}));
  fRoot.Set(std::nullopt);
  EXPECT_EQ(offsets(), std::pair(short{330}, short{330}));
}

TEST_F(OperatingSystemInstance, TellsItsUnits) {
  const auto units = [this](const std::string& property) {
    return fNamespace->GetClass(kOperatingSystem, {})
        ->GetPropertyDecl(property, {})
        ->GetQualifier("Units", {})
        ->GetValue({})
        .ToString(10);
  };
  EXPECT_EQ(units("CurrentTimeZone"), "Minutes");
  EXPECT_EQ(units("TotalVisibleMemorySize"), "KiloBytes");
  EXPECT_EQ(units("FreeVirtualMemory"), "KiloBytes");
}

}  // namespace

}  // namespace hwxtest
