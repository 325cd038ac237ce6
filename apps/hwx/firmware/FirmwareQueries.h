// What the library's queries of the firmware answer, with the reasons where they answer with their
// defaults. Thread-safety: as `TFirmwareForLibrary`.

#ifndef HWX_FIRMWARE_FIRMWAREQUERIES_H
#define HWX_FIRMWARE_FIRMWAREQUERIES_H

#include <string>

#include "hwx/text/Answer.h"

namespace hwx {

/// What the type 0 structure tells.
struct TBiosIdentity {
  TAnswer<std::string> fBiosID;             ///< Two characters, in the case that the firmware gave.
  TAnswer<std::string> fTypeByTable;        ///< What the table of BIOS identifiers has for it.
  TAnswer<std::string> fMachineTypeFromID;  ///< The same, else what the product name tells.
};

/// What the type 1 structure tells. Texts are as they stand there, filler too; machine type and
/// model are judged by the form in which they stand in the product name.
struct TSystemIdentity {
  TAnswer<std::string> fMachineType;
  TAnswer<std::string> fModel;
  TAnswer<std::string> fProductName;
  TAnswer<std::string> fSerialNumber;
};

TBiosIdentity AskBios();
TSystemIdentity AskSystem();

}  // namespace hwx

#endif  // HWX_FIRMWARE_FIRMWAREQUERIES_H
