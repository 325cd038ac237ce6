// A program that knows the core library by its one header and links against it alone. It takes
// something from each part, and prints first where the library lies.

#include <hwxcore/hwxcore.h>

#include <iostream>

using namespace NQORHWX20;

namespace {

template <typename Call>
const char* FailureOf(Call call) {
  try {
    call();
  } catch (const THWXException& failure) {
    return failure.what();
  }
  return "none";
}

// What stands beside the classes, and what the process's loggers share.
bool ReachesTheLooseEnds() {
  const boost::recursive_mutex::scoped_lock copying(copyInstMutex);
  const boost::recursive_mutex::scoped_lock logging(TLogger::fLogEntriesMutex);
  ManagerInit();
  return curl_fwrite(nullptr, 1, 1, nullptr) == 0xFFFFFFFF && TLogger::fLogEntries.size() == 1;
}

}  // namespace

int main() {
  const auto registry = TRootObject::GetNamespaceProviderManager();
  const TCIMNumericValueImpl body(static_cast<unsigned short>(255));
  std::vector<boost::shared_ptr<ICIMInstance> > instances;
  TAddToVectorCallback<ICIMInstance> collect(&instances);
  std::cout << TOSSpecific::GetHWXRootPath() << "\n";
  std::cout << body.ToString(16) << " " << TCIMCopy::CopyValue(TCIMValue(5), nullptr).ToString(10)
            << " " << FailureOf([&] { registry->GetNamespaceProvider("missing"); }) << " "
            << FailureOf([] { boost::assertion_failed("false", "main", __FILE__, __LINE__); })
            << " " << TCIMSchemaHelper::GetSystemCreationClassName(nullptr) << " "
            << TCommUtil::RemoveSpaces(" text ") << TOSSpecific::kFileSeparator
            << collect(boost::shared_ptr<ICIMInstance>()) << ReachesTheLooseEnds() << "\n";
}
