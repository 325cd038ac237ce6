#include "providers/linux/FileSystems.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

const TValueMap kPersistences = {
    {0, "Unknown"}, {1, "Other"}, {2, "Persistent"}, {3, "Temporary"}, {4, "External"}};

}  // namespace

void DefineFileSystem(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TFileSystem;
  TLiveClass<Row>(ns, "CIM_FileSystem",
                  "A mounted file system. Sizes are null for those of servers and of programs, "
                  "which are never asked, since they may not answer.",
                  &ReadFileSystems)
      .Key("Name", &Row::fName, "The directory that it is mounted on.")
      .Property("ElementName", &Row::fSource, "The device or the server that it lies on.")
      .Property("Root", &Row::fRoot, "The part of the file system that is mounted; \"/\" for all.")
      .Property("FileSystemType", &Row::fType, "The kernel's word for the kind.")
      .Property("ReadOnly", &Row::fReadOnly, "Whether it is mounted for reading alone.")
      .Property("PersistenceType", &Row::fPersistence, "Whether it outlives a start.")
      .Values(kPersistences)
      .Property("BlockSize", &Row::fBlockSize, "The unit in which it gives out room.")
      .Units("Bytes")
      .Property("FileSystemSize", &Row::fSize, "What it holds.")
      .Units("Bytes")
      .Property("AvailableSpace", &Row::fAvailable, "Room that any user may take.")
      .Units("Bytes")
      .Property("NumberOfFiles", &Row::fFiles, "Files, directories and the like in it.")
      .Property("MaxFileNameLength", &Row::fMaxNameLength, "Bytes that a name may have.")
      .Commit();
}

}  // namespace linux_machine
