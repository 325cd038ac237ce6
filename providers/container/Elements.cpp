#include "providers/container/Elements.h"

#include <unordered_map>

namespace container {

namespace {

using TElements = std::unordered_map<std::string_view, EElement>;

TElements MakeElements() {
  return {{"CIM", EElement::kCIM},
          {"DECLARATION", EElement::kDeclaration},
          {"DECLGROUP", EElement::kDeclGroup},
          {"DECLGROUP.WITHNAME", EElement::kDeclGroupWithName},
          {"DECLGROUP.WITHPATH", EElement::kDeclGroupWithPath},
          {"MESSAGE", EElement::kMessage},
          {"SIMPLEREQ", EElement::kSimpleReq},
          {"MULTIREQ", EElement::kMultiReq},
          {"SIMPLERSP", EElement::kSimpleRsp},
          {"MULTIRSP", EElement::kMultiRsp},
          {"SIMPLEEXPREQ", EElement::kSimpleExpReq},
          {"MULTIEXPREQ", EElement::kMultiExpReq},
          {"IMETHODCALL", EElement::kIMethodCall},
          {"IMETHODRESPONSE", EElement::kIMethodResponse},
          {"METHODCALL", EElement::kMethodCall},
          {"METHODRESPONSE", EElement::kMethodResponse},
          {"EXPMETHODCALL", EElement::kExpMethodCall},
          {"IPARAMVALUE", EElement::kIParamValue},
          {"EXPPARAMVALUE", EElement::kExpParamValue},
          {"IRETURNVALUE", EElement::kIReturnValue},
          {"ERROR", EElement::kError},
          {"QUALIFIER.DECLARATION", EElement::kQualifierDeclaration},
          {"SCOPE", EElement::kScope},
          {"CLASS", EElement::kClass},
          {"INSTANCE", EElement::kInstance},
          {"STATIC", EElement::kStatic},
          {"QUALIFIER", EElement::kQualifier},
          {"PROPERTY", EElement::kProperty},
          {"PROPERTY.ARRAY", EElement::kPropertyArray},
          {"PROPERTY.REFERENCE", EElement::kPropertyReference},
          {"METHOD", EElement::kMethod},
          {"PARAMETER", EElement::kParameter},
          {"PARAMETER.ARRAY", EElement::kParameterArray},
          {"PARAMETER.REFERENCE", EElement::kParameterReference},
          {"PARAMETER.REFARRAY", EElement::kParameterRefArray},
          {"VALUE", EElement::kValue},
          {"VALUE.ARRAY", EElement::kValueArray},
          {"VALUE.REFERENCE", EElement::kValueReference},
          {"VALUE.REFARRAY", EElement::kValueRefArray},
          {"VALUE.NULL", EElement::kValueNull},
          {"VALUE.OBJECT", EElement::kValueObject},
          {"VALUE.NAMEDOBJECT", EElement::kValueNamedObject},
          {"VALUE.NAMEDINSTANCE", EElement::kValueNamedInstance},
          {"VALUE.OBJECTWITHPATH", EElement::kValueObjectWithPath},
          {"VALUE.OBJECTWITHLOCALPATH", EElement::kValueObjectWithLocalPath},
          {"VALUE.INSTANCEWITHPATH", EElement::kValueInstanceWithPath},
          {"NAMESPACEPATH", EElement::kNamespacePath},
          {"LOCALNAMESPACEPATH", EElement::kLocalNamespacePath},
          {"HOST", EElement::kHost},
          {"NAMESPACE", EElement::kNamespace},
          {"CLASSPATH", EElement::kClassPath},
          {"LOCALCLASSPATH", EElement::kLocalClassPath},
          {"CLASSNAME", EElement::kClassName},
          {"INSTANCEPATH", EElement::kInstancePath},
          {"LOCALINSTANCEPATH", EElement::kLocalInstancePath},
          {"INSTANCENAME", EElement::kInstanceName},
          {"OBJECTPATH", EElement::kObjectPath},
          {"KEYBINDING", EElement::kKeyBinding},
          {"KEYVALUE", EElement::kKeyValue}};
}

}  // namespace

EElement ElementOf(std::string_view name) {
  static const TElements elements = MakeElements();
  const auto found = elements.find(name);
  return found == elements.end() ? EElement::kUnknown : found->second;
}

}  // namespace container
