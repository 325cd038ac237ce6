#include "providers/container/Reader.h"

#include <algorithm>
#include <cstdint>
#include <list>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hwxkit/CIMName.h"
#include "hwxkit/TContainerException.h"
#include "providers/container/Builder.h"
#include "providers/container/Encoding.h"
#include "providers/container/PartReader.h"
#include "providers/container/ScalarText.h"
#include "providers/container/Scanner.h"

namespace container {

namespace {

using namespace NQORHWX20;
using TNamespacePtr = boost::shared_ptr<TMemoryNamespace>;

const char kObjects[] = "QUALIFIER.DECLARATION, CLASS, INSTANCE or a VALUE with one of them";

// About what a part takes while it waits.
constexpr std::uint64_t kWaitingMemory = 350;

std::uint64_t Weight(const TClassPart& part) {
  return kWaitingMemory *
         (1 + part.fProperties.size() + part.fQualifiers.size() + 2 * part.fMethods.size());
}

std::uint64_t Weight(const TInstancePart& part) {
  return kWaitingMemory * (1 + part.fProperties.size());
}

// A namespace's name without the host in front of it.
std::string WithoutHost(const std::string& name) {
  if (name.compare(0, 2, "//") != 0) return name;
  const std::size_t slash = name.find('/', 2);
  return slash == std::string::npos ? name : name.substr(slash + 1);
}

// Who leaves the host out means any.
bool IsSameNamespace(const std::string& left, const std::string& right) {
  if (IsSameCIMName(left, right)) return true;
  const bool hasOneHost = (WithoutHost(left) != left) != (WithoutHost(right) != right);
  return hasOneHost && IsSameCIMName(WithoutHost(left), WithoutHost(right));
}

// Two hyphens can't stand in a comment.
std::string WithHyphens(std::string text) {
  constexpr std::string_view kHyphen = "&#45;";
  for (std::size_t at = text.find(kHyphen); at != std::string::npos; at = text.find(kHyphen, at))
    text.replace(at, kHyphen.size(), "-");
  return text;
}

// Takes the parts of a document in any order, and makes what can be made.
class TAssembler {
 public:
  TAssembler(TScanner& scanner, const TNamespacePtr& ns, TWarnings& warnings)
      : fScanner(scanner), fNamespace(ns), fBuilder(scanner, ns, warnings) {}

  void Take(TQualifierDeclPart&& part) {
    fDeclNames.push_back(part.fName);
    if (fBuilder.IsReady(part)) return fBuilder.Add(part);
    fDecls.push_back(std::move(part));
  }

  /// Once a class waits, all that follow wait with it, so that they keep their order.
  void Take(TClassPart&& part) {
    AddReadyDecls();
    if (fClasses.empty() && fBuilder.IsReady(part)) return fBuilder.Add(part);
    fScanner.Keep(Weight(part));
    fClasses.push_back(std::move(part));
    fMayAddClasses = true;
  }

  void Take(TStaticPart&& part) {
    if (fBuilder.IsReady(part)) return fBuilder.Add(part);
    fStatics.push_back(std::move(part));
  }

  /// Leaves the part for the next instance, if it isn't needed.
  void Take(TInstancePart& part) {
    if (fMayAddClasses) AddWaitingClasses(false);
    if (fBuilder.IsReady(part)) return fBuilder.Add(part);
    fScanner.Keep(Weight(part));
    fInstances.push_back(std::move(part));
    part = TInstancePart();
  }

  /// Makes what has waited in vain.
  void Finish() {
    AddReadyDecls();
    for (TQualifierDeclPart& decl : fDecls)
      fBuilder.Add(decl);
    fNamespace->OrderQualifierDecls(fDeclNames);
    AddWaitingClasses(true);
    for (TStaticPart& part : fStatics)
      fBuilder.Add(part);
    FinishInstances();
    fBuilder.Finish();
  }

