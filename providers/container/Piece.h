#ifndef CONTAINER_PIECE_H
#define CONTAINER_PIECE_H

#include <initializer_list>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "hwxkit/TContainerException.h"
#include "providers/container/Vocabulary.h"

namespace container {

class TScanner;

/// One piece of a document, parsed: an element with all that is in it. It knows the line of each
/// element, and reads attributes and texts strictly. What is wrong throws `TContainerException`
/// with `kHWXStatusCorruptedContainer` and a text that names the file, the line and the element.
///
/// Thread-safety: none.
class TPiece {
 public:
  /// Parses what the scanner has read last, an element or a tag alone.
  explicit TPiece(const TScanner& scanner);

  pugi::xml_node Root() const { return fDocument.document_element(); }

  [[noreturn]] void Fail(const pugi::xml_node& element, const std::string& why) const;

  /// Refuses attributes other than these and those of XML itself.
  void CheckAttributes(const pugi::xml_node& element,
                       std::initializer_list<const char*> names) const;

  /// Calls `visit` for each element within an element, and refuses any other content.
  template <typename Visit>
  void ForEachElement(const pugi::xml_node& element, Visit visit) const {
    for (const pugi::xml_node child : element.children()) {
      if (child.type() == pugi::node_element)
        visit(child);
      else
        CheckBlank(child);
    }
  }

  /// All of them.
  std::vector<pugi::xml_node> Elements(const pugi::xml_node& element) const {
    std::vector<pugi::xml_node> elements;
    ForEachElement(element, [&](const pugi::xml_node& child) { elements.push_back(child); });
    return elements;
  }

  [[noreturn]] void FailUnexpected(const pugi::xml_node& element) const;

  /// The text within an element that holds no others.
  std::string Text(const pugi::xml_node& element) const;

  /// An attribute that holds a name, without its escapes. `Name` throws if there is none.
  std::string Name(const pugi::xml_node& element, const char* attribute) const;
  /// The same, empty if there is none.
  std::string OptionalName(const pugi::xml_node& element, const char* attribute) const;

  /// An attribute that is true or false; false if there is none, unless `absent` says otherwise.
  bool Flag(const pugi::xml_node& element, const char* attribute, bool absent = false) const;
  /// An attribute that is a number; 0 if there is none.
  unsigned int Number(const pugi::xml_node& element, const char* attribute) const;
  /// The attribute TYPE, which has to be there.
  TType Type(const pugi::xml_node& element) const;

  /// Calls something of the kit, whose failures are those of the element.
  template <typename Call>
  auto Guard(const pugi::xml_node& element, Call call) const {
    try {
      return call();
    } catch (const NQORHWX20::TContainerException&) {
      throw;
    } catch (const NQORHWX20::THWXException& failure) {
      Fail(element, std::string("refused with ") + failure.what());
    }
  }

 private:
  unsigned long LineOf(const pugi::xml_node& element) const;
  void CheckBlank(const pugi::xml_node& text) const;

  const std::string fFileName;
  std::string fText;
  const unsigned long fLine;
  pugi::xml_document fDocument;
};

/// Whether an element has this name.
bool Is(const pugi::xml_node& element, const char* name);

}  // namespace container

#endif  // CONTAINER_PIECE_H
