// The names of elements that CIM-XML has, as far as reading tells them apart.
// Thread-safety: all of it is free of state.

#ifndef CONTAINER_ELEMENTS_H
#define CONTAINER_ELEMENTS_H

#include <string_view>

namespace container {

enum class EElement : unsigned char {
  kUnknown,
  kCIM,
  kDeclaration,
  kDeclGroup,
  kDeclGroupWithName,
  kDeclGroupWithPath,
  kMessage,
  kSimpleReq,
  kMultiReq,
  kSimpleRsp,
  kMultiRsp,
  kSimpleExpReq,
  kMultiExpReq,
  kIMethodCall,
  kIMethodResponse,
  kMethodCall,
  kMethodResponse,
  kExpMethodCall,
  kIParamValue,
  kExpParamValue,
  kIReturnValue,
  kError,
  kQualifierDeclaration,
  kScope,
  kClass,
  kInstance,
  kStatic,
  kQualifier,
  kProperty,
  kPropertyArray,
  kPropertyReference,
  kMethod,
  kParameter,
  kParameterArray,
  kParameterReference,
  kParameterRefArray,
  kValue,
  kValueArray,
  kValueReference,
  kValueRefArray,
  kValueNull,
  kValueObject,
  kValueNamedObject,
  kValueNamedInstance,
  kValueObjectWithPath,
  kValueObjectWithLocalPath,
  kValueInstanceWithPath,
  kNamespacePath,
  kLocalNamespacePath,
  kHost,
  kNamespace,
  kClassPath,
  kLocalClassPath,
  kClassName,
  kInstancePath,
  kLocalInstancePath,
  kInstanceName,
  kObjectPath,
  kKeyBinding,
  kKeyValue
};

/// The element of that name.
EElement ElementOf(std::string_view name);

}  // namespace container

#endif  // CONTAINER_ELEMENTS_H