 private:
  using TWaiting = std::unordered_map<std::string, TClassPart*, TCIMNameHash, TCIMNameEqual>;

  void AddReadyDecls() {
    fDecls.remove_if([this](TQualifierDeclPart& decl) {
      const bool isReady = fBuilder.IsReady(decl);
      if (isReady) fBuilder.Add(decl);
      return isReady;
    });
  }

  // Adds the classes that wait, whose references may lead to classes that still come. Those that
  // lack a superclass or a qualifier go on waiting, unless nothing more comes.
  void AddWaitingClasses(bool isComplete) {
    fMayAddClasses = false;
    TWaiting waiting;
    for (TClassPart& part : fClasses) {
      if (!waiting.emplace(part.fName, &part).second)
        fScanner.Fail(part.fLine, "CLASS " + Quoted(part.fName) + ": the class stands twice");
    }
    for (TClassPart& part : fClasses)
      AddWithSuperclasses(part, waiting, isComplete);
    fClasses.remove_if(
        [&waiting](const TClassPart& part) { return waiting.count(part.fName) == 0; });
  }

  // Superclasses first; all else in the order of the document. Takes what it adds out of `waiting`.
  void AddWithSuperclasses(TClassPart& part, TWaiting& waiting, bool isComplete) {
    std::vector<TClassPart*> chain;
    for (auto next = waiting.find(part.fName); next != waiting.end();
         next = waiting.find(chain.back()->fSuperClass)) {
      CheckNoCircle(*next->second, chain);
      chain.push_back(next->second);
    }
    if (!isComplete && !CanAdd(chain)) return;
    for (; !chain.empty(); chain.pop_back()) {
      waiting.erase(chain.back()->fName);
      fBuilder.Add(*chain.back());
    }
  }

  bool CanAdd(const std::vector<TClassPart*>& chain) const {
    if (chain.empty()) return true;
    const std::string& superclass = chain.back()->fSuperClass;
    if (!superclass.empty() && !fBuilder.HasClass(superclass)) return false;
    for (const TClassPart* const part : chain) {
      if (!fBuilder.HasQualifiers(*part)) return false;
    }
    return true;
  }

  void CheckNoCircle(const TClassPart& next, const std::vector<TClassPart*>& chain) const {
    if (chain.size() > TMemoryNamespace::kMaxClassDepth) {
      fScanner.Fail(chain.front()->fLine,
                    "CLASS " + Quoted(chain.front()->fName) + ": has more than " +
                        std::to_string(TMemoryNamespace::kMaxClassDepth) + " superclasses");
    }
    if (std::find(chain.begin(), chain.end(), &next) != chain.end()) {
      fScanner.Fail(chain.back()->fLine,
                    "CLASS " + Quoted(chain.back()->fName) + ": descends from itself");
    }
  }

  void FinishInstances() {
    std::vector<std::string> order;
    std::map<std::string, std::vector<TInstancePart*> > unknown;
    for (TInstancePart& part : fInstances) {
      if (fBuilder.HasClass(part.fClass)) continue;
      std::vector<TInstancePart*>& instances = unknown[FoldedCIMName(part.fClass)];
      if (instances.empty()) order.push_back(FoldedCIMName(part.fClass));
      instances.push_back(&part);
    }
    for (const std::string& name : order)
      fBuilder.AddClassOf(unknown[name]);
    while (!fInstances.empty()) {
      fBuilder.Add(fInstances.front());
      fInstances.pop_front();
    }
  }

  TScanner& fScanner;
  const TNamespacePtr fNamespace;
  TBuilder fBuilder;
  std::vector<std::string> fDeclNames;  // in the order of the document
  std::list<TQualifierDeclPart> fDecls;
  std::list<TClassPart> fClasses;
  bool fMayAddClasses = false;  // something new waits
  std::list<TStaticPart> fStatics;
  std::list<TInstancePart> fInstances;
};

// Goes through the document, which is a frame around parts.
class TReader {
 public:
  TReader(TByteSource& source, const std::string& name, const TReading& reading)
      : fReading(reading),
        fScanner(source, name, reading.fLimits),
        fParts(fScanner, fWarnings),
        fNamespace(TMemoryNamespace::Create(std::string())),
        fAssembler(fScanner, fNamespace, fWarnings) {}

