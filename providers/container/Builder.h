#ifndef CONTAINER_BUILDER_H
#define CONTAINER_BUILDER_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Parts.h"
#include "providers/container/Scanner.h"
#include "providers/container/Warnings.h"

namespace container {

/// Makes declarations, classes and instances out of what was read of them. What can't be is refused
/// with the line and the element.
///
/// Something is ready when all that it names is there. What never comes is left to others: then
/// `Add` makes do with names alone, and a warning says so.
///
/// Thread-safety: none.
class TBuilder {
 public:
  /// The scanner tells the file's name and counts what is kept.
  TBuilder(TScanner& scanner, const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns,
           TWarnings& warnings);

  bool IsReady(const TQualifierDeclPart& decl) const;
  bool IsReady(const TClassPart& made) const;
  bool IsReady(const TStaticPart& values) const;
  bool IsReady(const TInstancePart& instance) const;

  /// Each may take its part apart.
  void Add(TQualifierDeclPart& decl);
  void Add(TClassPart& made);
  void Add(TStaticPart& values);
  void Add(TInstancePart& instance);

  /// Whether all qualifiers of the class are declared.
  bool HasQualifiers(const TClassPart& made) const;
  /// Whether there is a class of that name.
  bool HasClass(const std::string& name) const;
  /// Makes a class out of its instances: it has the properties that they have.
  void AddClassOf(const std::vector<TInstancePart*>& instances);

  /// To be called behind the last part: warns of the classes that never came.
  void Finish();

 private:
  using TClass = boost::shared_ptr<NQORHWX20::TMemoryClass>;

  // What is asked of a class for each of its instances.
  struct TClassFacts {
    std::size_t fKeys = 0;
    std::uint64_t fInstanceMemory = 0;
  };

  [[noreturn]] void Fail(TLine line, const std::string& element, const std::string& name,
                         const std::string& why) const;
  template <typename Call>
  auto Guard(TLine line, const char* element, const std::string& name, Call call) const;

  bool IsReady(const TQualifierParts& qualifiers) const;
  bool IsReady(const TValuePart& value) const;
  bool IsReady(const TReferencePart& reference) const;
  TClass ClassNamed(TLine line, const std::string& name);

  NQORHWX20::TCIMValue Null(TLine line, TType type, unsigned int maxArraySize,
                            const std::string& referencedClass);
  NQORHWX20::TCIMValue Value(TLine line, TType type, TValuePart& value);
  NQORHWX20::TCIMValue Reference(TReferencePart& part);
  NQORHWX20::TCIMValue References(TType type, unsigned int maxArraySize,
                                  std::vector<TReferencePart>& parts);
  std::string KeyName(const TKeyPart& key, const TClass& keyClass) const;
  TType KeyType(const TKeyPart& key, const std::string& name, const TClass& keyClass);
  NQORHWX20::TCIMValue KeyValue(TKeyPart& key, TType type);
  NQORHWX20::TCIMValue KeyText(const TKeyPart& key, const TKeyElement& element, TType type);
  void CheckKeyType(const TKeyPart& key, TType type) const;

  boost::shared_ptr<NQORHWX20::ICIMQualifierDecl> QualifierDecl(const std::string& name,
                                                                TType type);
  void AddQualifiers(TQualifierParts& parts, NQORHWX20::ICIMQualifiedElement& bearer,
                     const TClass& made);
  void AddQualifier(TQualifierPart& part, NQORHWX20::ICIMQualifiedElement& bearer,
                    const TClass& made);
  void CheckOrigin(TLine line, const char* element, const std::string& name,
                   NQORHWX20::TElementNotes& notes, const TClass& made) const;
  void AddProperty(TPropertyPart& part, const TClass& made);
  void AddMethod(TMethodPart& part, const TClass& made);
  void AddParameter(TParameterPart& part, NQORHWX20::ICIMMethodDecl& method, const TClass& made);
  void KeepClass(const NQORHWX20::TMemoryClass& made);
  void DeclareProperty(TLine line, const std::string& name, const TType& type, bool isKey,
                       NQORHWX20::EEmbeddedObject embedded, const TClass& made);
  void DeclareProperties(const std::vector<TInstancePart*>& instances, const TClass& made);

  TClassFacts& FactsOf(const TClass& source);
  void AddValue(TPropertyPart& part, const TClass& owner, NQORHWX20::TMemoryInstance& instance);
  void AddName(TInstanceName& name, const TClass& owner, NQORHWX20::TMemoryInstance& instance);
  void AddKey(TKeyPart& key, const TClass& owner, NQORHWX20::TMemoryInstance& instance);
  bool IsSame(const NQORHWX20::TCIMValue& left, const NQORHWX20::TCIMValue& right) const;
  void Hold(const TInstancePart& part, const TClass& owner,
            const boost::shared_ptr<NQORHWX20::TMemoryInstance>& instance) const;

  TScanner& fScanner;
  const boost::shared_ptr<NQORHWX20::TMemoryNamespace> fNamespace;
  const boost::shared_ptr<NQORHWX20::TMemoryNamespace> fStandard;  // has the standard qualifiers
  TWarnings& fWarnings;
  std::set<std::string> fNamedClasses;  // those that weren't there when they were needed
  std::unordered_map<const NQORHWX20::TMemoryClass*, TClassFacts> fFacts;
  TClass fLastClass;  // of an instance, with the facts
  TClassFacts* fLastFacts;
  std::vector<char> fIsSet;  // of the instance in the making, for each property
  std::vector<char> fIsNamed;
};

}  // namespace container

#endif  // CONTAINER_BUILDER_H
