#ifndef HWXTESTS_UNIT_APPS_HWX_MADEMACHINE_H
#define HWXTESTS_UNIT_APPS_HWX_MADEMACHINE_H

#include <boost/make_shared.hpp>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TInstanceList.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"

namespace hwxtest {

/// A namespace as providers publish it, of a rack server by default; tests change what they are
/// about:
///
///     AskIdentity(MadeMachine().Product("Box 5").Open())
class MadeMachine {
 public:
  using TCIMValue = NQORHWX20::TCIMValue;

  static constexpr const char* kComputer = "QORSG_ComputerSystem";
  static constexpr const char* kSystem = "QORSG_OperatingSystem";
  static constexpr const char* kProduct = "QORSG_HWXProduct";

  MadeMachine() {
    Name("rack7").Product("Rack Server -[7915AC1]-").Serial("KQ12345").Firmware(Null());
    Set(kSystem, "Name", "Debian GNU/Linux").Set(kSystem, "Version", "12");
    OSType(static_cast<unsigned short>(36));
    Set(kProduct, "Version", "1.2.3.4").Build("4");
  }

  static TCIMValue Null() { return TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0); }

  MadeMachine& Name(const TCIMValue& value) { return Set(kComputer, "Name", value); }
  MadeMachine& Product(const TCIMValue& value) { return Set(kComputer, "ProductName", value); }
  MadeMachine& Serial(const TCIMValue& value) { return Set(kComputer, "SerialNumber", value); }
  MadeMachine& Firmware(const TCIMValue& value) { return Set(kComputer, "FirmwareStatus", value); }
  MadeMachine& OSType(const TCIMValue& value) { return Set(kSystem, "OSType", value); }
  MadeMachine& Build(const TCIMValue& value) { return Set(kProduct, "Build", value); }

  MadeMachine& Set(const std::string& cimClass, const std::string& property,
                   const TCIMValue& value) {
    fClasses[cimClass].fProperties.erase(property);
    fClasses[cimClass].fProperties.emplace(property, value);
    return *this;
  }

  MadeMachine& Without(const std::string& cimClass) {
    fClasses.erase(cimClass);
    return *this;
  }

  MadeMachine& Without(const std::string& cimClass, const std::string& property) {
    fClasses[cimClass].fProperties.erase(property);
    return *this;
  }

  MadeMachine& Instances(const std::string& cimClass, int count) {
    fClasses[cimClass].fCount = count;
    return *this;
  }

  /// What the enumeration of the class runs first; it may throw.
  MadeMachine& Before(const std::string& cimClass, const std::function<void()>& hook) {
    fClasses[cimClass].fBefore = hook;
    return *this;
  }

  boost::shared_ptr<NQORHWX20::ICIMNamespace> Open() const {
    const auto ns = NQORHWX20::TMemoryNamespace::Create("test", "plugin");
    for (const auto& [name, made] : fClasses)
      Define(ns, name, made);
    return ns;
  }

 private:
  struct MadeClass {
    std::map<std::string, TCIMValue> fProperties;
    int fCount = 1;
    std::function<void()> fBefore;
  };

  static void Define(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns,
                     const std::string& name, const MadeClass& made) {
    NQORHWX20::TClassBuilder builder(ns, name);
    for (const auto& [property, value] : made.fProperties)
      builder.Property(property, value.GetType());
    builder.Source([made](NQORHWX20::TInstanceList& list) { Fill(list, made); }).Commit();
  }

  static void Fill(NQORHWX20::TInstanceList& list, const MadeClass& made) {
    if (made.fBefore) made.fBefore();
    for (int i = 0; i < made.fCount; ++i) {
      NQORHWX20::TMemoryInstance& instance = list.Add();
      for (const auto& [property, value] : made.fProperties) {
        if (!value.IsNull()) instance.Set(property, value);
      }
    }
  }

  std::map<std::string, MadeClass> fClasses;
};

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_APPS_HWX_MADEMACHINE_H
