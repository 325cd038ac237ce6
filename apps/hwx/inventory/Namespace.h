// Short names for the handles by which schema objects are passed on.

#ifndef HWX_INVENTORY_NAMESPACE_H
#define HWX_INVENTORY_NAMESPACE_H

#include <boost/shared_ptr.hpp>

#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMNamespace.h"

namespace hwx {

using NamespacePtr = boost::shared_ptr<NQORHWX20::ICIMNamespace>;
using ClassPtr = boost::shared_ptr<NQORHWX20::ICIMClass>;
using InstancePtr = boost::shared_ptr<NQORHWX20::ICIMInstance>;

}  // namespace hwx

#endif  // HWX_INVENTORY_NAMESPACE_H
