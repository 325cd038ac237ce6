#include "support/TracedNamespace.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/weak_ptr.hpp>
#include <functional>
#include <map>
#include <utility>

#include "support/SchemaStubs.h"
#include "support/ValueText.h"

using namespace NQORHWX20;

namespace hwxtest {

namespace {

class TracedClass;

// What the objects of a namespace share.
struct World {
  CallTrace& fTrace;
  const std::string fLabel;
  std::map<ICIMClass*, boost::weak_ptr<ICIMClass> > fClasses;
};

template <typename Interface>
class Holder {
 public:
  Holder(const Ptr<World>& world, const Ptr<Interface>& inner, const std::string& label)
      : fWorld(world), fInner(inner), fLabel(label) {}
  virtual ~Holder() = default;

  const Ptr<World> fWorld;
  const Ptr<Interface> fInner;
  const std::string fLabel;
};

template <typename Interface>
Ptr<Interface> Inner(const Ptr<Interface>& object) {
  const auto* const holder = dynamic_cast<const Holder<Interface>*>(object.get());
  return holder != nullptr ? holder->fInner : object;
}

template <typename Interface>
std::string Label(const Ptr<Interface>& object) {
  if (!object) return "none";
  const auto* const holder = dynamic_cast<const Holder<Interface>*>(object.get());
  return holder != nullptr ? holder->fLabel : "untraced";
}

// A stub whose calls are recorded and passed on.
template <typename Stub, typename Interface>
class TracedObject : public Stub, public Holder<Interface> {
 public:
  using Holder<Interface>::Holder;

 protected:
  using Inside = Holder<Interface>;

  /// Passes a call on that returns no object.
  template <typename Call>
  decltype(auto) Pass(const std::string& call, const Context& context, const Call& inner) {
    Inside::fWorld->fTrace.Record(Inside::fLabel + "." + call, context);
    const CallTrace::Quiet quiet(Inside::fWorld->fTrace, true);
    return inner(*Inside::fInner);
  }

  /// The same for an operation that takes nothing but the context.
  template <typename Operation>
  decltype(auto) Ask(const std::string& call, Operation operation, const Context& context) {
    return Pass(call, context,
                [&](Interface& inner) -> decltype(auto) { return (inner.*operation)(context); });
  }

  /// Passes a call on that returns an object, which `wrap` makes a traced one.
  template <typename Call, typename Wrap>
  auto Hand(const std::string& call, const Context& context, const Call& inner, const Wrap& wrap)
      -> decltype(inner(*Inside::fInner)) {
    if (Inside::fWorld->fTrace.Record(Inside::fLabel + "." + call, context)) return {};
    const CallTrace::Quiet quiet(Inside::fWorld->fTrace, true);
    const auto object = inner(*Inside::fInner);
    if (!object) return {};
    return wrap(object);
  }

  /// Passes an enumeration on, whose elements `wrap` makes traced ones. `inner` takes the object, a
  /// callback and the context.
  template <typename Element, typename Call, typename Wrap>
  void Present(const std::string& call, const Context& context, const Callback<Element>& callback,
               const Call& inner, const Wrap& wrap) {
    CallTrace& trace = Inside::fWorld->fTrace;
    const std::string line = Inside::fLabel + "." + call;
    trace.Record(line, context);
    const CallTrace::Quiet quiet(trace, true);
    const Callback<Element> wrapping = [&](Ptr<Element> element) {
      const Ptr<Element> wrapped = wrap(element);
      const CallTrace::Quiet aloud(trace, false);
      const bool goesOn = callback(wrapped);
      if (!goesOn) trace.Record(line + " stopped", {});
      return goesOn;
    };
    std::invoke(inner, *Inside::fInner, wrapping, context);
  }
};

class TracedQualifierDecl : public TracedObject<StubQualifierDecl, ICIMQualifierDecl> {
 public:
  using TracedObject::TracedObject;

