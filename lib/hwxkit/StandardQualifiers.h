#ifndef HWXKIT_STANDARDQUALIFIERS_H
#define HWXKIT_STANDARDQUALIFIERS_H

#include "hwxbase/Export.h"

namespace NQORHWX20 {

class TMemoryNamespace;

// clang-format off
/// Declares in `ns` those of the following qualifiers that it lacks, with the types, defaults, scopes
/// and flavors of the standard:
///
/// | Name             | Type     | Default | Borne by                                   | Flavor     |
/// |------------------|----------|---------|--------------------------------------------|------------|
/// | Abstract         | boolean  | false   | classes, associations, indications         | restricted |
/// | Aggregate        | boolean  | false   | references                                 | fixed      |
/// | Aggregation      | boolean  | false   | associations                               | fixed      |
/// | Association      | boolean  | false   | associations                               | fixed      |
/// | Deprecated       | string[] | null    | everything                                 | restricted |
/// | Description      | string   | null    | everything                                 | free       |
/// | In               | boolean  | true    | parameters                                 | fixed      |
/// | Key              | boolean  | false   | properties, references                     | fixed      |
/// | MaxLen           | uint32   | null    | properties, methods, parameters            | free       |
/// | Out              | boolean  | false   | parameters                                 | fixed      |
/// | Override         | string   | null    | properties, references, methods            | restricted |
/// | Propagated       | string   | null    | properties                                 | fixed      |
/// | PUnit            | string   | null    | properties, methods, parameters            | free       |
/// | Read             | boolean  | true    | properties                                 | free       |
/// | Required         | boolean  | false   | properties, references, methods, parameters | fixed      |
/// | Units            | string   | null    | properties, methods, parameters            | free       |
/// | ValueMap, Values | string[] | null    | properties, methods, parameters            | free       |
/// | Version          | string   | null    | classes, associations, indications         | restricted |
/// | Weak             | boolean  | false   | references                                 | fixed      |
/// | Write            | boolean  | false   | properties                                 | free       |
///
/// Free means inherited and overridable, fixed means inherited and not overridable, restricted means
/// not inherited; it may be overridden. "Description", "Units", "Values" and "Version" are
/// translatable besides. A namespace that something is to be copied into should stay empty instead:
/// its declarations come with the copy.
// clang-format on
HWX_EXPORT void DeclareStandardQualifiers(TMemoryNamespace& ns);

}  // namespace NQORHWX20

#endif  // HWXKIT_STANDARDQUALIFIERS_H
