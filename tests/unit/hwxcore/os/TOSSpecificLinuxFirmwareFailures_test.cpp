// What comes back, and what is logged, when the firmware can't be read.

#include <gmock/gmock.h>

#include <climits>
#include <new>

#include "hwxcore/os/TOSSpecific.h"
#include "support/FakeSmBios.h"
#include "support/FirmwareFixture.h"
#include "support/ScopedLogCapture.h"
#include "support/TextOf.h"

namespace {

std::size_t gRefusedSize = 0;  // of the allocation that fails next; 0 for none

// Refuses allocations of one size while it stands.
class TRefusedAllocation {
 public:
  explicit TRefusedAllocation(std::size_t size) { gRefusedSize = size; }
  ~TRefusedAllocation() { gRefusedSize = 0; }
  TRefusedAllocation(const TRefusedAllocation&) = delete;
  TRefusedAllocation& operator=(const TRefusedAllocation&) = delete;
};

}  // namespace

// Stands before the standard library's in the whole program.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  if (gRefusedSize != 0 && size == gRefusedSize) return nullptr;
  try {
    return ::operator new[](size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

namespace NQORHWX20 {
namespace {

using hwxtest::Bytes;
using hwxtest::FakeSmBios;
using hwxtest::ScopedLogCapture;
using hwxtest::SmbiosTables;
using ::testing::ElementsAre;
using ::testing::Pair;

const char* const kFields[] = {"type", "name", "model", "SN", "other"};

class FirmwareFailures : public hwxtest::FirmwareFixture {
 protected:
  FirmwareFailures() { UseBios("[Y412-1.05]"); }

  // A structure of type 1 as it is copied out: the product name "7915AC1", the serial number "SN".
  static Bytes SystemStructure() {
    const std::string bytes(
        "\1\10\0\0\1\1\0\2"
        "7915AC1\0SN\0\0\0",
        8 + 13);
    return Bytes(bytes.begin(), bytes.end());
  }

  static void ExpectDefaults() {
    EXPECT_EQ(TOSSpecific::GetMachineType(), "0000");
    EXPECT_EQ(TOSSpecific::GetMachineInfo("type"), "0000");
    for (const char* field : {"name", "model", "SN"})
      EXPECT_EQ(TOSSpecific::GetMachineInfo(field), "Unknown") << field;
    EXPECT_EQ(TOSSpecific::GetMachineInfo("other"), "error param of GetMachineInfo");
  }

  FakeSmBios fSmBios;
};

TEST_F(FirmwareFailures, LoadLeavesTheDefaultOfTheTypeInEveryField) {
  fSmBios.FailLoad(4);
  EXPECT_EQ(TOSSpecific::GetMachineType(), "0000");
  for (const char* field : kFields)
    EXPECT_EQ(TOSSpecific::GetMachineInfo(field), "0000") << field;
  EXPECT_EQ(TOSSpecific::GetOperatingSystemName(), "0000");
}

TEST_F(FirmwareFailures, LoadIsLoggedAsAnErrorAndEndsTheOperation) {
  fSmBios.FailLoad(4);
  const ScopedLogCapture log;
  TOSSpecific::GetMachineType();
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "getMachineType() entered."), Pair("Debug", "(load)"),
                          Pair("Error", "getMachineType: Unable to open SMBIOS lib error = 4")));
}

TEST_F(FirmwareFailures, LoadIsLoggedUnderTheSameNameForTheInfo) {
  fSmBios.FailLoad(-2);
  const ScopedLogCapture log;
  TOSSpecific::GetMachineInfo("SN");
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "getMachineInfo() entered."), Pair("Debug", "(load)"),
                          Pair("Error", "getMachineType: Unable to open SMBIOS lib error = -2")));
}

TEST_F(FirmwareFailures, LoadOfTablesThatAreAbsentIsSuchAFailure) {
  fVariable.Set("/nowhere");
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetMachineType(), "0000");
  EXPECT_THAT(log.Lines().back(),
              Pair("Error", "getMachineType: Unable to open SMBIOS lib error = 1"));
}

TEST_F(FirmwareFailures, NullHandleLeavesTheDefaults) {
  fSmBios.GiveNullHandle();
  ExpectDefaults();
}

TEST_F(FirmwareFailures, NullHandleIsLoggedAndClosed) {
  fSmBios.GiveNullHandle();
  const ScopedLogCapture log;
  TOSSpecific::GetMachineType();
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "getMachineType() entered."), Pair("Debug", "(load)"),
                          Pair("Debug",
                               "Unable to read machine type from SMBIOS. Invalid Handle was "
                               "encountered."),
                          Pair("Debug", "(close)"), Pair("Debug", "getMachineType() completed.")));
}

TEST_F(FirmwareFailures, AllocationLeavesTheDefaults) {
  const TRefusedAllocation refused(1024);
  ExpectDefaults();
}

