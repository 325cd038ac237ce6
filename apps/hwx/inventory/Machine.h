// The road to this machine's data: its provider, and the namespace that it opens.
// Thread-safety: for the main thread, before there are others.

#ifndef HWX_INVENTORY_MACHINE_H
#define HWX_INVENTORY_MACHINE_H

#include "hwx/commands/Command.h"
#include "hwx/inventory/Namespace.h"

namespace hwx {

/// The namespace of the provider "plugin", which is read in a child of this process: what breaks
/// it costs the class that it breaks in. Throws `TFailure`, which says at which step the road
/// ended.
NamespacePtr OpenMachine(const NQORHWX20::TChildLimits& limits = NQORHWX20::TChildLimits());

/// The same for a command. If the user named firmware tables, they must be readable, or `TFailure`
/// says what is wrong with them. The machine's own tables needn't be. Warns of a damage.
NamespacePtr OpenMachine(const TGlobalOptions& options);

}  // namespace hwx

#endif  // HWX_INVENTORY_MACHINE_H
