#ifndef HWXKIT_ICONTAINERSOURCE_H
#define HWXKIT_ICONTAINERSOURCE_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <string>

#include "hwxbase/Export.h"
#include "hwxkit/INamespaceSource.h"

namespace NQORHWX20 {

/// How a container is loaded.
struct TContainerLoading {
  /// Which of several namespaces in a file, with or without its host; empty for the only one.
  std::string fNamespace;
  /// Bytes of memory that the content may take.
  std::uint64_t fMaxMemory = std::uint64_t{1} << 30;
  /// Takes what a file leaves to others and the like, a line at a time without its end. Without it
  /// the lines go to the log as warnings.
  boost::function<void(const std::string&)> fWarn;
};

/// The languages in which a container can be written.
enum EContainerLanguage {
  kContainerXML,  ///< CIM-XML, as in files.
  kContainerMOF   ///< The Managed Object Format.
};

/// A provider of containers: namespaces in memory that are kept as files. Front ends find the one
/// of this system in the registry as "container":
///
///     TOSSpecific::LoadNSPLibrary("container");
///     const auto containers = boost::dynamic_pointer_cast<IContainerSource>(
///         TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider("container"));
///     const auto ns = containers->LoadContainer("machine.xml.gz");
///
/// A container answers calls for every provider, whatever the key "nspID" of a context says, so the
/// queries for a machine's identity work on it as they do on the machine. Files whose names end in
/// ".gz" are compressed. A path of "" is a file that isn't there.
///
/// Loading and saving fail with a `TContainerException`, whose text names the file and the place in
/// it; the same text goes to the log as an error before. What its status means:
///
/// - `kHWXStatusFileNotFound`: there is no such file or, for saving, no such directory.
/// - `kHWXStatusAccessDenied`: the operating system refused access.
/// - `kHWXStatusFileSystemError`: another failure of the file system, such as a full disk.
/// - `kHWXStatusInvalidGzipFile`: the name says compressed, and the file isn't.
/// - `kHWXStatusCorruptGzipFile`: the compressed data is damaged, cut off or goes on.
/// - `kHWXStatusNotFound`: a file holds several namespaces and none was chosen, or not the one that
///   was.
/// - `kHWXStatusVersionMismatch`: the file is of another major version of CIM-XML.
/// - `kHWXStatusCorruptedContainer`: the file is malformed, or says what can't be.
/// - `kHWXStatusInvalidClass`, `kHWXStatusInvalidProperty`, `kHWXStatusNotSupported`: for saving,
///   the namespace isn't one of the kit's, or holds what can't be kept in a file.
///
/// Thread-safety: different namespaces may be loaded and saved by different threads at the same
/// time; one namespace belongs to one thread.
class HWX_EXPORT IContainerSource : public INamespaceSource {
 public:
  /// The key of the context by which `OpenNamespace` is told a file.
  static const char* const kFileContextName;
  /// The name of a namespace that nobody gave a name.
  static const char* const kDefaultNamespaceName;

  ~IContainerSource() override;

  /// With the key `kFileContextName`, a string, in the context the same as `LoadContainer` of that
  /// file; without it the same as `NewContainer`. Throws `kHWXStatusNotFound` if the key "nspID"
  /// names another provider, and `kHWXStatusTypeMismatch` or `kHWXStatusValueIsNULL` for a file
  /// that isn't a string.
  boost::shared_ptr<ICIMNamespace> OpenNamespace(TCIMContext context) override = 0;

  /// A new container without classes and without qualifier declarations; the caller owns it.
  virtual boost::shared_ptr<ICIMNamespace> NewContainer(
      const std::string& namespaceName = kDefaultNamespaceName) = 0;

  /// The container that a file holds; the caller owns it, and it has no ties to the file.
  virtual boost::shared_ptr<ICIMNamespace> LoadContainer(const std::string& path) = 0;
  virtual boost::shared_ptr<ICIMNamespace> LoadContainer(const std::string& path,
                                                         const TContainerLoading& loading) = 0;

  /// Writes a namespace to a file, which is there whole or not at all: whatever goes wrong, a file
  /// that was there stays as it was. `ns` may be any namespace of the kit; of live classes the
  /// instances of this moment are kept, and what an instance source throws passes through.
  virtual void SaveContainer(const boost::shared_ptr<ICIMNamespace>& ns,
                             const std::string& path) = 0;

  /// The text of the file that `SaveContainer` would write, if its name doesn't end in ".gz". Fails
  /// as that does.
  virtual std::string ContainerText(const boost::shared_ptr<ICIMNamespace>& ns) = 0;

  /// Writes a namespace piece by piece, each handed to `sink` as it comes. Fails as `SaveContainer`
  /// does; what the sink throws passes through.
  virtual void WriteContainer(const boost::shared_ptr<ICIMNamespace>& ns,
                              EContainerLanguage language,
                              const boost::function<void(const std::string&)>& sink) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_ICONTAINERSOURCE_H
