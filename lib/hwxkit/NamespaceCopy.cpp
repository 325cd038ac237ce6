#include "hwxkit/NamespaceCopy.h"

#include <utility>
#include <vector>

#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxcore/schema/TAddToVectorCallback.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxkit/TMemoryParameterDecl.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/TMemoryQualifier.h"
#include "hwxkit/TMemoryQualifierDecl.h"

namespace NQORHWX20 {

namespace {

using TTarget = boost::shared_ptr<TMemoryNamespace>;
using TSourceClasses = std::vector<boost::shared_ptr<ICIMClass> >;

boost::shared_ptr<TMemoryClass> ClassIn(const TTarget& target, const std::string& name) {
  const boost::shared_ptr<TMemoryClass> found = target->FindClass(name);
  return found ? found : target->OutsideClass(name);
}

// What is told of an element of the kit beside its type and value.
template <typename TKitElement, typename TElement>
void CopyNotes(TElement& source, TElement& copy) {
  const auto* const kitSource = dynamic_cast<TKitElement*>(&source);
  if (kitSource) static_cast<TKitElement&>(copy).SetNotes(kitSource->GetNotes());
}

// Whether a class declares the element itself. Providers may leave the question out.
template <typename TDecl>
bool IsOwn(TDecl& decl, ICIMClass& owner) {
  try {
    const boost::shared_ptr<ICIMClass> declaring = decl.GetClass(TCIMContext());
    return !declaring || declaring->GetName(TCIMContext()) == owner.GetName(TCIMContext());
  } catch (const THWXException&) {
    return true;
  }
}

bool IsInheritedQualifier(ICIMQualifier& qualifier) {
  try {
    return qualifier.IsInherited(TCIMContext());
  } catch (const THWXException&) {
    return false;
  }
}

TSourceClasses ClassesOf(ICIMNamespace& source) {
  TSourceClasses classes;
  if (auto* const kit = dynamic_cast<TMemoryNamespace*>(&source)) {
    for (const auto& found : kit->GetClasses())
      classes.push_back(found);
    return classes;
  }
  TSourceClasses roots;
  source.EnumerateClasses(TAddToVectorCallback<ICIMClass>(&roots), TCIMContext());
  for (const auto& root : roots) {
    classes.push_back(root);
    root->EnumerateSubClasses(TAddToVectorCallback<ICIMClass>(&classes), true, TCIMContext());
  }
  return classes;
}

// Copies one class after the other.
class TSchemaCopier {
 public:
  TSchemaCopier(const TTarget& target, const TCopyFailure& failed)
      : fTarget(target), fFailed(failed) {}

  void CopyQualifierDecl(ICIMQualifierDecl& source) {
    const std::string& name = source.GetName(TCIMContext());
    if (fTarget->GetQualifierDecl(name, TCIMContext())) return;
    const auto copy = boost::static_pointer_cast<TMemoryQualifierDecl>(fTarget->CreateQualifierDecl(
        name, CopyValue(source.GetDefaultValue(TCIMContext()), fTarget),
        source.GetScope(TCIMContext()), source.GetFlavor(TCIMContext()), TCIMContext()));
    const auto* const kit = dynamic_cast<TMemoryQualifierDecl*>(&source);
    if (kit && kit->IsOutside()) copy->SetOutside();
    copy->Commit(TCIMContext());
  }

  void CopyClass(ICIMClass& source) {
    const std::string& name = source.GetName(TCIMContext());
    fPlace = " of " + name;
    boost::shared_ptr<ICIMClass> superclass;
    if (!source.IsRootClass(TCIMContext()))
      superclass = ClassIn(fTarget, source.GetSuperClass(TCIMContext())->GetName(TCIMContext()));
    const auto copy = boost::static_pointer_cast<TMemoryClass>(
        fTarget->CreateClass(name, superclass, TCIMContext()));
    CopyQualifiers(source, *copy);
    CopyProperties(source, *copy);
    CopyStatics(source, *copy);
    CopyMethods(source, *copy);
    copy->Commit(TCIMContext());
    const auto* const kit = dynamic_cast<TMemoryClass*>(&source);
    if (kit && kit->IsOutside()) copy->SetOutside();
  }

