#ifndef CONTAINER_VALUEREADER_H
#define CONTAINER_VALUEREADER_H

#include <boost/shared_ptr.hpp>
#include <functional>
#include <pugixml.hpp>
#include <string>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMValue.h"
#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Piece.h"
#include "providers/container/Vocabulary.h"

namespace container {

/// Reads values out of the elements of a piece. References are bound to the namespace that is being
/// loaded, so the classes that they name have to be in it.
///
/// Thread-safety: none.
class TValueReader {
 public:
  typedef boost::shared_ptr<NQORHWX20::TMemoryClass> TClass;

  TValueReader(const TPiece& piece, const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns)
      : fPiece(piece), fNamespace(ns) {}

  /// The class that an attribute names; empty if there is no such attribute.
  TClass FindClass(const pugi::xml_node& element, const char* attribute) const;

  /// The type that an element of the PROPERTY family declares.
  TType PropertyType(const pugi::xml_node& element) const;

  /// The value within `element`, or the null of `type` if there is none. The maximum size of an
  /// array and the class of a reference stand in attributes of `element`. Elements of the name
  /// `companion`, if it isn't null, may stand beside the value; they are read elsewhere.
  NQORHWX20::TCIMValue Value(const pugi::xml_node& element, TType type,
                             const char* companion = nullptr) const;

  /// Calls `visit` for each KEYBINDING in an INSTANCENAME, with the name and the value that is of
  /// the type which the class declares.
  typedef std::function<void(const pugi::xml_node& element, const std::string& name,
                             const NQORHWX20::TCIMValue& value)>
      TKeyVisitor;
  void Keys(const pugi::xml_node& instanceName, const TClass& keyClass,
            const TKeyVisitor& visit) const {
    Keys(instanceName, keyClass, visit, 0);
  }

 private:
  pugi::xml_node FindValue(const pugi::xml_node& element, const char* companion) const;
  NQORHWX20::TCIMValue Null(const pugi::xml_node& element, TType type) const;
  NQORHWX20::TCIMValue Value(const pugi::xml_node& element, TType type, const char* companion,
                             unsigned int depth) const;
  NQORHWX20::TCIMValue Single(const pugi::xml_node& element, TType type, unsigned int depth) const;
  NQORHWX20::TCIMValue Scalar(const pugi::xml_node& element, TType type) const;
  NQORHWX20::TCIMValue Array(const pugi::xml_node& element, TType type, unsigned int maxArraySize,
                             unsigned int depth) const;
  NQORHWX20::TCIMValue Reference(const pugi::xml_node& element, unsigned int depth) const;
  void Target(const pugi::xml_node& element, NQORHWX20::TCIMReference& reference,
              unsigned int depth) const;
  void Object(const pugi::xml_node& element, NQORHWX20::TCIMReference& reference,
              unsigned int depth) const;
  void Keys(const pugi::xml_node& instanceName, const TClass& keyClass, const TKeyVisitor& visit,
            unsigned int depth) const;

  const TPiece& fPiece;
  const boost::shared_ptr<NQORHWX20::TMemoryNamespace> fNamespace;
};

/// The name of a namespace, from an element with a NAMESPACE for each part of it.
std::string NamespaceName(const TPiece& piece, const pugi::xml_node& localNamespacePath);

}  // namespace container

#endif  // CONTAINER_VALUEREADER_H
