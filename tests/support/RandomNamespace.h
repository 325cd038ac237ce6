#ifndef HWXTESTS_SUPPORT_RANDOMNAMESPACE_H
#define HWXTESTS_SUPPORT_RANDOMNAMESPACE_H

#include <boost/shared_ptr.hpp>
#include <cstdint>

#include "hwxkit/TMemoryNamespace.h"

namespace hwxtest {

/// A namespace in memory with something of everything: qualifier declarations of any type, scope
/// and flavor, classes with superclasses, overriding declarations, methods and static values,
/// instances with references to each other. The same seed gives the same namespace.
boost::shared_ptr<NQORHWX20::TMemoryNamespace> RandomNamespace(std::uint64_t seed);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_RANDOMNAMESPACE_H