  void Commit(Context context) override { Ask("Commit", &ICIMQualifierDecl::Commit, context); }
  const std::string& GetName(Context context) override {
    return Ask("GetName", &ICIMQualifierDecl::GetName, context);
  }
  const TCIMValue& GetDefaultValue(Context context) override {
    return Ask("GetDefaultValue", &ICIMQualifierDecl::GetDefaultValue, context);
  }
  unsigned int GetScope(Context context) override {
    return Ask("GetScope", &ICIMQualifierDecl::GetScope, context);
  }
  unsigned int GetFlavor(Context context) override {
    return Ask("GetFlavor", &ICIMQualifierDecl::GetFlavor, context);
  }
};

Ptr<ICIMQualifierDecl> Wrap(const Ptr<World>& world, const Ptr<ICIMQualifierDecl>& inner) {
  return Ptr<ICIMQualifierDecl>(
      new TracedQualifierDecl(world, inner, world->fLabel + "[" + inner->GetName({}) + "]"));
}

class TracedQualifier : public TracedObject<StubQualifier, ICIMQualifier> {
 public:
  using TracedObject::TracedObject;

  void Commit(Context context) override { Ask("Commit", &ICIMQualifier::Commit, context); }
  Ptr<ICIMQualifierDecl> GetQualifierDecl(Context context) override {
    return Hand(
        "GetQualifierDecl", context, [&](auto& inner) { return inner.GetQualifierDecl(context); },
        [&](const auto& decl) { return Wrap(fWorld, decl); });
  }
  const TCIMValue& GetValue(Context context) override {
    return Ask("GetValue", &ICIMQualifier::GetValue, context);
  }
};

template <typename Stub, typename Interface>
class TracedElement : public TracedObject<Stub, Interface> {
 public:
  using TracedObject<Stub, Interface>::TracedObject;

  Ptr<ICIMQualifier> CreateQualifier(Ptr<ICIMQualifierDecl> decl, const TCIMValue& value,
                                     Context context) override {
    return this->Hand(
        "CreateQualifier(" + Label(decl) + ", " + TracedText(value) + ")", context,
        [&](auto& inner) { return inner.CreateQualifier(Inner(decl), value, context); },
        [&](const auto& qualifier) { return WrapQualifier(qualifier); });
  }
  Ptr<ICIMQualifier> GetQualifier(const std::string& name, Context context) override {
    return this->Hand(
        "GetQualifier(" + name + ")", context,
        [&](auto& inner) { return inner.GetQualifier(name, context); },
        [&](const auto& qualifier) { return WrapQualifier(qualifier); });
  }
  void EnumerateQualifiers(const Callback<ICIMQualifier>& callback, Context context) override {
    this->Present("EnumerateQualifiers", context, callback, &Interface::EnumerateQualifiers,
                  [&](const auto& qualifier) { return WrapQualifier(qualifier); });
  }

 private:
  Ptr<ICIMQualifier> WrapQualifier(const Ptr<ICIMQualifier>& inner) {
    const std::string name = inner->GetQualifierDecl({})->GetName({});
    return Ptr<ICIMQualifier>(
        new TracedQualifier(this->fWorld, inner, this->fLabel + "[" + name + "]"));
  }
};

class TracedPropertyDecl : public TracedElement<StubPropertyDecl, ICIMPropertyDecl> {
 public:
  using TracedElement::TracedElement;

  void Commit(Context context) override { Ask("Commit", &ICIMPropertyDecl::Commit, context); }
  const std::string& GetName(Context context) override {
    return Ask("GetName", &ICIMPropertyDecl::GetName, context);
  }
  TCIMValue::TCIMType GetType(Context context) override {
    return Ask("GetType", &ICIMPropertyDecl::GetType, context);
  }
  const TCIMValue& GetDefaultValue(Context context) override {
    return Ask("GetDefaultValue", &ICIMPropertyDecl::GetDefaultValue, context);
  }
};

class TracedParameterDecl : public TracedElement<StubParameterDecl, ICIMParameterDecl> {
 public:
  using TracedElement::TracedElement;

  void Commit(Context context) override { Ask("Commit", &ICIMParameterDecl::Commit, context); }
  const std::string& GetName(Context context) override {
    return Ask("GetName", &ICIMParameterDecl::GetName, context);
  }
  TCIMValue::TCIMType GetType(Context context) override {
    return Ask("GetType", &ICIMParameterDecl::GetType, context);
  }
};

class TracedMethodDecl : public TracedElement<StubMethodDecl, ICIMMethodDecl> {
 public:
  using TracedElement::TracedElement;

