#ifndef HWXKIT_DETAIL_CLASSCONTENTS_H
#define HWXKIT_DETAIL_CLASSCONTENTS_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <unordered_map>
#include <vector>

#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryProperty.h"
#include "hwxkit/TNameTable.h"

namespace NQORHWX20::detail {

/// What a class holds that may refer back to the class.
struct TClassContents {
  /// The added instances, in the order of their addition.
  std::vector<boost::shared_ptr<TMemoryInstance> > fInstances;
  /// The added instances of the class and of those subclasses that have the same keys, by the texts
  /// of their keys. Filled only in the uppermost class that has these keys.
  std::unordered_map<std::string, boost::shared_ptr<TMemoryInstance> > fInstancesByKey;
  TNameTable<TMemoryProperty> fStatics;
};

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_CLASSCONTENTS_H
