#ifndef HWXTESTS_UNIT_HWXCORE_VALUE_REFERENCETESTING_H
#define HWXTESTS_UNIT_HWXCORE_VALUE_REFERENCETESTING_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "hwxcore/hwxcore.h"
#include "hwxkit/hwxkit.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"

namespace hwxtest {

/// A kit namespace with the class Thing (uint32 key Id, string key Name), the class Link (reference
/// keys From and To, string key Label), one class whose key refers to itself, and one with a key of
/// every type that a path can and can't give.
class ReferenceTest : public ::testing::Test {
 protected:
  ReferenceTest() : fNamespace(NQORHWX20::TMemoryNamespace::Create("root")) {
    using NQORHWX20::TClassBuilder;
    TClassBuilder(fNamespace, "Thing").Key("Id", "uint32").Key("Name", "string").Commit();
    TClassBuilder(fNamespace, "Link")
        .KeyReference("From", "Thing")
        .Key("Label", "string")
        .KeyReference("To", "Thing")
        .Commit();
    TClassBuilder(fNamespace, "Chain").KeyReference("Next", "Thing").Key("Id", "uint32").Commit();
    TClassBuilder(fNamespace, "Other").Key("Id", "uint32").Commit();
    TClassBuilder(fNamespace, "Letter").Key("Sign", "char16").Commit();
    TClassBuilder(fNamespace, "Event").Key("At", "datetime").Key("Ok", "boolean").Commit();
  }

  NQORHWX20::TCIMReference Empty() const {
    return NQORHWX20::TCIMReference(fNamespace, NQORHWX20::TCIMContext());
  }

  NQORHWX20::TCIMReference Parsed(const std::string& path) const {
    return NQORHWX20::TCIMReference(fNamespace, path, NQORHWX20::TCIMContext());
  }

  /// The keys as "name=text" in the order of their enumeration.
  static std::vector<std::string> Keys(const NQORHWX20::TCIMReference& reference) {
    std::vector<std::string> keys;
    reference.EnumerateKeyBindings([&](std::pair<std::string, NQORHWX20::TCIMValue> key) {
      keys.push_back(key.first + "=" + key.second.ToString(10));
      return true;
    });
    return keys;
  }

  boost::shared_ptr<NQORHWX20::TMemoryNamespace> fNamespace;
};

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_HWXCORE_VALUE_REFERENCETESTING_H
