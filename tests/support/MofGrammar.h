#ifndef HWXTESTS_SUPPORT_MOFGRAMMAR_H
#define HWXTESTS_SUPPORT_MOFGRAMMAR_H

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace hwxtest {

/// What a text in the Managed Object Format holds, as a reader of the grammar sees it that knows
/// nothing of the writer. Values are normal: strings without their escapes in quotation marks,
/// words in lower case, arrays in braces.
struct Mof {
  struct Element {
    std::string declaration;  ///< Its words, as in "string Names [ 4 ]".
    std::map<std::string, std::string> qualifiers;
    std::string value;
  };

  struct Class {
    std::string superclass;
    std::map<std::string, std::string> qualifiers;
    std::map<std::string, Element> properties;
    std::map<std::string, Element> methods;
    std::map<std::string, std::map<std::string, Element>> parameters;
  };

  struct Instance {
    std::string className;
    std::map<std::string, std::string> values;
  };

  std::map<std::string, std::string> pragmas;
  std::map<std::string, Element> qualifierDecls;
  std::map<std::string, Class> classes;
  std::vector<Instance> instances;
};

/// Reads a text. Throws `std::runtime_error` with the place of the fault for what isn't the format.
Mof ReadMof(const std::string& text);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_MOFGRAMMAR_H
