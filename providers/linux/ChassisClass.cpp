#include "providers/linux/Enclosures.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

const TValueMap kPackageTypes = {
    {0, "Unknown"},
    {1, "Other"},
    {2, "SMBIOS Reserved"},
    {3, "Desktop"},
    {4, "Low Profile Desktop"},
    {5, "Pizza Box"},
    {6, "Mini Tower"},
    {7, "Tower"},
    {8, "Portable"},
    {9, "LapTop"},
    {10, "Notebook"},
    {11, "Hand Held"},
    {12, "Docking Station"},
    {13, "All in One"},
    {14, "Sub Notebook"},
    {15, "Space-Saving"},
    {16, "Lunch Box"},
    {17, "Main System Chassis"},
    {18, "Expansion Chassis"},
    {19, "SubChassis"},
    {20, "Bus Expansion Chassis"},
    {21, "Peripheral Chassis"},
    {22, "Storage Chassis"},
    {23, "Rack Mount Chassis"},
    {24, "Sealed-Case PC"},
    {25, "Multi-system Chassis"},
    {26, "CompactPCI"},
    {27, "AdvancedTCA"},
    {28, "Blade Enclosure"},
    {30, "Tablet"},
    {31, "Convertible"},
    {32, "Detachable"},
    {33, "IoT Gateway"},
    {34, "Embedded PC"},
    {35, "Mini PC"},
    {36, "Stick PC"},
};

const TValueMap kThreeStates = {{0, "Unknown"}, {1, "True"}, {2, "False"}};

const TValueMap kSecurityBreaches = {{1, "Other"},
                                     {2, "Unknown"},
                                     {3, "No Breach"},
                                     {4, "Breach Attempted"},
                                     {5, "Breach Successful"}};

}  // namespace

void DefineChassis(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TChassis;
  TLiveClass<Row>(ns, "CIM_Chassis", "A box that the machine is built into.", &ReadChassis)
      .Key("Tag", &Row::fTag, "\"Chassis\" and the number of the chassis, from 0.")
      .Property("Manufacturer", &Row::fManufacturer, "The maker of the chassis.")
      .Property("Version", &Row::fVersion, "The maker's version of the chassis.")
      .Property("SerialNumber", &Row::fSerialNumber, "The maker's number of this chassis.")
      .Property("SKU", &Row::fSKU, "The number under which the maker sells the chassis.")
      .Property("OtherIdentifyingInfo", &Row::fAssetTag, "The owner's number of the chassis.")
      .Property("ChassisPackageType", &Row::fPackageType, "The form of the chassis.")
      .Values(kPackageTypes)
      .Property("RackMountable", &Row::fRackMountable, "Whether it is made for a rack.")
      .Values(kThreeStates)
      .Property("LockPresent", &Row::fLockPresent, "Whether it has a lock.")
      .Property("SecurityBreach", &Row::fSecurityBreach, "Whether somebody broke into it.")
      .Values(kSecurityBreaches)
      .Property("Height", &Row::fHeight, "The height that it takes in a rack.")
      .Units("Inches")
      .Property("NumberOfPowerCords", &Row::fPowerCords, "Power cords that it needs.")
      .Commit();
}

}  // namespace linux_machine