 private:
  template <typename Step>
  void Try(const char* kind, const std::string& name, Step step) {
    try {
      step();
    } catch (const THWXException& failure) {
      if (fFailed) fFailed(std::string("the ") + kind + " " + name + fPlace, failure.what());
    }
  }

  void CopyQualifiers(ICIMQualifiedElement& source, ICIMQualifiedElement& copy) {
    source.EnumerateQualifiers(
        [&](const boost::shared_ptr<ICIMQualifier>& qualifier) {
          if (!IsInheritedQualifier(*qualifier)) {
            Try("qualifier", qualifier->GetName(TCIMContext()),
                [&] { CopyQualifier(*qualifier, copy); });
          }
          return true;
        },
        TCIMContext());
  }

  void CopyQualifier(ICIMQualifier& source, ICIMQualifiedElement& copy) {
    const auto decl = source.GetQualifierDecl(TCIMContext());
    CopyQualifierDecl(*decl);
    const auto made =
        copy.CreateQualifier(fTarget->GetQualifierDecl(decl->GetName(TCIMContext()), TCIMContext()),
                             CopyValue(source.GetValue(TCIMContext()), fTarget), TCIMContext());
    if (const auto* const kit = dynamic_cast<TMemoryQualifier*>(&source))
      static_cast<TMemoryQualifier&>(*made).SetFlavor(kit->GetFlavor());
    CopyNotes<TMemoryQualifier>(source, *made);
    made->Commit(TCIMContext());
  }

  void CopyProperties(ICIMClass& source, TMemoryClass& copy) {
    source.EnumeratePropertyDecls(
        [&](const boost::shared_ptr<ICIMPropertyDecl>& decl) {
          const std::string& name = decl->GetName(TCIMContext());
          const auto there = copy.FindPropertyDecl(name);
          // Where nothing tells who declares it, what is there already is taken for inherited.
          const bool isKnown = dynamic_cast<TMemoryPropertyDecl*>(decl.get()) != nullptr;
          if (IsOwn(*decl, source) && (isKnown || !there || HasClass(*decl)))
            Try("property", name, [&] { CopyProperty(*decl, copy); });
          return true;
        },
        TCIMContext());
  }

  static bool HasClass(ICIMPropertyDecl& decl) {
    try {
      return decl.GetClass(TCIMContext()) != nullptr;
    } catch (const THWXException&) {
      return false;
    }
  }

  void CopyProperty(ICIMPropertyDecl& source, TMemoryClass& copy) {
    const auto made = copy.CreatePropertyDecl(
        source.GetName(TCIMContext()), CopyValue(source.GetDefaultValue(TCIMContext()), fTarget),
        TCIMContext());
    CopyQualifiers(source, *made);
    CopyNotes<TMemoryPropertyDecl>(source, *made);
    made->Commit(TCIMContext());
  }

  void CopyStatics(ICIMClass& source, TMemoryClass& copy) {
    source.EnumerateStaticProperties(
        [&](const boost::shared_ptr<ICIMProperty>& property) {
          const auto decl = property->GetPropertyDecl(TCIMContext());
          const std::string& name = decl->GetName(TCIMContext());
          Try("static value", name, [&] {
            copy.SetStaticPropertyValue(name, CopyValue(property->GetValue(TCIMContext()), fTarget),
                                        TCIMContext());
          });
          return true;
        },
        TCIMContext());
  }

  void CopyMethods(ICIMClass& source, TMemoryClass& copy) {
    source.EnumerateMethodDecls(
        [&](const boost::shared_ptr<ICIMMethodDecl>& decl) {
          if (IsOwn(*decl, source))
            Try("method", decl->GetName(TCIMContext()), [&] { CopyMethod(*decl, copy); });
          return true;
        },
        TCIMContext());
  }

  void CopyMethod(ICIMMethodDecl& source, TMemoryClass& copy) {
    const auto made = copy.CreateMethodDecl(source.GetName(TCIMContext()),
                                            source.GetReturnType(TCIMContext()), TCIMContext());
    CopyQualifiers(source, *made);
    CopyNotes<TMemoryMethodDecl>(source, *made);
    source.EnumerateParameterDecls(
        [&](const boost::shared_ptr<ICIMParameterDecl>& parameter) {
          const auto madeParameter = made->CreateParameterDecl(
              parameter->GetName(TCIMContext()), parameter->GetType(TCIMContext()), TCIMContext());
          CopyQualifiers(*parameter, *madeParameter);
          CopyNotes<TMemoryParameterDecl>(*parameter, *madeParameter);
          madeParameter->Commit(TCIMContext());
          return true;
        },
        TCIMContext());
  }