TEST_F(FirmwareFailures, AllocationIsLoggedAndTheHandleClosed) {
  const TRefusedAllocation refused(1024);
  const ScopedLogCapture log;
  TOSSpecific::GetMachineInfo("SN");
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "getMachineInfo() entered."), Pair("Debug", "(load)"),
                          Pair("Debug", "Unable to allocate memory to hold machineType"),
                          Pair("Debug", "(close)"), Pair("Debug", "getMachineType() completed.")));
  EXPECT_TRUE(fSmBios.IsClosed());
}

TEST_F(FirmwareFailures, ReadLeavesTheDefaultsOfTheFields) {
  for (const int code : {3, 5, 6, -1}) {
    fSmBios.Answer(1, code, SystemStructure(), 21);
    ExpectDefaults();
  }
}

TEST_F(FirmwareFailures, ReadOfNoBytesIsAFailureToo) {
  for (const int length : {0, -1, INT_MIN}) {
    fSmBios.Answer(1, 0, SystemStructure(), length);
    ExpectDefaults();
  }
}

TEST_F(FirmwareFailures, ReadIsLoggedAndTheHandleClosed) {
  fSmBios.Answer(1, 5);
  const ScopedLogCapture log;
  TOSSpecific::GetMachineType();
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "getMachineType() entered."), Pair("Debug", "(load)"),
                          Pair("Debug", "(read type 1 into 1024 bytes)"),
                          Pair("Debug", "Unable to read DMI structure type 1 from SMBIOS"),
                          Pair("Debug", "(close)"), Pair("Debug", "getMachineType() completed.")));
  EXPECT_TRUE(fSmBios.IsClosed());
}

TEST_F(FirmwareFailures, LengthByteBeyondTheStructureLeavesNoStrings) {
  Bytes structure = SystemStructure();
  structure[1] = 255;
  fSmBios.Answer(1, structure);
  ExpectDefaults();
}

TEST_F(FirmwareFailures, LengthBeyondTheBufferIsCut) {
  fSmBios.Answer(1, 0, SystemStructure(), INT_MAX);
  EXPECT_EQ(TOSSpecific::GetMachineType(), "7915");
}

TEST_F(FirmwareFailures, LastStringIsLeftOutWhenTheLengthIsExact) {
  Bytes structure = SystemStructure();
  structure.pop_back();
  fSmBios.Answer(1, structure);
  EXPECT_EQ(TOSSpecific::GetMachineType(), "7915");
  EXPECT_EQ(hwxtest::TextOf<std::out_of_range>(&TOSSpecific::GetMachineSN),
            "vector::_M_range_check");
  fSmBios.ReleaseLeftBehind();
}

TEST_F(FirmwareFailures, LoadLeavesTheDefaultOfTheBiosID) {
  fSmBios.FailLoad(2);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetBiosID(), "00");
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "(load)"),
                          Pair("Error", "GetBiosID: Unable to open SMBIOS lib error = 2")));
}

TEST_F(FirmwareFailures, NullHandleLeavesTheDefaultOfTheBiosID) {
  fSmBios.GiveNullHandle();
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetBiosID(), "00");
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "(load)"), Pair("Debug", "(close)")));
}

TEST_F(FirmwareFailures, AbsentBiosStructureIsLoggedAndEndsTheOperation) {
  fSmBios.Answer(0, 5);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetBiosID(), "00");
  EXPECT_THAT(
      log.Lines(),
      ElementsAre(
          Pair("Debug", "(load)"),
          Pair("Debug", "TOSSpecific::GetBiosID - Retrieving first SMBIOS structure"),
          Pair("Debug", "(read type 0 into 4096 bytes)"),
          Pair("Debug", "TOSSpecific::GetBiosID - read all smbios structures available for type 0"),
          Pair("Debug", "(close)")));
}

TEST_F(FirmwareFailures, FailedReadOfTheBiosIsLoggedAndLeavesTheDefault) {
  fSmBios.Answer(0, 3);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetBiosID(), "00");
  EXPECT_THAT(
      log.Lines(),
      ElementsAre(Pair("Debug", "(load)"),
                  Pair("Debug", "TOSSpecific::GetBiosID - Retrieving first SMBIOS structure"),
                  Pair("Debug", "(read type 0 into 4096 bytes)"),
                  Pair("Debug", "TOSSpecific::GetBiosID - smbios read operation failed! "),
                  Pair("Debug", "(close)")));
}

// A structure of type 0 as it is copied out, with the version "Y412".
Bytes BiosStructure() {
  const std::string bytes(
      "\0\10\0\0\0\1\0\0"
      "Y412\0\0\0",
      8 + 7);
  return Bytes(bytes.begin(), bytes.end());
}

