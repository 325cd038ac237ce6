#include "providers/linux/NetworkPorts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/Machines.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

class NetworkPorts : public ::testing::Test {
 protected:
  void Write(const std::string& file, const std::string& text) {
    WriteMachineFile(fDirectory.Path(), "sys/class/net/" + file, text + "\n");
  }
  void AddPort(const std::string& name) {
    Write(name + "/type", "1");
    Write(name + "/address", "02:fc:00:00:00:0a");
    Write(name + "/addr_assign_type", "0");
    Write(name + "/flags", "0x1003");
    Write(name + "/carrier", "1");
    Write(name + "/operstate", "up");
    Write(name + "/speed", "10000");
    Write(name + "/duplex", "full");
    Write(name + "/mtu", "9000");
  }
  std::vector<TNetworkPort> Read() { return ReadNetworkPorts(fDirectory.Path()); }

  const TemporaryDirectory fDirectory;
};

TEST_F(NetworkPorts, TellAllThatSysShows) {
  AddPort("eth0");
  ASSERT_EQ(Read().size(), 1u);
  const TNetworkPort port = Read()[0];
  EXPECT_EQ(port.fDeviceID, "eth0");
  EXPECT_EQ(port.fPermanentAddress, "02FC0000000A");
  EXPECT_THAT(port.fAddresses, Optional(ElementsAre("02FC0000000A")));
  EXPECT_EQ(port.fLinkTechnology, 2);
  EXPECT_EQ(port.fSpeed, 10000000000u);
  EXPECT_EQ(port.fFullDuplex, true);
  EXPECT_EQ(port.fMTU, 9000u);
  EXPECT_EQ(port.fEnabledState, 2);
  EXPECT_THAT(port.fOperationalStatus, ElementsAre(2));
}

TEST_F(NetworkPorts, AreThoseOfEthernetAlone) {
  Write("lo/type", "772");
  Write("ib0/type", "32");
  Write("odd/type", "\xFF");
  std::filesystem::create_directories(fDirectory / "sys/class/net/vanished");
  EXPECT_THAT(Read(), IsEmpty());
  EXPECT_THAT(ReadNetworkPorts(fDirectory / "absent"), IsEmpty());
}

TEST_F(NetworkPorts, KnowWhetherTheyHaveALink) {
  AddPort("eth0");
  Write("eth0/carrier", "0");
  EXPECT_EQ(Read()[0].fEnabledState, 6);
  std::filesystem::remove(fDirectory / "sys/class/net/eth0/carrier");
  EXPECT_EQ(Read()[0].fEnabledState, 0);
  Write("eth0/flags", "0x1002");
  EXPECT_EQ(Read()[0].fEnabledState, 3);
  Write("eth0/flags", "up");
  EXPECT_EQ(Read()[0].fEnabledState, 0);
}

TEST_F(NetworkPorts, HaveNoPermanentAddressThatSomebodyGaveThem) {
  AddPort("eth0");
  Write("eth0/addr_assign_type", "3");
  EXPECT_FALSE(Read()[0].fPermanentAddress);
  Write("eth0/bonding_slave/perm_hwaddr", "02:fc:00:00:00:0b");
  EXPECT_EQ(Read()[0].fPermanentAddress, "02FC0000000B");
}

TEST_F(NetworkPorts, MayBeWireless) {
  AddPort("wlan0");
  Write("wlan0/phy80211/index", "0");
  EXPECT_EQ(Read()[0].fLinkTechnology, 11);
}

TEST_F(NetworkPorts, LackWhatCannotBeRead) {
  Write("eth0/type", "1");
  ASSERT_EQ(Read().size(), 1u);
  const TNetworkPort port = Read()[0];
  EXPECT_FALSE(port.fPermanentAddress);
  EXPECT_FALSE(port.fAddresses);
  EXPECT_FALSE(port.fSpeed);
  EXPECT_FALSE(port.fFullDuplex);
  EXPECT_FALSE(port.fMTU);
  EXPECT_EQ(port.fEnabledState, 0);
  EXPECT_THAT(port.fOperationalStatus, ElementsAre(0));
}

TEST_F(NetworkPorts, AreNotHeldUpByAFileThatBlocks) {
  AddPort("eth0");
  std::filesystem::remove(fDirectory / "sys/class/net/eth0/speed");
  ASSERT_EQ(::mkfifo((fDirectory / "sys/class/net/eth0/speed").c_str(), 0600), 0);
  ASSERT_EQ(Read().size(), 1u);
  EXPECT_FALSE(Read()[0].fSpeed);
}

TEST_F(NetworkPorts, HaveAddressesOfSixBytes) {
  EXPECT_EQ(ParseMACAddress("ff:FF:0a:1b:2c:3d"), "FFFF0A1B2C3D");
  for (const char* text :
       {"", "02:fc:00:00:00", "02:fc:00:00:00:0a:", "02:fc:00:00:00:0a:0b", "02-fc-00-00-00-0a",
        "02:fc:00:00:00:0g", "02fc0000000a", "2:fc:0:0:0:a", "02:fc:00:00:00:0",
        "80:00:02:08:fe:80:00:00:00:00:00:00:00:02:c9:03:00:00:10:01"}) {
    EXPECT_FALSE(ParseMACAddress(text)) << text;
  }
}

TEST_F(NetworkPorts, HaveTheSpeedOfALinkOnly) {
  EXPECT_EQ(ParseLinkSpeed("100"), 100000000u);
  EXPECT_EQ(ParseLinkSpeed("4294967294"), 4294967294u * std::uint64_t{1000000});
  for (const char* text : {"", "-1", "0", "4294967295", "18446744073709551615", "fast", "10 "}) {
    EXPECT_FALSE(ParseLinkSpeed(text)) << text;
  }
}

TEST_F(NetworkPorts, HaveTheKernelsStatesInTheSchemasNumbers) {
  EXPECT_EQ(OperationalStatus("up"), 2);
  EXPECT_EQ(OperationalStatus("down"), 10);
  EXPECT_EQ(OperationalStatus("testing"), 11);
  EXPECT_EQ(OperationalStatus("notpresent"), 12);
  EXPECT_EQ(OperationalStatus("dormant"), 15);
  EXPECT_EQ(OperationalStatus("lowerlayerdown"), 16);
  EXPECT_EQ(OperationalStatus("unknown"), 0);
  EXPECT_EQ(OperationalStatus("UP"), 0);
}

}  // namespace

}  // namespace hwxtest
