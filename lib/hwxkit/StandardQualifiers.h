#ifndef HWXKIT_STANDARDQUALIFIERS_H
#define HWXKIT_STANDARDQUALIFIERS_H

#include "hwxbase/Export.h"

namespace NQORHWX20 {

class TMemoryNamespace;

// clang-format off
/// Declares in `ns` those of the following qualifiers that it lacks:
///
/// | Name             | Type     | Default | Borne by                           | Flavor     |
/// |------------------|----------|---------|------------------------------------|------------|
/// | Abstract         | boolean  | false   | classes, associations, indications | restricted |
/// | Association      | boolean  | false   | associations                       | fixed      |
/// | Description      | string   | null    | everything                         | free       |
/// | In               | boolean  | true    | parameters                         | fixed      |
/// | Key              | boolean  | false   | properties, references             | fixed      |
/// | MaxLen           | uint32   | null    | all but classes                    | free       |
/// | Out              | boolean  | false   | parameters                         | fixed      |
/// | Override         | string   | null    | properties, references, methods    | restricted |
/// | PUnit            | string   | null    | all but classes                    | free       |
/// | Read             | boolean  | true    | properties, references             | free       |
/// | Required         | boolean  | false   | all but classes                    | fixed      |
/// | Units            | string   | null    | all but classes                    | free       |
/// | ValueMap, Values | string[] | null    | all but classes                    | free       |
/// | Version          | string   | null    | classes, associations, indications | restricted |
/// | Write            | boolean  | false   | properties, references             | free       |
///
/// Free means inherited and overridable, fixed means inherited and not overridable. "Description",
/// "Units" and "Values" are translatable besides. A namespace that something is to be copied into
/// should stay empty instead: its declarations come with the copy.
// clang-format on
HWX_EXPORT void DeclareStandardQualifiers(TMemoryNamespace& ns);

}  // namespace NQORHWX20

#endif  // HWXKIT_STANDARDQUALIFIERS_H