TEST_F(FirmwareFailures, FailedReadOfTheBiosGoesOnWithWhatIsInTheBuffer) {
  fSmBios.Answer(0, 3, BiosStructure(), 0);
  EXPECT_EQ(TOSSpecific::GetBiosID(), "Y4");
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7836");
}

TEST_F(FirmwareFailures, OtherStatusesOfTheBiosReadGoUnnoticed) {
  fSmBios.Answer(0, 6, BiosStructure(), 0);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetBiosID(), "Y4");
  EXPECT_THAT(
      log.Lines(),
      ElementsAre(Pair("Debug", "(load)"),
                  Pair("Debug", "TOSSpecific::GetBiosID - Retrieving first SMBIOS structure"),
                  Pair("Debug", "(read type 0 into 4096 bytes)"),
                  Pair("Debug", "TOSSpecific::GetBiosID - biosID = Y4"), Pair("Debug", "(close)")));
}

// The lines of GetMachineTypeFromID behind those of GetMachineType.
std::vector<ScopedLogCapture::Line> LinesBehindTheType(const ScopedLogCapture& log,
                                                       std::size_t count) {
  auto lines = log.Lines();
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count));
  return lines;
}

TEST_F(FirmwareFailures, LoadIsLoggedTwiceForTheTypeByTheBios) {
  fSmBios.FailLoad(4);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "0000");
  EXPECT_THAT(
      LinesBehindTheType(log, 3),
      ElementsAre(Pair("Debug", "(load)"),
                  Pair("Error", "getBIOSstructure: Unable to open SMBIOS lib error = 4"),
                  Pair("Debug",
                       "getBIOSstructure: Unable to open SMBIOS lib error = 4Failed in getting "
                       "machineType from Bios ID.\nGet machineType from "
                       "GetMachineType().\nmachineType=0000")));
}

TEST_F(FirmwareFailures, LoadOfTheBiosAloneLeavesTheTypeOfTheProductName) {
  fSmBios.FailLoad(4).LetLoadsPass(1);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7915");
  EXPECT_THAT(
      LinesBehindTheType(log, 6),
      ElementsAre(Pair("Debug", "(load)"),
                  Pair("Error", "getBIOSstructure: Unable to open SMBIOS lib error = 4"),
                  Pair("Debug",
                       "getBIOSstructure: Unable to open SMBIOS lib error = 4Failed in getting "
                       "machineType from Bios ID.\nGet machineType from "
                       "GetMachineType().\nmachineType=7915")));
}

TEST_F(FirmwareFailures, NullHandleLeavesTheTypeOfTheProductName) {
  fSmBios.GiveNullHandle().LetLoadsPass(1);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7915");
  EXPECT_THAT(LinesBehindTheType(log, 6),
              ElementsAre(Pair("Debug", "(load)"), Pair("Debug", "(close)")));
}

TEST_F(FirmwareFailures, AbsentBiosStructureLeavesTheTypeOfTheProductName) {
  fSmBios.Answer(0, 5);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7915");
  EXPECT_THAT(
      LinesBehindTheType(log, 6),
      ElementsAre(
          Pair("Debug", "(load)"),
          Pair("Debug", "TOSSpecific::GetMachineTypeFromID - Retrieving first SMBIOS structure"),
          Pair("Debug", "(read type 0 into 4096 bytes)"),
          Pair("Debug",
               "TOSSpecific::GetMachineTypeFromID - read all smbios structures available for type "
               "0"),
          Pair("Debug", "(close)")));
}

TEST_F(FirmwareFailures, FailedReadOfTheBiosGoesOnWithAnEmptyBuild) {
  fSmBios.Answer(0, 3);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7915");
  EXPECT_THAT(
      LinesBehindTheType(log, 6),
      ElementsAre(
          Pair("Debug", "(load)"),
          Pair("Debug", "TOSSpecific::GetMachineTypeFromID - Retrieving first SMBIOS structure"),
          Pair("Debug", "(read type 0 into 4096 bytes)"),
          Pair("Debug", "TOSSpecific::GetMachineTypeFromID - smbios read operation failed! "),
          Pair("Debug", "TOSSpecific::GetMachineTypeFromID - buildNumber is "),
          Pair("Debug", "Get machineType from Bios ID().\nmachineType=7915\tBios ID ="),
          Pair("Debug", "(close)")));
}

TEST_F(FirmwareFailures, NothingIsLoggedBelowTheThreshold) {
  const ScopedLogCapture log;
  TLogger::SetLogThreshold(ILogger::kHWXLogStatus);
  TOSSpecific::GetMachineTypeFromID();
  TOSSpecific::GetMachineInfo("SN");
  TOSSpecific::GetBiosID();
  EXPECT_THAT(log.Lines(), ElementsAre());
}

}  // namespace
}  // namespace NQORHWX20
