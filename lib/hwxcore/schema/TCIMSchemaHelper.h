#ifndef HWXCORE_SCHEMA_TCIMSCHEMAHELPER_H
#define HWXCORE_SCHEMA_TCIMSCHEMAHELPER_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

class ICIMNamespace;

/// Queries that work out the identity of a machine from what a namespace holds: static members, no
/// state. `ns` may not be empty.
///
/// Three families: the plain queries read the standard classes; those ending in `_vmwesxi` read
/// what a hypervisor's own provider publishes; the version queries read the product class. All ask
/// for the provider "plugin", by the context key `kContextName`; there is no fallback to another.
///
/// Unless a query says otherwise, failures of the namespace pass through, a wrong number of
/// instances (anything but one) throws `kHWXStatusNotFound`, a null value `kHWXStatusValueIsNULL`,
/// and a value of another type `kHWXStatusTypeMismatch`.
///
/// Thread-safety: that of the namespace.
class HWX_EXPORT TCIMSchemaHelper {
 public:
  static const std::string kPluginNSPName;  ///< "plugin", the provider that the queries ask for.
  static const std::string kCMPINSPName;    ///< "cmpi", a provider name for callers.
  static const std::string kContextName;    ///< "nspID", the context key that selects a provider.
  static const std::string kSystemCreationClassName;           ///< "QORSG_ComputerSystem"
  static const std::string kOperatingSystemCreationClassName;  ///< "QORSG_OperatingSystem"

  // Identity of the system and its operating system.

  /// `kSystemCreationClassName`, whatever `ns`.
  static std::string GetSystemCreationClassName(boost::shared_ptr<ICIMNamespace> ns);
  /// `kOperatingSystemCreationClassName`, whatever `ns`.
  static std::string GetOperatingSystemCreationClassName(boost::shared_ptr<ICIMNamespace> ns);
  static std::string GetSystemProductName(boost::shared_ptr<ICIMNamespace> ns);
  static std::string GetSystemName(boost::shared_ptr<ICIMNamespace> ns);
  static std::string GetOperatingSystemName(boost::shared_ptr<ICIMNamespace> ns);
  static std::string GetOperatingSystemVersion(boost::shared_ptr<ICIMNamespace> ns);
  /// The CIM number of the operating system's type.
  static unsigned short GetOperatingSystemType(boost::shared_ptr<ICIMNamespace> ns);

  /// The first model that holds the marks "-[" and "]-", marks and all, else "Unknown". Throws no
  /// status.
  static std::string GetSystemProductName_vmwesxi(boost::shared_ptr<ICIMNamespace> ns);
  /// The hypervisor's build number, which stands where others have a name, else "Unknown". Throws
  /// no status.
  static std::string GetOperatingSystemName_vmwesxi(boost::shared_ptr<ICIMNamespace> ns);

  // Version of the data source.

  /// The version of the last product instance. Throws `kHWXStatusNotFound` if there is none.
  static std::string GetDataSourceVersion(boost::shared_ptr<ICIMNamespace> ns, TCIMContext ctx);
  /// The build of the first product instance that can be read, else the empty text. `ctx` goes to
  /// the namespace unchanged. A failure of the enumeration passes through, other failures don't.
  static std::string GetDataSourceBuild(boost::shared_ptr<ICIMNamespace> ns, TCIMContext ctx);
  /// The version before its first ".". Throws `kHWXStatusNotFound`, after a debug entry, without
  /// one.
  static std::string GetDataSourceMajorVersion(boost::shared_ptr<ICIMNamespace> ns,
                                               TCIMContext ctx);
  /// The version between its first two ".". Throws `kHWXStatusNotFound` without them.
  static std::string GetDataSourceMinorVersion(boost::shared_ptr<ICIMNamespace> ns,
                                               TCIMContext ctx);
  /// The version behind its last ".". Throws `kHWXStatusNotFound` without one.
  static std::string GetDataSourceBuildVersion(boost::shared_ptr<ICIMNamespace> ns);

  // Serial number.

  /// The serial number as stored. Throws `kHWXStatusNotFound`, after a debug entry, if the class,
  /// the one instance or the property is missing, and for a value that is null or no string.
  static std::string GetRawSerialNumberString(boost::shared_ptr<ICIMNamespace> ns, TCIMContext ctx);
  /// The serial number with blanks trimmed. Throws `kHWXStatusNotFound` also for one that is
  /// filler: empty, one character repeated, or a phrase such as "To Be Filled By O.E.M.".
  static std::string GetSerialNumber(boost::shared_ptr<ICIMNamespace> ns, TCIMContext ctx);
  /// The serial number of the first chassis, unless it is null or filler; else the first of the
  /// system's other identifying texts that isn't. Throws `kHWXStatusNotFound` if there is no
  /// chassis or nothing but filler.
  static std::string GetSerialNumber_vmwesxi(boost::shared_ptr<ICIMNamespace> ns, TCIMContext ctx);

  // Machine type and model: four characters of type and three of model, dug out of the product
  // name.

  /// Whether the first four characters are letters or digits. The rest isn't looked at.
  static bool IsValidMachineType(const std::string& text);
  /// Whether the first four characters are a machine type and the next three letters, digits or
  /// blanks. The rest isn't looked at. Which bytes beyond ASCII are letters is up to the process's
  /// locale, here and in what calls these two.
  static bool IsValidMTM(const std::string& text);
  /// The product name as stored. Throws as `GetRawSerialNumberString` does.
  static std::string GetRawMTMString(boost::shared_ptr<ICIMNamespace> ns);
  /// Seven characters; a model that isn't known is "xxx". Throws `kHWXStatusInvalidFormat` for a
  /// product name that holds no machine type, and what `GetRawMTMString` throws.
  static std::string GetMTM(boost::shared_ptr<ICIMNamespace> ns);
  /// The first four characters of `GetMTM`, which it calls.
  static std::string GetMachineType(boost::shared_ptr<ICIMNamespace> ns);
  /// The last three characters of `GetMTM`, which it calls.
  static std::string GetModelNumber(boost::shared_ptr<ICIMNamespace> ns);
  /// What stands between the marks of `GetSystemProductName_vmwesxi`, unchecked, else "Unknown".
  /// Throws no status.
  static std::string GetMTM_vmwesxi(boost::shared_ptr<ICIMNamespace> ns);
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_TCIMSCHEMAHELPER_H
