// Where the modules of this process lie in the file system.
// Thread-safety: every operation may be called from any thread at any time.

#ifndef HWXBASE_HWXBASE_H
#define HWXBASE_HWXBASE_H

#include <string>

#include "hwxbase/Export.h"

/// The directory of the loaded module (the program or a shared object) that holds `address`, which
/// may be the address of code or of data, constants included. The text ends in "/", so that a file
/// name can be appended directly.
///
/// The path is absolute. Of a shared object it is the one that it was loaded by, with symbolic
/// links as they stand; one that was loaded by a relative path is looked up from the current
/// directory of the call. Of the program it is the kernel's own, without symbolic links.
///
/// Empty when `address` lies in no module, or when the module's directory can't be told.
HWX_EXPORT std::string GetModulePathLin(const void* address);

#endif  // HWXBASE_HWXBASE_H