  const std::string& GetName(Context context) override {
    return Ask("GetName", &ICIMMethodDecl::GetName, context);
  }
  TCIMValue::TCIMType GetReturnType(Context context) override {
    return Ask("GetReturnType", &ICIMMethodDecl::GetReturnType, context);
  }
  Ptr<ICIMParameterDecl> CreateParameterDecl(const std::string& name, TCIMValue::TCIMType type,
                                             Context context) override {
    return Hand(
        "CreateParameterDecl(" + name + ", " + TypeText(type) + ")", context,
        [&](auto& inner) { return inner.CreateParameterDecl(name, type, context); },
        [&](const auto& parameter) { return WrapParameter(parameter); });
  }
  void EnumerateParameterDecls(const Callback<ICIMParameterDecl>& callback,
                               Context context) override {
    Present("EnumerateParameterDecls", context, callback, &ICIMMethodDecl::EnumerateParameterDecls,
            [&](const auto& parameter) { return WrapParameter(parameter); });
  }

 private:
  Ptr<ICIMParameterDecl> WrapParameter(const Ptr<ICIMParameterDecl>& inner) {
    const std::string method = fLabel.substr(0, fLabel.size() - 1);
    return Ptr<ICIMParameterDecl>(
        new TracedParameterDecl(fWorld, inner, method + inner->GetName({}) + ")"));
  }
};

class TracedProperty : public TracedObject<StubProperty, ICIMProperty> {
 public:
  TracedProperty(const Ptr<World>& world, const Ptr<ICIMProperty>& inner, const std::string& label,
                 const std::string& classLabel)
      : TracedObject(world, inner, label), fClassLabel(classLabel) {}

  const TCIMValue& GetValue(Context context) override {
    return Ask("GetValue", &ICIMProperty::GetValue, context);
  }
  Ptr<ICIMPropertyDecl> GetPropertyDecl(Context context) override {
    return Hand(
        "GetPropertyDecl", context, [&](auto& inner) { return inner.GetPropertyDecl(context); },
        [&](const auto& decl) {
          return Ptr<ICIMPropertyDecl>(
              new TracedPropertyDecl(fWorld, decl, fClassLabel + "." + decl->GetName({})));
        });
  }

 private:
  const std::string fClassLabel;
};

Ptr<ICIMClass> Wrap(const Ptr<World>& world, const Ptr<ICIMClass>& inner);

class TracedInstance : public TracedObject<StubInstance, ICIMInstance> {
 public:
  TracedInstance(const Ptr<World>& world, const Ptr<ICIMInstance>& inner,
                 const std::string& classLabel, const std::string& number)
      : TracedObject(world, inner, classLabel + "#" + number), fClassLabel(classLabel) {}

  Ptr<ICIMClass> GetClass(Context context) override {
    return Hand(
        "GetClass", context, [&](auto& inner) { return inner.GetClass(context); },
        [&](const auto& itsClass) { return Wrap(fWorld, itsClass); });
  }
  void SetPropertyValue(const std::string& name, const TCIMValue& value, Context context) override {
    Pass("SetPropertyValue(" + name + ", " + TracedText(value) + ")", context,
         [&](auto& inner) { inner.SetPropertyValue(name, value, context); });
  }
  void EnumerateProperties(const Callback<ICIMProperty>& callback, Context context) override {
    Present("EnumerateProperties", context, callback, &ICIMInstance::EnumerateProperties,
            [&](const auto& property) {
              return Ptr<ICIMProperty>(new TracedProperty(
                  fWorld, property, fLabel + "." + property->GetName({}), fClassLabel));
            });
  }

 private:
  const std::string fClassLabel;
};

class TracedClass : public TracedElement<StubClass, ICIMClass> {
 public:
  using TracedElement::TracedElement;

