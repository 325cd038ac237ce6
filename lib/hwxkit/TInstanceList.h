#ifndef HWXKIT_TINSTANCELIST_H
#define HWXKIT_TINSTANCELIST_H

#include <boost/shared_ptr.hpp>
#include <vector>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

class TMemoryClass;
class TMemoryInstance;

/// What the instance source of a live class fills, anew for each enumeration:
///
///     void ListDisks(TInstanceList& disks) {
///       for (const Disk& disk : ReadDisks())
///         disks.Add().Set("DeviceID", disk.fName).Set("Size", disk.fBytes);
///     }
///
/// Thread-safety: none.
class HWX_EXPORT TInstanceList {
 public:
  explicit TInstanceList(const boost::shared_ptr<TMemoryClass>& instanceClass);
  ~TInstanceList();

  /// A new instance of the class at the end of the list, with the default values. The list owns it.
  /// Throws what `TMemoryClass::CreateInstance` throws.
  TMemoryInstance& Add();

  /// An instance that `TMemoryClass::NewInstance` of the class made.
  void Add(const boost::shared_ptr<TMemoryInstance>& instance);

  /// The class whose instances these are.
  const boost::shared_ptr<TMemoryClass>& GetClass() const { return fClass; }

  const std::vector<boost::shared_ptr<TMemoryInstance> >& GetInstances() const {
    return fInstances;
  }

 private:
  const boost::shared_ptr<TMemoryClass> fClass;
  std::vector<boost::shared_ptr<TMemoryInstance> > fInstances;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TINSTANCELIST_H
