#ifndef HWXTESTS_UNIT_APPS_HWX_MADEDISKS_H
#define HWXTESTS_UNIT_APPS_HWX_MADEDISKS_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TInstanceList.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"

namespace hwxtest {

/// A namespace with the abstract class EX_Device (key "Name"), its subclass EX_Disk ("Size",
/// "Model"), and EX_Note ("Text"), which has no key. Without instances.
inline boost::shared_ptr<NQORHWX20::TMemoryNamespace> MakeDisks() {
  using NQORHWX20::TClassBuilder;
  const auto ns = NQORHWX20::TMemoryNamespace::Create("root/test");
  TClassBuilder(ns, "EX_Device").Abstract().Key("Name", "string").Commit();
  TClassBuilder(ns, "EX_Disk", "EX_Device")
      .Property("Size", "uint64")
      .Property("Model", "string")
      .Commit();
  TClassBuilder(ns, "EX_Note").Property("Text", "string").Commit();
  return ns;
}

inline void AddDisk(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns,
                    const std::string& name, unsigned long size) {
  const auto disks = ns->FindClass("EX_Disk");
  const auto disk = disks->NewInstance();
  disk->Set("Name", name).Set("Size", size);
  disks->AddInstance(disk);
}

inline void AddNote(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns,
                    const std::string& text) {
  const auto notes = ns->FindClass("EX_Note");
  const auto note = notes->NewInstance();
  note->Set("Text", text);
  notes->AddInstance(note);
}

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_APPS_HWX_MADEDISKS_H
