#include "hwx/system/LogErrors.h"

#include <boost/thread/lock_guard.hpp>

#include "hwxcore/diagnostics/TLogger.h"
#include "hwxcore/schema/TRootObject.h"

namespace hwx {

using NQORHWX20::ILogger;
using NQORHWX20::TLogger;
using NQORHWX20::TRootObject;

namespace {

typedef boost::lock_guard<boost::recursive_mutex> TLock;

}  // namespace

TLogErrors::TLogErrors() {
  const TLock lock(TLogger::fLogEntriesMutex);
  fStart = TRootObject::GetCoreLogger()->GetLog().size();
}

std::string TLogErrors::Last() const {
  const TLock lock(TLogger::fLogEntriesMutex);
  std::string last;
  std::size_t position = 0;
  for (const ILogger::TLogEntry& entry : TRootObject::GetCoreLogger()->GetLog()) {
    if (position++ >= fStart && entry.fSeverity == ILogger::kHWXLogError) last = entry.fMessage;
  }
  return last;
}

}  // namespace hwx