  TNamespacePtr Read() {
    fScanner.Next();
    if (fScanner.Element() != EElement::kCIM) {
      fScanner.Fail(fScanner.Line(), "no container: begins with " + fScanner.ElementName() +
                                         ", where CIM is expected");
    }
    fScanner.CheckAttributes({"CIMVERSION", "DTDVERSION"});
    CheckVersion("CIMVERSION");
    CheckVersion("DTDVERSION");
    ReadContent();
    CheckNamespaces();
    fAssembler.Finish();
    if (fReading.fWarn) {
      for (const std::string& line : fWarnings.Lines(fScanner.FileName()))
        fReading.fWarn(line);
    }
    return fNamespace;
  }

 private:
  [[noreturn]] void Fail(THWXStatusCode status, const std::string& why) const {
    throw TContainerException(status, fScanner.FileName() + why);
  }

  void CheckVersion(const char* attribute) const {
    const std::string* const version = fScanner.Attribute(attribute);
    if (version == nullptr) fScanner.FailHere(std::string("lacks the attribute ") + attribute);
    if (version->compare(0, 2, "2.") == 0) return;
    Fail(kHWXStatusVersionMismatch, ":" + std::to_string(fScanner.Line()) + ": CIM: " + attribute +
                                        " is " + Quoted(*version) + ", and not 2");
  }

  void ReadContent() {
    const char* const expected = "a DECLARATION or MESSAGE";
    if (!fScanner.Next()) fScanner.Fail(fScanner.Line(), std::string("CIM: lacks ") + expected);
    if (fScanner.Element() == EElement::kDeclaration)
      ReadDeclaration();
    else if (fScanner.Element() == EElement::kMessage)
      ReadMessage();
    else
      fScanner.FailUnexpected(expected);
    if (fScanner.Next()) fScanner.FailUnexpected("nothing more");
    fScanner.Next();  // refuses anything but the end
  }

  // Declarations.

  void ReadDeclaration() {
    fScanner.CheckAttributes({});
    while (fScanner.Next()) {
      if (fScanner.Element() != EElement::kDeclGroup &&
          fScanner.Element() != EElement::kDeclGroupWithName &&
          fScanner.Element() != EElement::kDeclGroupWithPath)
        fScanner.FailUnexpected("DECLGROUP, DECLGROUP.WITHNAME or DECLGROUP.WITHPATH");
      ReadGroup();
    }
  }

  void ReadGroup() {
    fScanner.CheckAttributes({});
    bool isWanted = true;
    for (bool isOpen = true; isOpen;) {
      isOpen = fScanner.Next();
      ReadNotes(isWanted);
      if (!isOpen) break;
      if (IsNamespace())
        isWanted = IsWanted(fParts.NamespaceName());
      else if (!isWanted)
        fScanner.Skip();
      else if (!ReadObject())
        fScanner.FailUnexpected(kObjects);
    }
  }

  // Static values, which CIM-XML has no element for, stand in notes.
  void ReadNotes(bool isWanted) {
    constexpr std::string_view kStatic = "static";
    if (fScanner.Notes().empty()) return;
    const std::vector<TScanner::TNote> notes = fScanner.Notes();
    for (const TScanner::TNote& note : notes) {
      if (note.fText.compare(0, kStatic.size(), kStatic) != 0)
        fScanner.Fail(note.fLine, "a note that isn't known: " + Quoted(note.fText));
      if (isWanted) ReadStatic(note.fLine, WithHyphens(note.fText.substr(kStatic.size())));
    }
  }

