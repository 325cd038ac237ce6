#ifndef HWXTESTS_UNIT_APPS_HWX_MADEMODULES_H
#define HWXTESTS_UNIT_APPS_HWX_MADEMODULES_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "hwxcore/value/TCIMDateTime.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TInstanceList.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"

namespace hwxtest {

inline NQORHWX20::TCIMValue TextArray(const std::vector<std::string>& texts) {
  using NQORHWX20::TCIMValue;
  std::vector<TCIMValue> values;
  for (const std::string& text : texts)
    values.emplace_back(text.c_str());
  return TCIMValue(
      static_cast<TCIMValue::TCIMType::ECIMType>(TCIMValue::TCIMType::kCIMTypeString |
                                                 TCIMValue::TCIMType::kCIMTypeArrayFlag),
      0, values);
}

/// A namespace with the class EX_Module: the key "Tag", "Capacity" in bytes, "Form" (8 is "DIMM",
/// 9 and above "Other"), "Speed" in MHz, "Maker", "Made", a date, and "Errors". Two instances:
/// "A", all of which is known, and "B", of which only Tag, Capacity and Maker are.
inline boost::shared_ptr<NQORHWX20::TMemoryNamespace> MakeModules() {
  using namespace NQORHWX20;
  const auto ns = TMemoryNamespace::Create("root/test");
  TClassBuilder(ns, "EX_Module")
      .Description("A module of memory.")
      .Key("Tag", "string", "What it is called.")
      .Property("Capacity", "uint64", "How much it holds.")
      .Qualifier("Units", "Bytes")
      .Property("Form", "uint16", "Its shape.")
      .Qualifier("ValueMap", TextArray({"8", "9.."}))
      .Qualifier("Values", TextArray({"DIMM", "Other"}))
      .Property("Speed", "uint32")
      .Qualifier("Units", "MegaHertz")
      .Property("Maker", "string")
      .Property("Made", "datetime")
      .Property("Errors", "uint32")
      .Commit();
  const auto modules = ns->FindClass("EX_Module");
  const auto a = modules->NewInstance();
  a->Set("Tag", "A").Set("Capacity", 17179869184ul).Set("Form", static_cast<unsigned short>(8));
  a->Set("Speed", 3200u).Set("Maker", "Acme, \"Inc\"");
  a->Set("Made", TCIMDateTime("20220314120000.000000+060"));
  modules->AddInstance(a);
  const auto b = modules->NewInstance();
  b->Set("Tag", "B").Set("Capacity", 8589934592ul).Set("Maker", "Bolt");
  modules->AddInstance(b);
  return ns;
}

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_APPS_HWX_MADEMODULES_H