  void Commit(Context context) override { Ask("Commit", &ICIMClass::Commit, context); }
  const std::string& GetName(Context context) override {
    return Ask("GetName", &ICIMClass::GetName, context);
  }
  bool IsAssociation(Context context) override {
    return Ask("IsAssociation", &ICIMClass::IsAssociation, context);
  }
  bool IsAbstract(Context context) override {
    return Ask("IsAbstract", &ICIMClass::IsAbstract, context);
  }
  bool IsRootClass(Context context) override {
    return Ask("IsRootClass", &ICIMClass::IsRootClass, context);
  }
  bool IsSubClassOf(const std::string& name, Context context) override {
    return Pass("IsSubClassOf(" + name + ")", context,
                [&](auto& inner) { return inner.IsSubClassOf(name, context); });
  }
  Ptr<ICIMClass> GetSuperClass(Context context) override {
    return Hand(
        "GetSuperClass", context, [&](auto& inner) { return inner.GetSuperClass(context); },
        [&](const auto& superclass) { return Wrap(fWorld, superclass); });
  }
  void EnumerateSubClasses(const Callback<ICIMClass>& callback, bool deep,
                           Context context) override {
    Present(
        deep ? "EnumerateSubClasses(deep)" : "EnumerateSubClasses(shallow)", context, callback,
        [deep](auto& inner, const auto& wrapping, const Context& same) {
          inner.EnumerateSubClasses(wrapping, deep, same);
        },
        [&](const auto& subclass) { return Wrap(fWorld, subclass); });
  }

  Ptr<ICIMPropertyDecl> CreatePropertyDecl(const std::string& name, const TCIMValue& defaultValue,
                                           Context context) override {
    return Hand(
        "CreatePropertyDecl(" + name + ", " + TracedText(defaultValue) + ")", context,
        [&](auto& inner) { return inner.CreatePropertyDecl(name, defaultValue, context); },
        [&](const auto& decl) { return WrapPropertyDecl(decl); });
  }
  Ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name, Context context) override {
    return Hand(
        "GetPropertyDecl(" + name + ")", context,
        [&](auto& inner) { return inner.GetPropertyDecl(name, context); },
        [&](const auto& decl) { return WrapPropertyDecl(decl); });
  }
  void EnumeratePropertyDecls(const Callback<ICIMPropertyDecl>& callback,
                              Context context) override {
    Present("EnumeratePropertyDecls", context, callback, &ICIMClass::EnumeratePropertyDecls,
            [&](const auto& decl) { return WrapPropertyDecl(decl); });
  }
  void SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                              Context context) override {
    Pass("SetStaticPropertyValue(" + name + ", " + TracedText(value) + ")", context,
         [&](auto& inner) { inner.SetStaticPropertyValue(name, value, context); });
  }
  void EnumerateStaticProperties(const Callback<ICIMProperty>& callback, Context context) override {
    Present("EnumerateStaticProperties", context, callback, &ICIMClass::EnumerateStaticProperties,
            [&](const auto& property) {
              return Ptr<ICIMProperty>(new TracedProperty(
                  fWorld, property, fLabel + "::" + property->GetName({}), fLabel));
            });
  }

  Ptr<ICIMInstance> CreateInstance(Context context) override {
    return Hand(
        "CreateInstance", context, [&](auto& inner) { return inner.CreateInstance(context); },
        [&](const auto& instance) { return WrapInstance(instance, "new"); });
  }
  void EnumerateInstances(const Callback<ICIMInstance>& callback, bool deep,
                          Context context) override {
    int count = 0;
    Present(
        deep ? "EnumerateInstances(deep)" : "EnumerateInstances(shallow)", context, callback,
        [deep](auto& inner, const auto& wrapping, const Context& same) {
          inner.EnumerateInstances(wrapping, deep, same);
        },
        [&](const auto& instance) { return WrapInstance(instance, std::to_string(count++)); });
  }
  void AddInstance(Ptr<ICIMInstance> instance) override {
    Pass("AddInstance(" + Label(instance) + ")", {},
         [&](auto& inner) { inner.AddInstance(Inner(instance)); });
  }

  Ptr<ICIMMethodDecl> CreateMethodDecl(const std::string& name, TCIMValue::TCIMType returnType,
                                       Context context) override {
    return Hand(
        "CreateMethodDecl(" + name + ", " + TypeText(returnType) + ")", context,
        [&](auto& inner) { return inner.CreateMethodDecl(name, returnType, context); },
        [&](const auto& method) { return WrapMethod(method); });
  }
  void EnumerateMethodDecls(const Callback<ICIMMethodDecl>& callback, Context context) override {
    Present("EnumerateMethodDecls", context, callback, &ICIMClass::EnumerateMethodDecls,
            [&](const auto& method) { return WrapMethod(method); });
  }