  void ReadStatic(TLine line, const std::string& text) {
    TMemorySource source(text);
    TScanner scanner(source, fScanner.FileName(), fReading.fLimits, line);
    if (!scanner.Next() || scanner.Element() != EElement::kStatic)
      scanner.Fail(line, "a note without static values");
    TPartReader parts(scanner, fWarnings);
    fAssembler.Take(parts.Static());
    scanner.Next();  // refuses anything but the end
  }

  // Namespaces.

  bool IsNamespace() const {
    return fScanner.Element() == EElement::kNamespacePath ||
           fScanner.Element() == EElement::kLocalNamespacePath;
  }

  // Whether what is in that namespace is to be read. What is in none belongs to every one.
  bool IsWanted(const std::string& name) {
    bool isKnown = false;
    for (const std::string& known : fNamespaces)
      isKnown = isKnown || IsSameNamespace(known, name);
    if (!isKnown) fNamespaces.push_back(name);
    const std::string& chosen = fReading.fNamespace.empty() ? fNamespaces[0] : fReading.fNamespace;
    if (!IsSameNamespace(name, chosen)) return false;
    if (!fHasNamespace) fNamespace->SetName(name);
    fHasNamespace = true;
    return true;
  }

  void CheckNamespaces() const {
    if (fReading.fNamespace.empty() && fNamespaces.size() <= 1) return;
    if (fHasNamespace && !fReading.fNamespace.empty()) return;
    std::string names;
    for (const std::string& name : fNamespaces)
      names += (names.empty() ? "" : ", ") + Quoted(name);
    if (fReading.fNamespace.empty())
      Fail(kHWXStatusNotFound,
           ": holds the namespaces " + names + ", one of which has to be chosen");
    Fail(kHWXStatusNotFound, ": there is no namespace " + Quoted(fReading.fNamespace) +
                                 (names.empty() ? "" : " among " + names));
  }

  // Objects.

  // False if the open element is none.
  bool ReadObject() {
    switch (fScanner.Element()) {
      case EElement::kQualifierDeclaration:
        fAssembler.Take(fParts.QualifierDecl());
        return true;
      case EElement::kClass:
        fAssembler.Take(fParts.Class());
        return true;
      case EElement::kStatic:
        fAssembler.Take(fParts.Static());
        return true;
      case EElement::kInstance:
        fInstance.fInstanceName.reset();
        ReadInstance();
        return true;
      case EElement::kValueObject:
      case EElement::kValueNamedObject:
      case EElement::kValueNamedInstance:
      case EElement::kValueObjectWithPath:
      case EElement::kValueObjectWithLocalPath:
      case EElement::kValueInstanceWithPath:
        ReadWrapped();
        return true;
      default:
        return false;
    }
  }

  void ReadInstance() {
    fParts.Instance(fInstance);
    fAssembler.Take(fInstance);
  }

  // An object with or without the name or path in front of it.
  void ReadWrapped() {
    fScanner.CheckAttributes({});
    const TLine line = fScanner.Line();
    const std::string element = fScanner.ElementName();
    bool isWanted = true;
    bool hasObject = false;
    fInstance.fInstanceName.reset();
    while (fScanner.Next()) {
      if (hasObject) fScanner.FailUnexpected("one object");
      if (ReadPath(isWanted)) continue;
      hasObject = true;
      if (!isWanted)
        fScanner.Skip();
      else if (fScanner.Element() == EElement::kInstance)
        ReadInstance();
      else if (fInstance.fInstanceName || !ReadBareObject())
        fScanner.FailUnexpected("CLASS or INSTANCE");
    }
    if (!hasObject) {
      fScanner.Fail(line, element +
                              ": holds neither a CLASS, nor an INSTANCE with or without its "
                              "INSTANCENAME");
    }
  }

  bool ReadBareObject() {
    if (fScanner.Element() != EElement::kClass &&
        fScanner.Element() != EElement::kQualifierDeclaration)
      return false;
    return ReadObject();
  }

