#include "hwx/identity/Reasons.h"
#include "hwx/text/StatusWords.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "unit/apps/hwx/identity/MadeMachine.h"

namespace hwx {
namespace {

using hwxtest::MadeMachine;
using NQORHWX20::TCIMValue;
using NQORHWX20::THWXException;

constexpr auto kString = TCIMValue::TCIMType::kCIMTypeString;
constexpr auto kUInt16 = TCIMValue::TCIMType::kCIMTypeUInt16;

const TQueriedProperty kSerial = {
    MadeMachine::kComputer, "SerialNumber", "serial number", kString, true, true};
const TQueriedProperty kName = {
    MadeMachine::kComputer, "Name", "system name", kString, false, true};
const TQueriedProperty kType = {MadeMachine::kSystem, "OSType", "type", kUInt16, false, true};
const TQueriedProperty kVersion = {
    MadeMachine::kProduct, "Version", "version", kString, false, false};

TEST(WhyUnreadable, IsMissingForWhatCanBeRead) {
  const NamespacePtr machine = MadeMachine().Open();
  EXPECT_EQ(WhyUnreadable(machine, kSerial), std::nullopt);
  EXPECT_EQ(WhyUnreadable(machine, kType), std::nullopt);
  EXPECT_EQ(WhyUnreadable(machine, kVersion), std::nullopt);
}

TEST(WhyUnreadable, NamesAClassThatIsMissing) {
  MadeMachine machine;
  machine.Without(MadeMachine::kSystem);
  EXPECT_EQ(WhyUnreadable(machine.Open(), kType),
            "the provider lacks the class QORSG_OperatingSystem");
}

TEST(WhyUnreadable, CountsInstances) {
  MadeMachine machine;
  machine.Instances(MadeMachine::kComputer, 0);
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial),
            "the provider has no instance of the class QORSG_ComputerSystem");
  machine.Instances(MadeMachine::kComputer, 2);
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial),
            "the provider has 2 instances of the class QORSG_ComputerSystem, not one");
}

TEST(WhyUnreadable, TakesSeveralInstancesWhereTheQueryDoes) {
  MadeMachine machine;
  machine.Instances(MadeMachine::kProduct, 3);
  EXPECT_EQ(WhyUnreadable(machine.Open(), kVersion), std::nullopt);
}

TEST(WhyUnreadable, NamesAPropertyThatIsMissing) {
  MadeMachine machine;
  machine.Without(MadeMachine::kComputer, "SerialNumber");
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial),
            "the class QORSG_ComputerSystem has no property SerialNumber");
}

TEST(WhyUnreadable, GivesTheFirmwareStatusForANullOfTheFirmware) {
  MadeMachine machine;
  machine.Serial(MadeMachine::Null()).Firmware("needs root: the tables can't be read");
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial), "needs root: the tables can't be read");
}

TEST(WhyUnreadable, BlamesGoodTablesForANullOfTheFirmware) {
  MadeMachine machine;
  machine.Serial(MadeMachine::Null());
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial), "the firmware tables hold no serial number");
}

TEST(WhyUnreadable, BlamesNoTablesOfAProviderThatDoesNotTellOfThem) {
  MadeMachine machine;
  machine.Serial(MadeMachine::Null()).Without(MadeMachine::kComputer, "FirmwareStatus");
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial), "the provider gives no serial number");
}

TEST(WhyUnreadable, KeepsTheFirmwareOutOfOtherNulls) {
  MadeMachine machine;
  machine.Name(MadeMachine::Null()).Firmware("needs root");
  EXPECT_EQ(WhyUnreadable(machine.Open(), kName), "the provider gives no system name");
}

TEST(WhyUnreadable, NamesAWrongType) {
  MadeMachine machine;
  machine.Serial(TCIMValue(7u)).OSType("LINUX");
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial),
            "the provider gives the serial number as uint32, not as string");
  EXPECT_EQ(WhyUnreadable(machine.Open(), kType),
            "the provider gives the type as string, not as uint16");
}

TEST(WhyUnreadable, TellsAnArrayFromAScalar) {
  MadeMachine machine;
  machine.Serial(TCIMValue(kString, 2, {TCIMValue("a"), TCIMValue("b")}));
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial),
            "the provider gives the serial number as string[], not as string");
}

TEST(WhyUnreadable, TellsFailuresAsReasons) {
  MadeMachine machine;
  machine.Before(MadeMachine::kComputer,
                 [] { throw THWXException(NQORHWX20::kHWXStatusFileSystemError); });
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial), "the provider failed: file system error");
  machine.Before(MadeMachine::kComputer, [] { throw std::runtime_error("out of paper"); });
  EXPECT_EQ(WhyUnreadable(machine.Open(), kSerial), "the provider failed: out of paper");
}

TEST(FirmwareStatus, IsEmptyForGoodTables) {
  EXPECT_EQ(FirmwareStatus(MadeMachine().Open()), "");
}

TEST(FirmwareStatus, IsWhatTheProviderSays) {
  EXPECT_EQ(FirmwareStatus(MadeMachine().Firmware("malformed: x").Open()), "malformed: x");
}

TEST(FirmwareStatus, IsMissingWhereTheProviderDoesNotTell) {
  MadeMachine machine;
  machine.Firmware(TCIMValue(1u));
  EXPECT_EQ(FirmwareStatus(machine.Open()), std::nullopt);
  machine.Without(MadeMachine::kComputer, "FirmwareStatus");
  EXPECT_EQ(FirmwareStatus(machine.Open()), std::nullopt);
  machine.Without(MadeMachine::kComputer);
  EXPECT_EQ(FirmwareStatus(machine.Open()), std::nullopt);
}

TEST(InWords, SaysCommonStatusesAndNamesTheOthers) {
  EXPECT_EQ(InWords(NQORHWX20::kHWXStatusAccessDenied), "access denied");
  EXPECT_EQ(InWords(NQORHWX20::kHWXStatusFileSystemError), "file system error");
  EXPECT_EQ(InWords(NQORHWX20::kHWXStatusFileNotFound), "file not found");
  EXPECT_EQ(InWords(NQORHWX20::kHWXStatusNotFound), "not found");
  EXPECT_EQ(InWords(NQORHWX20::kHWXStatusOutOfMemory), "out of memory");
  EXPECT_EQ(InWords(NQORHWX20::kHWXStatusInvalidFormat), "kHWXStatusInvalidFormat");
}

}  // namespace
}  // namespace hwx