 private:
  Ptr<ICIMPropertyDecl> WrapPropertyDecl(const Ptr<ICIMPropertyDecl>& inner) {
    return Ptr<ICIMPropertyDecl>(
        new TracedPropertyDecl(fWorld, inner, fLabel + "." + inner->GetName({})));
  }
  Ptr<ICIMMethodDecl> WrapMethod(const Ptr<ICIMMethodDecl>& inner) {
    return Ptr<ICIMMethodDecl>(
        new TracedMethodDecl(fWorld, inner, fLabel + "." + inner->GetName({}) + "()"));
  }
  Ptr<ICIMInstance> WrapInstance(const Ptr<ICIMInstance>& inner, const std::string& number) {
    const std::string itsClass = inner->GetClass({})->GetName({});
    return Ptr<ICIMInstance>(
        new TracedInstance(fWorld, inner, fWorld->fLabel + "." + itsClass, number));
  }
};

Ptr<ICIMClass> Wrap(const Ptr<World>& world, const Ptr<ICIMClass>& inner) {
  boost::weak_ptr<ICIMClass>& known = world->fClasses[inner.get()];
  Ptr<ICIMClass> wrapped = known.lock();
  if (!wrapped) {
    wrapped.reset(new TracedClass(world, inner, world->fLabel + "." + inner->GetName({})));
    known = wrapped;
  }
  return wrapped;
}

class Namespace : public TracedObject<StubNamespace, ICIMNamespace> {
 public:
  using TracedObject::TracedObject;

  Ptr<ICIMClass> CreateClass(const std::string& name, Ptr<ICIMClass> superclass,
                             Context context) override {
    return Hand(
        "CreateClass(" + name + ", " + Label(superclass) + ")", context,
        [&](auto& inner) { return inner.CreateClass(name, Inner(superclass), context); },
        [&](const auto& made) { return Wrap(fWorld, made); });
  }
  Ptr<ICIMClass> GetClass(const std::string& name, Context context) override {
    return Hand(
        "GetClass(" + name + ")", context,
        [&](auto& inner) { return inner.GetClass(name, context); },
        [&](const auto& found) { return Wrap(fWorld, found); });
  }
  void EnumerateClasses(const Callback<ICIMClass>& callback, Context context) override {
    Present("EnumerateClasses", context, callback, &ICIMNamespace::EnumerateClasses,
            [&](const auto& root) { return Wrap(fWorld, root); });
  }
  Ptr<ICIMQualifierDecl> CreateQualifierDecl(const std::string& name, const TCIMValue& defaultValue,
                                             unsigned int scope, unsigned int flavor,
                                             Context context) override {
    return Hand(
        "CreateQualifierDecl(" + name + ", " + TracedText(defaultValue) + ", " +
            std::to_string(scope) + ", " + std::to_string(flavor) + ")",
        context,
        [&](auto& inner) {
          return inner.CreateQualifierDecl(name, defaultValue, scope, flavor, context);
        },
        [&](const auto& decl) { return Wrap(fWorld, decl); });
  }
  Ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name, Context context) override {
    return Hand(
        "GetQualifierDecl(" + name + ")", context,
        [&](auto& inner) { return inner.GetQualifierDecl(name, context); },
        [&](const auto& decl) { return Wrap(fWorld, decl); });
  }
  void EnumerateQualifierDecls(const Callback<ICIMQualifierDecl>& callback,
                               Context context) override {
    Present("EnumerateQualifierDecls", context, callback, &ICIMNamespace::EnumerateQualifierDecls,
            [&](const auto& decl) { return Wrap(fWorld, decl); });
  }
};

}  // namespace

Ptr<ICIMNamespace> TracedNamespace(const Ptr<ICIMNamespace>& inner, const std::string& label,
                                   CallTrace& trace) {
  const Ptr<World> world(new World{trace, label, {}});
  return Ptr<ICIMNamespace>(new Namespace(world, inner, label));
}

Ptr<ICIMClass> Untraced(const Ptr<ICIMClass>& object) {
  return Inner(object);
}

Ptr<ICIMInstance> Untraced(const Ptr<ICIMInstance>& object) {
  return Inner(object);
}

std::string TracedText(const TCIMValue& value) {
  return ValueText(value, [](ICIMClass& named) {
    const auto* const holder = dynamic_cast<const Holder<ICIMClass>*>(&named);
    return holder != nullptr ? holder->fLabel : "untraced";
  });
}

}  // namespace hwxtest
