#include "support/FakeSmBios.h"

#include <dlfcn.h>

#include <algorithm>
#include <string>

#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/schema/TRootObject.h"

namespace hwxtest {

namespace {

FakeSmBios* gSmBios = nullptr;

// The library's own operation.
template <typename Operation>
Operation* Real(const char* name) {
  return reinterpret_cast<Operation*>(::dlsym(RTLD_NEXT, name));
}

void Log(const std::string& call) {
  NQORHWX20::TRootObject::GetCoreLogger()->OutputLogEntry(NQORHWX20::ILogger::kHWXLogDebug,
                                                          "(" + call + ")");
}

}  // namespace

FakeSmBios::FakeSmBios() {
  gSmBios = this;
}

FakeSmBios::~FakeSmBios() {
  gSmBios = nullptr;
}

FakeSmBios& FakeSmBios::Answer(int type, int code, const Bytes& bytes, int length) {
  fAnswers[type] = {code, bytes, length};
  return *this;
}

void FakeSmBios::ReleaseLeftBehind() {
  delete[] static_cast<char*>(fBuffer);
  Real<decltype(smBiosClose)>("smBiosClose")(&fHandle);
}

TSmBiosStatus FakeSmBios::Load(void** handle) {
  Log("load");
  *handle = nullptr;
  const bool passes = fPassingLoads > 0;
  if (passes) --fPassingLoads;
  if (!passes && fLoadCode) return {*fLoadCode};
  if (!passes && fGivesNullHandle) return {kSmBiosOK};
  const TSmBiosStatus status = Real<decltype(smBiosLoad)>("smBiosLoad")(nullptr, handle);
  fHandle = *handle;
  return status;
}

TSmBiosStatus FakeSmBios::GetFirst(void* handle, int type, void* buffer, int* length) {
  Log("read type " + std::to_string(type) + " into " + std::to_string(*length) + " bytes");
  fBuffer = buffer;
  const auto answer = fAnswers.find(type);
  if (answer == fAnswers.end()) {
    return Real<decltype(smBiosGetFirst)>("smBiosGetFirst")(handle, type, buffer, length);
  }
  const Bytes& bytes = answer->second.fBytes;
  std::copy(bytes.begin(), bytes.end(), static_cast<std::uint8_t*>(buffer));
  *length = answer->second.fLength;
  return {answer->second.fCode};
}

TSmBiosStatus FakeSmBios::Close(void** handle) {
  Log("close");
  if (*handle == fHandle) fHandle = nullptr;
  return Real<decltype(smBiosClose)>("smBiosClose")(handle);
}

}  // namespace hwxtest

extern "C" TSmBiosStatus smBiosLoad(TPluginManagerProvider* provider, void** handle) {
  if (hwxtest::gSmBios && !provider) return hwxtest::gSmBios->Load(handle);
  return hwxtest::Real<decltype(smBiosLoad)>("smBiosLoad")(provider, handle);
}

extern "C" TSmBiosStatus smBiosGetFirst(void* handle, int type, void* buffer, int* length) {
  if (hwxtest::gSmBios) return hwxtest::gSmBios->GetFirst(handle, type, buffer, length);
  return hwxtest::Real<decltype(smBiosGetFirst)>("smBiosGetFirst")(handle, type, buffer, length);
}

extern "C" TSmBiosStatus smBiosClose(void** handle) {
  if (hwxtest::gSmBios) return hwxtest::gSmBios->Close(handle);
  return hwxtest::Real<decltype(smBiosClose)>("smBiosClose")(handle);
}
