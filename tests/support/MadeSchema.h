#ifndef HWXTESTS_SUPPORT_MADESCHEMA_H
#define HWXTESTS_SUPPORT_MADESCHEMA_H

#include <boost/shared_ptr.hpp>

#include "hwxkit/TMemoryNamespace.h"

namespace hwxtest {

/// What `MakeSchema` makes.
struct MadeSchemaPlan {
  unsigned fClasses = 1500;
  unsigned fTrees = 12;             ///< Among which the classes are shared; the last are of
                                    ///< associations.
  unsigned fMaxDepth = 10;          ///< Of a tree.
  unsigned fForwardReferences = 0;  ///< Properties "Forward..." that refer to a later tree.
  unsigned fSeed = 1;
};

/// Fills an empty namespace with classes "EX_0" and so on, in the way of the large public schemas:
/// trees of several levels, a quarter of them of associations, properties of all types with and
/// without default values, overridden properties and methods, static values, methods with
/// parameters, references within a tree and to earlier ones, qualifiers on everything. The same
/// plan makes the same schema.
void MakeSchema(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns,
                const MadeSchemaPlan& plan);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_MADESCHEMA_H
