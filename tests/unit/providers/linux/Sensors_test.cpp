#include "providers/linux/Sensors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Machines.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class Sensors : public ::testing::Test {
 protected:
  void Write(const std::string& path, const std::string& text) {
    WriteMachineFile(fDirectory.Path(), "sys/class/" + path, text);
  }

  const TemporaryDirectory fDirectory;
};

TEST_F(Sensors, AreReadWithTheirLimits) {
  Write("hwmon/hwmon0/name", "coretemp\n");
  Write("hwmon/hwmon0/temp2_input", "-5000\n");
  Write("hwmon/hwmon0/temp2_label", "Core 0\n");
  Write("hwmon/hwmon0/temp2_max", "80000\n");
  Write("hwmon/hwmon0/temp2_crit", "100000\n");
  const auto sensors = ReadSensors(fDirectory.Path());
  ASSERT_THAT(sensors, SizeIs(1));
  EXPECT_EQ(sensors[0].fDeviceID, "hwmon0/temp2");
  EXPECT_EQ(sensors[0].fLabel, "Core 0");
  EXPECT_EQ(sensors[0].fChip, "coretemp");
  EXPECT_EQ(sensors[0].fType, 2);
  EXPECT_EQ(sensors[0].fUnits, 2);
  EXPECT_EQ(sensors[0].fModifier, -3);
  EXPECT_EQ(sensors[0].fReading, -5000);
  EXPECT_EQ(sensors[0].fHigh, 80000);
  EXPECT_EQ(sensors[0].fCriticallyHigh, 100000);
  EXPECT_FALSE(sensors[0].fLow);
}

TEST_F(Sensors, AreOfTheQuantitiesThatTheKernelNames) {
  for (const char* file : {"in0_input", "curr1_input", "power1_input", "fan1_input"}) {
    Write(std::string("hwmon/hwmon1/") + file, "7\n");
  }
  for (const char* other :
       {"intrusion0_alarm", "in0_label", "_input", "energy1_input", "inx_input"}) {
    Write(std::string("hwmon/hwmon1/") + other, "7\n");
  }
  const auto sensors = ReadSensors(fDirectory.Path());
  ASSERT_THAT(sensors, SizeIs(4));
  EXPECT_EQ(sensors[0].fType, 4);
  EXPECT_EQ(sensors[1].fType, 5);
  EXPECT_EQ(sensors[2].fType, 3);
  EXPECT_EQ(sensors[2].fLabel, "7");
  EXPECT_EQ(sensors[3].fModifier, -6);
}

TEST_F(Sensors, HaveNoReadingThatDoesNotFit) {
  Write("hwmon/hwmon0/power1_input", "4000000000\n");
  Write("hwmon/hwmon0/temp1_input", "hot\n");
  for (const TSensor& sensor : ReadSensors(fDirectory.Path())) {
    EXPECT_FALSE(sensor.fReading) << sensor.fDeviceID;
  }
}

TEST_F(Sensors, HaveFansAmongThem) {
  Write("hwmon/hwmon0/fan1_input", "1200\n");
  Write("hwmon/hwmon0/fan1_target", "1500\n");
  Write("hwmon/hwmon0/pwm1", "128\n");
  Write("hwmon/hwmon0/fan2_input", "0\n");
  const auto fans = ReadFans(fDirectory.Path());
  ASSERT_THAT(fans, SizeIs(2));
  EXPECT_EQ(fans[0].fDeviceID, "hwmon0/fan1");
  EXPECT_TRUE(fans[0].fIsControlled);
  EXPECT_EQ(fans[0].fTarget, 1500u);
  EXPECT_FALSE(fans[1].fIsControlled);
}

TEST_F(Sensors, AreNoneWithoutFiles) {
  EXPECT_THAT(ReadSensors(fDirectory.Path()), IsEmpty());
  EXPECT_THAT(ReadFans(fDirectory.Path()), IsEmpty());
  EXPECT_THAT(ReadBatteries(fDirectory.Path()), IsEmpty());
}

TEST_F(Sensors, TellOfBatteriesInMilliwattHours) {
  const std::string battery = "power_supply/BAT0/";
  Write(battery + "type", "Battery\n");
  Write(battery + "status", "Discharging\n");
  Write(battery + "technology", "Li-ion\n");
  Write(battery + "capacity", "81\n");
  Write(battery + "voltage_min_design", "11400000\n");
  Write(battery + "energy_full_design", "50000000\n");
  Write(battery + "charge_full", "4000000\n");
  Write(battery + "cycle_count", "123\n");
  Write(battery + "model_name", "Pack\n");
  Write("power_supply/AC/type", "Mains\n");
  Write("power_supply/mouse/type", "Battery\n");
  Write("power_supply/mouse/scope", "Device\n");
  Write("power_supply/BAT1/type", "Battery\n");
  Write("power_supply/BAT1/present", "0\n");
  const auto batteries = ReadBatteries(fDirectory.Path());
  ASSERT_THAT(batteries, SizeIs(1));
  EXPECT_EQ(batteries[0].fDeviceID, "BAT0");
  EXPECT_EQ(batteries[0].fStatus, 11);
  EXPECT_EQ(batteries[0].fChargingStatus, 3);
  EXPECT_EQ(batteries[0].fChemistry, 6);
  EXPECT_EQ(batteries[0].fPercent, 81);
  EXPECT_EQ(batteries[0].fDesignVoltage, 11400u);
  EXPECT_EQ(batteries[0].fDesignCapacity, 50000u);
  EXPECT_EQ(batteries[0].fFullCapacity, 45600u);
  EXPECT_FALSE(batteries[0].fRemainingCapacity);
  EXPECT_EQ(batteries[0].fCycles, 123u);
}

}  // namespace

}  // namespace hwxtest
