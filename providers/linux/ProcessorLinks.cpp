#include "providers/linux/Caches.h"
#include "providers/linux/Classes.h"
#include "providers/linux/ObjectPaths.h"
#include "providers/linux/ProcessorParts.h"

// What processors consist of.

namespace linux_machine {

namespace {

TObject Identified(const char* className, const std::string& identifier) {
  return {className, {{"InstanceID", identifier}}};
}

TObject Core(const std::string& identifier) {
  return Identified("CIM_ProcessorCore", identifier);
}

TObject Processor(const std::string& deviceID) {
  return Device("QORSG_Processor", deviceID);
}

TLinks ReadParts(const std::string& root) {
  const TProcessorParts parts = ReadProcessorParts(root);
  TLinks links;
  for (const TProcessorCore& core : parts.fCores) {
    links.push_back({Processor(core.fProcessor), Core(core.fInstanceID), {}});
  }
  for (const THardwareThread& thread : parts.fThreads) {
    links.push_back({Core(thread.fCore), Identified("CIM_HardwareThread", thread.fInstanceID), {}});
  }
  return links;
}

template <typename Value>
void AddKnown(const char* name, const std::optional<Value>& value,
              std::vector<TNamedValue>& values) {
  if (value) {
    values.emplace_back(name, *value);
  }
}

std::vector<TNamedValue> WorkOf(const TCache& cache) {
  std::vector<TNamedValue> values = {{"Level", cache.fLevel}, {"CacheType", cache.fType}};
  AddKnown("OtherLevelDescription", cache.fLevelName, values);
  AddKnown("WritePolicy", cache.fWritePolicy, values);
  AddKnown("LineSize", cache.fLineSize, values);
  AddKnown("Associativity", cache.fAssociativity, values);
  AddKnown("OtherAssociativityDescription", cache.fAssociativityName, values);
  return values;
}

TLinks ReadServedByCaches(const std::string& root) {
  TLinks links;
  for (const TCache& cache : ReadCaches(root)) {
    const TObject memory = Device("CIM_CacheMemory", cache.fDeviceID);
    const std::vector<TNamedValue> work = WorkOf(cache);
    for (const std::string& core : cache.fCores) {
      links.push_back({memory, Core(core), work});
    }
    for (const std::string& processor : cache.fProcessors) {
      links.push_back({memory, Processor(processor), work});
    }
  }
  return links;
}

}  // namespace

void DefineProcessorLinks(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  DefineLinks(ns, "CIM_ConcreteComponent", &ReadParts);
  DefineLinks(ns, "CIM_AssociatedCacheMemory", &ReadServedByCaches);
}

}  // namespace linux_machine
