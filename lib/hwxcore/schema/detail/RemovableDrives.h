#ifndef HWXCORE_SCHEMA_DETAIL_REMOVABLEDRIVES_H
#define HWXCORE_SCHEMA_DETAIL_REMOVABLEDRIVES_H

#include <boost/shared_ptr.hpp>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace NQORHWX20 {

class ICIMNamespace;

namespace detail {

/// Device path and description of each removable drive among the SCSI devices of `ns`, in their
/// order. `usbDevices` is the kernel's list of USB devices: a drive is removable if the list holds
/// the first word of its product name, or if that word holds "USB". For one that is known by its
/// generic device alone, `blockDeviceOf` tells the path of the block device; where it throws a
/// `THWXException`, the drive is left out.
///
/// Passes on what the namespace throws.
std::vector<std::pair<std::string, std::string> > RemovableDrives(
    const std::string& usbDevices, const boost::shared_ptr<ICIMNamespace>& ns,
    const std::function<std::string(const std::string&)>& blockDeviceOf);

}  // namespace detail

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_DETAIL_REMOVABLEDRIVES_H
