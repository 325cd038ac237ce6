#include "support/Structures.h"
#include "unit/providers/linux/ProviderFixture.h"

// The provider says why a class has no instances.

namespace hwxtest {

namespace {

using ::testing::StartsWith;

class EmptyClasses : public ProviderTest {
 protected:
  // Why a class has no instances; "none" if nothing is said.
  std::string Reason(const std::string& className) {
    for (const auto& status : List("QORSG_ClassStatus")) {
      if (Value(status, "ClassName").ToString(10) == className) {
        return Value(status, "Reason").ToString(10);
      }
    }
    return "none";
  }

  void Write(const std::string& file, const std::string& text) {
    WriteMachineFile(fDirectory.Path(), file, text);
  }
};

TEST_F(EmptyClasses, SayThatTheirListIsAbsent) {
  EXPECT_EQ(Reason("CIM_USBDevice"),
            fDirectory / "sys/bus/usb/devices" + ": No such file or directory");
  EXPECT_EQ(Reason("QORSG_Processor"), fDirectory / "proc/cpuinfo" + ": No such file or directory");
  EXPECT_THAT(Reason("CIM_Chassis"), StartsWith("no firmware tables: "));
}

TEST_F(EmptyClasses, SayThatTheirListHasNothing) {
  Write("sys/class/net/lo/type", "772\n");
  EXPECT_EQ(Reason("CIM_EthernetPort"),
            fDirectory / "sys/class/net" + " lists no ports that speak Ethernet");
  Write("proc/self/mountinfo", "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n");
  EXPECT_EQ(Reason("CIM_LocalFileSystem"), "none");
  EXPECT_EQ(Reason("CIM_FileSystem"),
            fDirectory / "proc/self/mountinfo" + " lists no file systems of servers or programs");
  SmbiosTables().AddEnd().WriteDirectory(fDirectory / "sys/firmware/dmi/tables");
  EXPECT_EQ(Reason("QORSG_PhysicalMemory"), "the firmware's tables list no memory modules");
}

TEST_F(EmptyClasses, SayNothingOfThoseThatHaveInstances) {
  Write("sys/class/net/eth0/type", "1\n");
  Write("proc/cpuinfo", "processor : 0\n");
  EXPECT_EQ(Reason("CIM_EthernetPort"), "none");
  EXPECT_EQ(Reason("QORSG_Processor"), "none");
}

TEST_F(EmptyClasses, ComeWithAReasonEachOnAMachineOfWhichNothingIsKnown) {
  for (const auto& status : List("QORSG_ClassStatus")) {
    const std::string name = Value(status, "ClassName").ToString(10);
    std::size_t count = 0;
    fNamespace->GetClass(name, {})->EnumerateInstances(
        [&count](const boost::shared_ptr<NQORHWX20::ICIMInstance>&) { return ++count != 0; }, false,
        {});
    EXPECT_EQ(count, 0u) << name;
  }
}

}  // namespace

}  // namespace hwxtest
