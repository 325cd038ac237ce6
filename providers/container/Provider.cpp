// The provider "container": namespaces in memory that are kept as files. It enters itself in the
// registry when the module is loaded.

#include <boost/make_shared.hpp>
#include <string>
#include <string_view>

#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/schema/TRootObject.h"
#include "hwxkit/IContainerSource.h"
#include "hwxkit/TContainerException.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxkit/TProviderRegistration.h"
#include "providers/container/MofWriter.h"
#include "providers/container/Store.h"
#include "providers/container/Writer.h"

namespace container {

namespace {

using namespace NQORHWX20;
using TNamespace = boost::shared_ptr<ICIMNamespace>;

// The text of a failure goes to the log too, where it stands for failures of all kinds.
template <typename Call>
auto Logged(Call call) {
  try {
    return call();
  } catch (const TContainerException& failure) {
    TRootObject::GetCoreLogger()->OutputLogEntry(ILogger::kHWXLogError, failure.what());
    throw;
  }
}

// `name` is the file's in messages.
TMemoryNamespace& Kept(const TNamespace& ns, const std::string& name) {
  const auto kept = boost::dynamic_pointer_cast<TMemoryNamespace>(ns);
  if (kept) return *kept;
  throw TContainerException(kHWXStatusNotSupported,
                            name + ": the namespace isn't one that can be kept in a file");
}

void Warn(const TContainerLoading& loading, const std::string& line) {
  if (loading.fWarn)
    loading.fWarn(line);
  else
    TRootObject::GetCoreLogger()->OutputLogEntry(ILogger::kHWXLogWarning, line);
}

// Hands on what is written.
class TCallbackSink : public TByteSink {
 public:
  explicit TCallbackSink(const boost::function<void(const std::string&)>& take) : fTake(take) {}
  void Write(std::string_view bytes) override { fTake(std::string(bytes)); }

 private:
  const boost::function<void(const std::string&)>& fTake;
};

class TContainerProvider : public IContainerSource {
 public:
  const std::string& GetName(TCIMContext /*context*/) override { return fName; }

  TNamespace OpenNamespace(TCIMContext context) override {
    const auto provider = context.find(TCIMSchemaHelper::kContextName);
    if (provider != context.end() && provider->second != TCIMValue(fName))
      throw THWXException(kHWXStatusNotFound);
    const auto file = context.find(kFileContextName);
    if (file == context.end()) return NewContainer(kDefaultNamespaceName);
    return LoadContainer(file->second);
  }

  TNamespace NewContainer(const std::string& namespaceName) override {
    return TMemoryNamespace::Create(namespaceName);
  }

  TNamespace LoadContainer(const std::string& path) override {
    return LoadContainer(path, TContainerLoading());
  }

  TNamespace LoadContainer(const std::string& path, const TContainerLoading& loading) override {
    TReading reading;
    reading.fLimits.fMemory = loading.fMaxMemory;
    reading.fNamespace = loading.fNamespace;
    reading.fWarn = [&loading](const std::string& line) { Warn(loading, line); };
    return Logged([&] { return LoadFile(path, reading); });
  }

  void SaveContainer(const TNamespace& ns, const std::string& path) override {
    Logged([&] { SaveFile(Kept(ns, path), path); });
  }

  std::string ContainerText(const TNamespace& ns) override {
    return Logged([&] { return Text(Kept(ns, "container"), "container"); });
  }

  void WriteContainer(const TNamespace& ns, EContainerLanguage language,
                      const boost::function<void(const std::string&)>& sink) override {
    TCallbackSink taken(sink);
    Logged([&] {
      if (language == kContainerMOF)
        WriteMof(Kept(ns, "container"), taken, "container");
      else
        container::WriteContainer(Kept(ns, "container"), taken, "container");
    });
  }

 private:
  const std::string fName = "container";
};

const TProviderRegistration kRegistration(boost::make_shared<TContainerProvider>());

}  // namespace

}  // namespace container