  // False if the open element is no name or path.
  bool ReadPath(bool& isWanted) {
    switch (fScanner.Element()) {
      case EElement::kInstanceName:
        fInstance.fInstanceName.emplace(fParts.InstanceName());
        return true;
      case EElement::kClassName:
        fParts.Object();
        return true;
      case EElement::kClassPath:
      case EElement::kLocalClassPath:
      case EElement::kInstancePath:
      case EElement::kLocalInstancePath: {
        const bool isInstance = fScanner.Element() == EElement::kInstancePath ||
                                fScanner.Element() == EElement::kLocalInstancePath;
        TReferencePart path = fParts.Object();
        isWanted = IsWanted(path.fNamespace);
        if (!isInstance) return true;
        fInstance.fInstanceName.emplace();
        fInstance.fInstanceName->fLine = path.fLine;
        fInstance.fInstanceName->fClass = path.fClass;
        fInstance.fInstanceName->fKeys = std::move(path.fKeys);
        return true;
      }
      default:
        return false;
    }
  }

  // Messages of CIM operations.

  void ReadMessage() {
    fScanner.CheckAttributes({"ID", "PROTOCOLVERSION"});
    const TLine line = fScanner.Line();
    ReadMessagePart(true);
    if (fHasObjects || (fOther.empty() && !fOperation.empty())) return;
    if (fOther.empty()) fOther = "is empty";
    fScanner.Fail(line, "MESSAGE: " + (fOperation.empty() ? "the message" : fOperation) + " " +
                            fOther +
                            ", where classes, instances or qualifier declarations are expected");
  }

  static bool IsFrame(EElement element) {
    return element >= EElement::kSimpleReq && element <= EElement::kIReturnValue;
  }

  // Remembers which operation the message is of.
  void NameOperation() {
    const EElement element = fScanner.Element();
    const bool isAnswer =
        element == EElement::kIMethodResponse || element == EElement::kMethodResponse;
    const std::string* const name = fScanner.Attribute("NAME");
    if (name != nullptr && element != EElement::kIParamValue && element != EElement::kExpParamValue)
      fOperation = (isAnswer ? "the answer to " : "the request ") + Quoted(*name);
  }

  void ReadError() {
    const std::string* const code = fScanner.Attribute("CODE");
    const std::string* const text = fScanner.Attribute("DESCRIPTION");
    fOther = "is the error " + (code ? *code : "?") + (text ? " " + Quoted(*text) : "");
    fScanner.Skip();
  }

  void ReadMessagePart(bool isWanted) {
    while (fScanner.Next()) {
      if (IsNamespace()) {
        isWanted = IsWanted(fParts.NamespaceName());
      } else if (IsFrame(fScanner.Element())) {
        NameOperation();
        ReadMessagePart(isWanted);
      } else if (fScanner.Element() == EElement::kError) {
        ReadError();
      } else {
        ReadMessageObject(isWanted);
      }
    }
  }

  void ReadMessageObject(bool isWanted) {
    if (isWanted && ReadObject()) {
      fHasObjects = true;
      return;
    }
    fHasObjects = fHasObjects || !isWanted;
    if (fOther.empty()) fOther = "holds " + fScanner.ElementName();
    fScanner.Skip();
  }

  const TReading& fReading;
  TScanner fScanner;
  TWarnings fWarnings;
  TPartReader fParts;
  const TNamespacePtr fNamespace;
  TAssembler fAssembler;
  TInstancePart fInstance;  // the one that is being read, whose memory is used again
  std::vector<std::string> fNamespaces;
  bool fHasNamespace = false;
  bool fHasObjects = false;
  std::string fOperation;
  std::string fOther;  // what a message holds that can't be taken
};

}  // namespace

TNamespacePtr ReadContainer(TByteSource& source, const std::string& name, const TReading& reading) {
  TDecodedSource decoded(source, name);
  return TReader(decoded, name, reading).Read();
}

}  // namespace container
