#include "hwxkit/detail/WireSchema.h"

#include <utility>

#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxcore/schema/TAddToVectorCallback.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/TInstanceList.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxkit/TMemoryParameterDecl.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/TMemoryQualifier.h"
#include "hwxkit/detail/Wire.h"

namespace NQORHWX20::detail {

namespace {

// The answer of an operation, or `otherwise` if the provider doesn't implement it.
template <typename Question>
auto AnswerOr(Question question, decltype(question()) otherwise) -> decltype(question()) {
  try {
    return question();
  } catch (const THWXException& failure) {
    if (failure.GetStatus() != kHWXStatusNotImplemented) throw;
    return otherwise;
  }
}

// The elements that an enumeration presents.
template <typename TItem, typename Enumerate>
std::vector<boost::shared_ptr<TItem>> Listed(Enumerate enumerate) {
  std::vector<boost::shared_ptr<TItem>> items;
  enumerate(TAddToVectorCallback<TItem>(&items));
  return items;
}

// A list behind its size.
template <typename TItem, typename Write>
void WriteList(TWireWriter& message, const std::vector<boost::shared_ptr<TItem>>& items,
               Write write) {
  message.Number(static_cast<std::uint32_t>(items.size()));
  for (const auto& item : items)
    write(*item);
}

template <typename Read>
void ReadList(TWireReader& message, Read read) {
  const std::uint32_t size = message.Number();
  for (std::uint32_t i = 0; i < size; ++i)
    read();
}

// What the kit's elements are told beside types and values; other providers' have nothing of it.
void WriteNotes(TWireWriter& message, const TElementNotes& notes) {
  message.Byte(notes.IsEmpty() ? 0 : 1);
  if (notes.IsEmpty()) return;
  message.Text(notes.fLanguage);
  message.Text(notes.fOrigin);
  message.Byte(notes.fIsPropagated ? 1 : 0);
  message.Byte(notes.fEmbedded);
  message.Text(notes.fReferencedClass);
  message.Number(notes.fMaxArraySize);
}

template <typename TKitElement, typename TElement>
void WriteNotesOf(TWireWriter& message, TElement& element) {
  const auto* const kit = dynamic_cast<TKitElement*>(&element);
  WriteNotes(message, kit ? kit->GetNotes() : TElementNotes());
}

TElementNotes ReadNotes(TWireReader& message) {
  TElementNotes notes;
  if (message.Byte() == 0) return notes;
  notes.fLanguage = message.Text();
  notes.fOrigin = message.Text();
  notes.fIsPropagated = message.Byte() != 0;
  const std::uint8_t embedded = message.Byte();
  if (embedded > kEmbeddedInstance) throw THWXException(kHWXStatusInvalidFormat);
  notes.fEmbedded = static_cast<EEmbeddedObject>(embedded);
  notes.fReferencedClass = message.Text();
  notes.fMaxArraySize = message.Number();
  return notes;
}

// A qualifier may have a flavor of its own.
unsigned int FlavorOf(ICIMQualifier& qualifier) {
  if (const auto* const kit = dynamic_cast<TMemoryQualifier*>(&qualifier)) return kit->GetFlavor();
  return qualifier.GetQualifierDecl(TCIMContext())->GetFlavor(TCIMContext());
}

void WriteQualifiers(TWireWriter& message, ICIMQualifiedElement& bearer) {
  std::vector<boost::shared_ptr<ICIMQualifier>> own;
  for (const auto& qualifier : Listed<ICIMQualifier>(
           [&](const auto& add) { bearer.EnumerateQualifiers(add, TCIMContext()); })) {
    if (!AnswerOr([&] { return qualifier->IsInherited(TCIMContext()); }, false))
      own.push_back(qualifier);
  }
  WriteList(message, own, [&](ICIMQualifier& qualifier) {
    message.Text(qualifier.GetQualifierDecl(TCIMContext())->GetName(TCIMContext()));
    message.Value(qualifier.GetValue(TCIMContext()));
    message.Number(FlavorOf(qualifier));
    WriteNotesOf<TMemoryQualifier>(message, qualifier);
  });
}

// The declarations that are the class's own, by the class that each names. One that names none
// counts as the class's own.
template <typename TDecl>
std::vector<boost::shared_ptr<TDecl>> OwnOf(ICIMClass& cimClass,
                                            const std::vector<boost::shared_ptr<TDecl>>& all) {
  std::vector<boost::shared_ptr<TDecl>> own;
  for (const auto& decl : all) {
    const auto declaring = AnswerOr([&] { return decl->GetClass(TCIMContext()); }, {});
    if (!declaring || declaring->GetName(TCIMContext()) == cimClass.GetName(TCIMContext()))
      own.push_back(decl);
  }
  return own;
}

void WriteProperties(TWireWriter& message, ICIMClass& cimClass) {
  const auto decls = Listed<ICIMPropertyDecl>(
      [&](const auto& add) { cimClass.EnumeratePropertyDecls(add, TCIMContext()); });
  WriteList(message, OwnOf(cimClass, decls), [&](ICIMPropertyDecl& decl) {
    message.Text(decl.GetName(TCIMContext()));
    message.Value(decl.GetDefaultValue(TCIMContext()));
    WriteNotesOf<TMemoryPropertyDecl>(message, decl);
    WriteQualifiers(message, decl);
  });
}

void WriteMethods(TWireWriter& message, ICIMClass& cimClass) {
  const auto decls = Listed<ICIMMethodDecl>(
      [&](const auto& add) { cimClass.EnumerateMethodDecls(add, TCIMContext()); });
  WriteList(message, OwnOf(cimClass, decls), [&](ICIMMethodDecl& method) {
    message.Text(method.GetName(TCIMContext()));
    message.Byte(static_cast<std::uint8_t>(method.GetReturnType(TCIMContext())));
    WriteNotesOf<TMemoryMethodDecl>(message, method);
    WriteQualifiers(message, method);
    const auto parameters = Listed<ICIMParameterDecl>(
        [&](const auto& add) { method.EnumerateParameterDecls(add, TCIMContext()); });
    WriteList(message, parameters, [&](ICIMParameterDecl& parameter) {
      message.Text(parameter.GetName(TCIMContext()));
      message.Byte(static_cast<std::uint8_t>(parameter.GetType(TCIMContext())));
      WriteNotesOf<TMemoryParameterDecl>(message, parameter);
      WriteQualifiers(message, parameter);
    });
  });
}

void WriteStatics(TWireWriter& message, ICIMClass& cimClass) {
  const auto values = Listed<ICIMProperty>(
      [&](const auto& add) { cimClass.EnumerateStaticProperties(add, TCIMContext()); });
  WriteList(message, values, [&](ICIMProperty& value) {
    message.Text(value.GetName(TCIMContext()));
    message.Value(value.GetValue(TCIMContext()));
  });
}

TCIMValue::TCIMType ReadType(TWireReader& message) {
  const std::uint8_t tag = message.Byte();
  constexpr int kHighest =
      TCIMValue::TCIMType::kCIMTypeReference | TCIMValue::TCIMType::kCIMTypeArrayFlag;
  if (tag > kHighest) throw THWXException(kHWXStatusInvalidFormat);
  return static_cast<TCIMValue::TCIMType::ECIMType>(tag);
}

void ReadQualifiers(TWireReader& message, TMemoryNamespace& ns, ICIMQualifiedElement& bearer) {
  ReadList(message, [&] {
    const auto decl = ns.GetQualifierDecl(message.Text(), TCIMContext());
    const auto qualifier = boost::static_pointer_cast<TMemoryQualifier>(
        bearer.CreateQualifier(decl, message.Value(), TCIMContext()));
    qualifier->SetFlavor(message.Number());
    qualifier->SetNotes(ReadNotes(message));
    qualifier->Commit(TCIMContext());
  });
}

void ReadProperties(TWireReader& message, TMemoryNamespace& ns, ICIMClass& newClass) {
  ReadList(message, [&] {
    const std::string name = message.Text();
    const auto decl = boost::static_pointer_cast<TMemoryPropertyDecl>(
        newClass.CreatePropertyDecl(name, message.Value(), TCIMContext()));
    decl->SetNotes(ReadNotes(message));
    ReadQualifiers(message, ns, *decl);
    decl->Commit(TCIMContext());
  });
}

void ReadMethods(TWireReader& message, TMemoryNamespace& ns, ICIMClass& newClass) {
  ReadList(message, [&] {
    const std::string name = message.Text();
    const auto method = boost::static_pointer_cast<TMemoryMethodDecl>(
        newClass.CreateMethodDecl(name, ReadType(message), TCIMContext()));
    method->SetNotes(ReadNotes(message));
    ReadQualifiers(message, ns, *method);
    ReadList(message, [&] {
      const std::string parameterName = message.Text();
      const auto parameter = boost::static_pointer_cast<TMemoryParameterDecl>(
          method->CreateParameterDecl(parameterName, ReadType(message), TCIMContext()));
      parameter->SetNotes(ReadNotes(message));
      ReadQualifiers(message, ns, *parameter);
      parameter->Commit(TCIMContext());
    });
  });
}

boost::shared_ptr<TMemoryClass> ClassNamed(const TMemoryNamespace& ns, const std::string& name) {
  auto found = ns.FindClass(name);
  if (!found) throw THWXException(kHWXStatusUnknownClass);
  return found;
}

}  // namespace

std::vector<boost::shared_ptr<ICIMClass>> AllClassesOf(ICIMNamespace& ns) {
  std::vector<boost::shared_ptr<ICIMClass>> all;
  for (const auto& root :
       Listed<ICIMClass>([&](const auto& add) { ns.EnumerateClasses(add, TCIMContext()); })) {
    all.push_back(root);
    root->EnumerateSubClasses(TAddToVectorCallback<ICIMClass>(&all), true, TCIMContext());
  }
  return all;
}

std::string QualifierDeclsMessage(ICIMNamespace& ns) {
  TWireWriter message;
  const auto decls = Listed<ICIMQualifierDecl>(
      [&](const auto& add) { ns.EnumerateQualifierDecls(add, TCIMContext()); });
  WriteList(message, decls, [&](ICIMQualifierDecl& decl) {
    message.Text(decl.GetName(TCIMContext()));
    message.Value(decl.GetDefaultValue(TCIMContext()));
    message.Number(decl.GetScope(TCIMContext()));
    message.Number(decl.GetFlavor(TCIMContext()));
  });
  return message.Bytes();
}

std::string ClassMessage(ICIMClass& cimClass) {
  TWireWriter message;
  const bool isRoot = cimClass.IsRootClass(TCIMContext());
  message.Text(cimClass.GetName(TCIMContext()));
  message.Text(isRoot ? std::string()
                      : cimClass.GetSuperClass(TCIMContext())->GetName(TCIMContext()));
  WriteQualifiers(message, cimClass);
  WriteProperties(message, cimClass);
  WriteMethods(message, cimClass);
  WriteStatics(message, cimClass);
  return message.Bytes();
}

std::string InstanceMessage(ICIMInstance& instance) {
  TWireWriter message;
  const auto properties = Listed<ICIMProperty>(
      [&](const auto& add) { instance.EnumerateProperties(add, TCIMContext()); });
  WriteList(message, properties, [&](ICIMProperty& property) {
    message.Text(property.GetName(TCIMContext()));
    message.Value(property.GetValue(TCIMContext()));
  });
  return message.Bytes();
}

void TakeQualifierDecls(std::string_view bytes, TMemoryNamespace& ns) {
  TWireReader message(bytes, [&ns](const std::string& name) { return ns.FindClass(name); });
  ReadList(message, [&] {
    const std::string name = message.Text();
    const TCIMValue defaultValue = message.Value();
    const std::uint32_t scope = message.Number();
    ns.CreateQualifierDecl(name, defaultValue, scope, message.Number(), TCIMContext())
        ->Commit(TCIMContext());
  });
  message.RequireEnd();
}

void TakeClass(std::string_view bytes, const boost::shared_ptr<TMemoryNamespace>& ns) {
  TWireReader message(bytes, [&ns](const std::string& name) { return ClassNamed(*ns, name); });
  const std::string name = message.Text();
  const std::string superName = message.Text();
  boost::shared_ptr<TMemoryClass> superclass;
  if (!superName.empty()) superclass = ClassNamed(*ns, superName);
  const auto newClass = ns->CreateClass(name, superclass, TCIMContext());
  ReadQualifiers(message, *ns, *newClass);
  ReadProperties(message, *ns, *newClass);
  ReadMethods(message, *ns, *newClass);
  ReadList(message, [&] {
    const std::string property = message.Text();
    newClass->SetStaticPropertyValue(property, message.Value(), TCIMContext());
  });
  message.RequireEnd();
  newClass->Commit(TCIMContext());
}

void TakeInstance(std::string_view bytes, const boost::shared_ptr<TMemoryNamespace>& ns,
                  TInstanceList& instances) {
  TWireReader message(bytes, [&ns](const std::string& name) { return ns->FindClass(name); });
  std::vector<std::pair<std::string, TCIMValue>> values;
  ReadList(message, [&] {
    std::string name = message.Text();
    values.emplace_back(std::move(name), message.Value());
  });
  message.RequireEnd();
  const auto instance = instances.GetClass()->NewInstance();
  for (const auto& value : values)
    instance->Set(value.first, value.second);
  instances.Add(instance);
}

}  // namespace NQORHWX20::detail
