#include "providers/linux/FileSystems.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

// The standard has a class of its own for those whose files lie on this machine.
template <bool kIsLocal>
std::vector<TFileSystem> ReadThose(const std::string& root) {
  std::vector<TFileSystem> rows;
  for (TFileSystem& row : ReadFileSystems(root)) {
    if (row.fIsLocal == kIsLocal) {
      rows.push_back(std::move(row));
    }
  }
  return rows;
}

void Define(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns, const char* name,
            std::vector<TFileSystem> (*read)(const std::string&)) {
  using Row = TFileSystem;
  TLiveClass<Row>(ns, name, read)
      .Key("Name", &Row::fName)
      .Set("ElementName", &Row::fSource)
      .Set("Root", &Row::fRoot)
      .Set("FileSystemType", &Row::fType)
      .Set("ReadOnly", &Row::fReadOnly)
      .Set("PersistenceType", &Row::fPersistence)
      .Set("BlockSize", &Row::fBlockSize)
      .Set("FileSystemSize", &Row::fSize)
      .Set("AvailableSpace", &Row::fAvailable)
      .Set("NumberOfFiles", &Row::fFiles)
      .Set("MaxFileNameLength", &Row::fMaxNameLength)
      .Commit();
}

}  // namespace

void DefineFileSystem(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  Define(ns, "CIM_LocalFileSystem", &ReadThose<true>);
  Define(ns, "CIM_FileSystem", &ReadThose<false>);
}

}  // namespace linux_machine
