#include "hwxkit/TInstanceList.h"

#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"

namespace NQORHWX20 {

TInstanceList::TInstanceList(const boost::shared_ptr<TMemoryClass>& instanceClass)
    : fClass(instanceClass) {}

TInstanceList::~TInstanceList() = default;

TMemoryInstance& TInstanceList::Add() {
  fInstances.push_back(fClass->NewInstance());
  return *fInstances.back();
}

void TInstanceList::Add(const boost::shared_ptr<TMemoryInstance>& instance) {
  fInstances.push_back(instance);
}

}  // namespace NQORHWX20
