#ifndef HWXCORE_OS_DETAIL_REMOVABLEDRIVES_H
#define HWXCORE_OS_DETAIL_REMOVABLEDRIVES_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <utility>
#include <vector>

#include "hwxcore/os/detail/ScsiBlockDevice.h"

namespace NQORHWX20 {

class ICIMNamespace;

namespace detail {

/// Device path and description of each removable drive among the SCSI devices of `ns`, in their
/// order. `usbDevices` is the kernel's list of USB devices: a drive is removable if the list holds
/// the first word of its product name, or if that word holds "USB". One that is known by its
/// generic device alone, and has no block device, is left out.
///
/// Passes on what the namespace throws.
std::vector<std::pair<std::string, std::string> > RemovableDrives(
    const std::string& usbDevices, const boost::shared_ptr<ICIMNamespace>& ns, IScsiSystem& system);

}  // namespace detail

}  // namespace NQORHWX20

#endif  // HWXCORE_OS_DETAIL_REMOVABLEDRIVES_H
