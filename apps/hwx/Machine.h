// The road to this machine's data: its provider, and the namespace that it opens.
// Thread-safety: for the main thread, before there are others.

#ifndef HWX_MACHINE_H
#define HWX_MACHINE_H

#include <boost/shared_ptr.hpp>

#include "hwx/Command.h"
#include "hwxcore/schema/ICIMNamespace.h"

namespace hwx {

/// The namespace of the provider "plugin". Throws `TFailure`, which says at which step the road
/// ended.
boost::shared_ptr<NQORHWX20::ICIMNamespace> OpenMachine();

/// The same for a command. What the user gave in place of the machine's tables must be good, or
/// `TFailure` says what is wrong with it; the machine's own tables needn't be.
boost::shared_ptr<NQORHWX20::ICIMNamespace> OpenMachine(const TGlobalOptions& options);

}  // namespace hwx

#endif  // HWX_MACHINE_H
