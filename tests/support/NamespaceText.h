#ifndef HWXTESTS_SUPPORT_NAMESPACETEXT_H
#define HWXTESTS_SUPPORT_NAMESPACETEXT_H

#include <string>
#include <vector>

#include "hwxcore/schema/ICIMNamespace.h"

namespace hwxtest {

/// How much alike two namespaces have to be.
enum ELikeness {
  kExact,
  kAsCopied  ///< But for the name of the namespace, the order of the classes, and which class
             ///< something comes from: a copied class declares all that it inherited.
};

/// All that the abstract classes tell of a namespace, line by line: qualifier declarations, sorted,
/// as their order means nothing; classes with all that they declare and inherit; static values;
/// instances. Values are told with everything in which two may differ:
///
///     namespace root
///     qualifier Key 127 1 1:false
///     EX_Disk : EX_Device
///     EX_Disk[Description] inherited 13:"A disk."
///     EX_Disk.Size of EX_Device 8:null
///     EX_Disk.Size[Units] 13:"Bytes"
///     EX_Disk.Reset() of EX_Disk 6
///     EX_Disk.Reset(Mode) 13
///     EX_Disk::Size 8:5
///     EX_Disk#0
///     EX_Disk#0.Size 8:5
std::vector<std::string> NamespaceLines(NQORHWX20::ICIMNamespace& ns, ELikeness likeness = kExact);

/// The first difference between two namespaces, as a text to read; empty if there is none.
std::string Difference(NQORHWX20::ICIMNamespace& one, NQORHWX20::ICIMNamespace& other,
                       ELikeness likeness = kExact);

/// The same for lines.
std::string Difference(const std::vector<std::string>& one, const std::vector<std::string>& other);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_NAMESPACETEXT_H