  const TTarget fTarget;
  const TCopyFailure& fFailed;
  std::string fPlace;
};

// Values.

// A class outside the target knows none of its keys but those of the references to it.
void AddKey(TCIMReference& reference, TMemoryClass& named, const std::string& name,
            const TCIMValue& value) {
  if (named.IsOutside() && !named.FindPropertyDecl(name))
    named.DeclareOutsideKey(name, value.GetType());
  reference.AddKeyValue(name, value);
}

TCIMValue CopyReference(const TCIMValue& value, const TTarget& target) {
  if (value.IsNull()) {
    TCIMValue null(value.GetType(), 0);
    if (const auto referenced = value.GetReferencedClass())
      null.SetReferencedClass(ClassIn(target, referenced->GetName(TCIMContext())));
    return null;
  }
  const TCIMReference source = value;
  const boost::shared_ptr<TMemoryClass> named = ClassIn(target, source.GetClassName());
  TCIMReference copy(target, TCIMContext());
  copy.SetClass(named);
  copy.SetNameSpaceName(source.GetNameSpaceName());
  source.EnumerateKeyBindings([&](const std::pair<std::string, TCIMValue>& key) {
    AddKey(copy, *named, key.first, CopyValue(key.second, target));
    return true;
  });
  return TCIMValue(copy);
}

TCIMValue CopyReferences(const TCIMValue& value, const TTarget& target) {
  TCIMValue copy(value.GetType(), value.GetMaxArraySize(), std::vector<TCIMValue>());
  std::vector<TCIMValue>& elements = copy;
  const std::vector<TCIMValue>& sources = value;
  for (const TCIMValue& source : sources)
    elements.push_back(CopyReference(source, target));
  return copy;
}

}  // namespace

TCIMValue CopyValue(const TCIMValue& value, const TTarget& target) {
  if (value.IsReference()) return CopyReference(value, target);
  const TCIMValue::TCIMType::ECIMType type = value.GetType();
  const bool areReferences =
      type == (TCIMValue::TCIMType::kCIMTypeReference | TCIMValue::TCIMType::kCIMTypeArrayFlag);
  return areReferences && !value.IsNull() ? CopyReferences(value, target) : TCIMValue(value);
}

void CopySchema(ICIMNamespace& source, const TTarget& target, const TCopyFailure& failed) {
  TSchemaCopier copier(target, failed);
  source.EnumerateQualifierDecls(
      [&copier](const boost::shared_ptr<ICIMQualifierDecl>& decl) {
        copier.CopyQualifierDecl(*decl);
        return true;
      },
      TCIMContext());
  for (const auto& found : ClassesOf(source))
    copier.CopyClass(*found);
}

void CopyInstance(ICIMInstance& source, const TTarget& target) {
  const boost::shared_ptr<TMemoryClass> owner =
      target->FindClass(source.GetClass(TCIMContext())->GetName(TCIMContext()));
  if (!owner) throw THWXException(kHWXStatusNotFound);
  const boost::shared_ptr<TMemoryInstance> copy = owner->NewInstance();
  const auto* const kit = dynamic_cast<TMemoryInstance*>(&source);
  std::size_t place = 0;
  source.EnumerateProperties(
      [&](const boost::shared_ptr<ICIMProperty>& property) {
        const std::string& name = property->GetPropertyDecl(TCIMContext())->GetName(TCIMContext());
        const std::size_t index = owner->PropertyIndex(name);
        if (index == owner->PropertyDecls().size()) throw THWXException(kHWXStatusNotFound);
        copy->SetValueAt(index, CopyValue(property->GetValue(TCIMContext()), target));
        if (kit && !kit->NotesAt(place).IsEmpty()) copy->SetNotesAt(index, kit->NotesAt(place));
        ++place;
        return true;
      },
      TCIMContext());
  if (kit && !kit->NotesAt(place).IsEmpty())
    copy->SetNotesAt(owner->PropertyDecls().size(), kit->NotesAt(place));
  owner->AddInstance(copy);
}

}  // namespace NQORHWX20
