#ifndef HWXTESTS_SUPPORT_PTR_H
#define HWXTESTS_SUPPORT_PTR_H

#include <boost/shared_ptr.hpp>

namespace hwxtest {

/// How the schema's objects are held.
template <typename T>
using Ptr = boost::shared_ptr<T>;

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_PTR_H
