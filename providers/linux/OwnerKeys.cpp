#include "providers/linux/OwnerKeys.h"

#include <stdexcept>

#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "providers/linux/OperatingSystem.h"

namespace linux_machine {

namespace {

using NQORHWX20::TCIMContext;
using NQORHWX20::TCIMSchemaHelper;
using NQORHWX20::TMemoryClass;

constexpr const char* kClassesOfMachine[] = {"SystemCreationClassName", "CSCreationClassName"};
constexpr const char* kNamesOfMachine[] = {"SystemName", "CSName"};

}  // namespace

boost::shared_ptr<TMemoryClass> DeclaredClass(const NQORHWX20::TMemoryNamespace& ns,
                                              const std::string& name) {
  const boost::shared_ptr<TMemoryClass> found = ns.FindClass(name);
  if (!found) {
    throw std::logic_error("the schema has no class " + name);
  }
  return found;
}

void CheckDeclared(const TMemoryClass& declaring, const std::string& property,
                   NQORHWX20::TCIMValue::TCIMType type) {
  const auto decl = declaring.FindPropertyDecl(property);
  if (!decl || decl->GetType(TCIMContext()) != type) {
    throw std::logic_error("the schema has no property " + property + " of that type");
  }
}

TOwnerKeys::TOwnerKeys(TMemoryClass& owned, const std::string& root) {
  if (owned.FindPropertyDecl("CreationClassName")) {
    fValues.emplace_back("CreationClassName", owned.GetName(TCIMContext()));
  }
  for (const char* key : kClassesOfMachine) {
    if (owned.FindPropertyDecl(key)) {
      fValues.emplace_back(key, TCIMSchemaHelper::kSystemCreationClassName);
    }
  }
  for (const char* key : kNamesOfMachine) {
    if (owned.FindPropertyDecl(key)) {
      fValues.emplace_back(key, ReadHostName(root));
    }
  }
}

void TOwnerKeys::Fill(NQORHWX20::TMemoryInstance& instance) const {
  for (const auto& [name, value] : fValues) {
    instance.Set(name, value);
  }
}

}  // namespace linux_machine
