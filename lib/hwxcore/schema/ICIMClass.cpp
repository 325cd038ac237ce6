#include "hwxcore/schema/ICIMClass.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMClass::~ICIMClass() = default;

void ICIMClass::Delete(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMClass::IsCommitted(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMClass::Rename(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

unsigned int ICIMClass::GetSubClassCount(bool /*deep*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMClass::HasSubClasses(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMClass::IsSubClassOf(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMClass::IsSuperClassOf(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMClass::DeletePropertyDecl(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMMethodDecl> ICIMClass::GetMethodDecl(const std::string& /*name*/,
                                                           TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMClass::DeleteMethodDecl(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

unsigned int ICIMClass::GetPropertyDeclCount(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

unsigned int ICIMClass::GetMethodDeclCount(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMProperty> ICIMClass::GetStaticProperty(const std::string& /*name*/,
                                                             TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMClass::DeleteStaticProperty(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMClass::EnumerateKeyPropertyDecls(
    const boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& /*callback*/,
    TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

unsigned int ICIMClass::GetInstanceCount(bool /*deep*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMClass::DeleteInstances(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
