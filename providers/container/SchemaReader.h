#ifndef CONTAINER_SCHEMAREADER_H
#define CONTAINER_SCHEMAREADER_H

#include <boost/shared_ptr.hpp>
#include <pugixml.hpp>

#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMQualifiedElement.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Piece.h"
#include "providers/container/ValueReader.h"

namespace container {

/// Reads the declarations of a piece into a namespace: qualifier declarations, classes, and the
/// static values of classes.
///
/// Thread-safety: none.
class TSchemaReader {
 public:
  TSchemaReader(const TPiece& piece, const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns)
      : fPiece(piece), fNamespace(ns), fValues(piece, ns) {}

  typedef boost::shared_ptr<NQORHWX20::TMemoryClass> TClass;

  /// Each takes its element.
  void ReadQualifierDecl(const pugi::xml_node& element) const;
  TClass ReadClass(const pugi::xml_node& element) const;
  void ReadStaticValues(const pugi::xml_node& element) const;

 private:
  unsigned int Scope(const pugi::xml_node& decl) const;
  unsigned int Flavor(const pugi::xml_node& element) const;
  void CheckFlavor(const pugi::xml_node& element, unsigned int declared) const;
  void ReadQualifier(const pugi::xml_node& element, NQORHWX20::ICIMQualifiedElement& bearer) const;
  void ReadQualifiers(const pugi::xml_node& element, NQORHWX20::ICIMQualifiedElement& bearer) const;
  bool IsPropagated(const pugi::xml_node& element, bool isInherited) const;
  void CheckOrigin(const pugi::xml_node& element, NQORHWX20::TMemoryClass& newClass) const;
  void ReadProperty(const pugi::xml_node& element, const TClass& newClass) const;
  void ReadMethod(const pugi::xml_node& element, const TClass& newClass) const;
  void ReadParameter(const pugi::xml_node& element, NQORHWX20::ICIMMethodDecl& method) const;

  const TPiece& fPiece;
  const boost::shared_ptr<NQORHWX20::TMemoryNamespace> fNamespace;
  const TValueReader fValues;
};

}  // namespace container

#endif  // CONTAINER_SCHEMAREADER_H
