#ifndef HWXTESTS_SUPPORT_FIRMWAREFIXTURE_H
#define HWXTESTS_SUPPORT_FIRMWAREFIXTURE_H

#include <gtest/gtest.h>

#include <string>

#include "support/ScopedEnvironment.h"
#include "support/SmbiosTables.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// For tests of what reads the firmware: made tables stand in place of the machine's, and none at
/// all until a test makes some.
class FirmwareFixture : public testing::Test {
 protected:
  void Use(const SmbiosTables& tables) { tables.WriteDump(fDump); }

  void UseSystem(const SmbiosSystem& system) {
    Use(SmbiosTables().AddBios("Maker", "1.0", "01/02/2020").AddSystem(system).AddEnd());
  }

  void UseProduct(const std::string& productName, const std::string& serialNumber = "SN1") {
    UseSystem({"Maker", productName, "v1", serialNumber});
  }

  /// A BIOS of that version, in a machine of the type "7915".
  void UseBios(const std::string& version) {
    Use(SmbiosTables()
            .AddBios("Maker", version, "01/02/2020")
            .AddSystem({"Maker", "Box -[7915AC1]-", "v1", "SN1"})
            .AddEnd());
  }

  const TemporaryDirectory fDirectory;
  const std::string fDump = fDirectory / "dump";
  ScopedEnvironment fVariable{"HWX_SMBIOS_TABLES", fDump};
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FIRMWAREFIXTURE_H
