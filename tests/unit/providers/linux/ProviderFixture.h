#ifndef HWXTESTS_UNIT_PROVIDERS_LINUX_PROVIDERFIXTURE_H
#define HWXTESTS_UNIT_PROVIDERS_LINUX_PROVIDERFIXTURE_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>
#include <vector>

#include "hwxcore/hwxcore.h"
#include "hwxkit/INamespaceSource.h"
#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// Tests of the real module: it is loaded, found in the registry and asked as front ends ask it.
/// The machine that it sees is the test's own, at first one of which nothing is known.
class ProviderTest : public ::testing::Test {
 protected:
  using Instances = std::vector<boost::shared_ptr<NQORHWX20::ICIMInstance>>;

  void SetUp() override {
    NQORHWX20::TOSSpecific::LoadNSPLibrary("plugin");
    const auto source = boost::dynamic_pointer_cast<NQORHWX20::INamespaceSource>(
        NQORHWX20::TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider("plugin"));
    ASSERT_TRUE(source);
    fNamespace = source->OpenNamespace({});
    ASSERT_TRUE(fNamespace);
  }

  Instances List(const std::string& className) {
    Instances instances;
    fNamespace->GetClass(className, {})
        ->EnumerateInstances(NQORHWX20::TAddToVectorCallback<NQORHWX20::ICIMInstance>(&instances),
                             true, {});
    return instances;
  }

  /// The property of an instance.
  static NQORHWX20::TCIMValue Value(const boost::shared_ptr<NQORHWX20::ICIMInstance>& instance,
                                    const std::string& property) {
    return instance->GetProperty(property, {})->GetValue({});
  }

  /// The property of the first instance of a class as it is now.
  NQORHWX20::TCIMValue Read(const std::string& className, const std::string& property) {
    return Value(List(className).at(0), property);
  }

  /// The same as text; none when it is null.
  std::optional<std::string> ReadText(const std::string& className, const std::string& property) {
    const NQORHWX20::TCIMValue value = Read(className, property);
    return value.IsNull() ? std::nullopt : std::optional(value.ToString(10));
  }

  /// Whether it is null, and of that type all the same.
  bool IsNullOf(NQORHWX20::TCIMValue::TCIMType::ECIMType type, const std::string& className,
                const std::string& property) {
    const NQORHWX20::TCIMValue value = Read(className, property);
    return value.IsNull() && value.GetType() == type;
  }

  TemporaryDirectory fDirectory;
  ScopedEnvironment fRoot{"HWX_SYSROOT", fDirectory.Path()};
  ScopedEnvironment fTables{"HWX_SMBIOS_TABLES", std::nullopt};
  boost::shared_ptr<NQORHWX20::ICIMNamespace> fNamespace;
};

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_PROVIDERS_LINUX_PROVIDERFIXTURE_H
