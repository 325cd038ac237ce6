#ifndef CONTAINER_SCANNER_H
#define CONTAINER_SCANNER_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "providers/container/Bytes.h"
#include "providers/container/Elements.h"
#include "providers/container/Limits.h"

namespace container {

/// Goes through an XML document element by element, with no more of it in memory than the tag or
/// text that is being read.
///
///     while (scanner.Next()) {            // each PROPERTY within the open INSTANCE
///       ... scanner.Attribute("NAME") ...
///       while (scanner.Next())            // each VALUE within the PROPERTY
///         ... scanner.Text() ...          // closes the VALUE
///     }
///
/// It is strict: XML 1.0 in UTF-8, well-formed to the last byte. It takes a document type
/// declaration without definitions and reads none from outside; entities other than XML's own five
/// are refused, so nothing in a document can grow. What is wrong throws `TContainerException` with
/// `kHWXStatusCorruptedContainer` and a text that names the file and the line.
///
/// Comments are passed over, but those that begin with "hwx " are notes of this system: they say
/// what CIM-XML can't.
///
/// Thread-safety: none.
class TScanner {
 public:
  struct TNote {
    unsigned long fLine;
    std::string fText;  ///< Behind "hwx ".
  };

  /// `name` is that of the file in messages, `line` that of the first byte.
  TScanner(TByteSource& source, const std::string& name, const TLimits& limits,
           unsigned long line = 1);

  /// Goes on within the open element, or in the document while none is open. True if there is one
  /// more element, which is the open one then. False at the end of the open element, which is
  /// closed with it, and at the end of the document.
  bool Next();

  /// The text of the open element, which must hold no other, and is closed. Valid until the next
  /// text is read.
  const std::string& Text();

  /// Closes the open element, which must be empty.
  void Close();

  /// Closes the open element, whatever it holds.
  void Skip();

  // Of the element that was opened last; valid until the next one is opened.

  EElement Element() const { return fElement; }
  const std::string& ElementName() const { return fElementName; }
  /// An attribute's value, or null.
  const std::string* Attribute(std::string_view name) const;
  /// Refuses attributes other than these and those of XML itself.
  void CheckAttributes(std::initializer_list<std::string_view> names) const;
  /// The line in which its tag begins.
  unsigned long Line() const { return fTagLine; }
  /// The notes in front of the tag that was read last, also an end tag.
  const std::vector<TNote>& Notes() const { return fNotes; }

  const std::string& FileName() const { return fName; }
  const TLimits& Limits() const { return fLimits; }

  /// Counts memory that is kept of the document. Throws beyond the limit.
  void Keep(std::uint64_t bytes);

  [[noreturn]] void Fail(unsigned long line, const std::string& why) const;
  /// Names the element that was opened last.
  [[noreturn]] void FailHere(const std::string& why) const;
  /// That element stands where it can't. `expected` is what could.
  [[noreturn]] void FailUnexpected(const std::string& expected) const;

 private:
  enum EToken { kStartTag, kEndTag, kOther };

  struct TAttribute {
    std::string fName;
    std::string fValue;
  };

  struct TOpen {
    std::string fName;
    unsigned long fLine;
  };

  [[noreturn]] void Fail(const std::string& why) const { Fail(fLine, why); }

  bool Refill();
  void MakeRoom();
  void TakeInCharacters();
  bool Has(std::size_t count);
  std::string_view Buffered() const;
  std::size_t Find(char c, std::size_t from);
  std::size_t FindText(std::string_view text, std::size_t from, const char* what);
  void Advance(std::size_t count);

  EToken TakeTag();
  void TakeStartTag();
  bool ParseTag(std::string_view tag);
  std::size_t ParseAttribute(std::string_view tag, std::size_t at);
  std::size_t NameLength(std::string_view text) const;
  void AddAttribute(std::string_view name, std::string_view value);
  void OpenElement(std::string_view name);
  void TakeEndTag();
  void TakeComment();
  void TakeProcessingInstruction();
  void TakeDocumentType();
  void CheckDeclaration(std::string_view declaration) const;
  void SkipBlanks();
  void TakeText();
  void AppendText(std::string_view raw);
  void TakeCData();
  std::size_t AppendReference(std::string& text, std::string_view raw, std::size_t at) const;

  TByteSource& fSource;
  const std::string fName;
  const TLimits fLimits;

  std::vector<char> fBuffer;
  std::size_t fMark;    // in the buffer, of what is read next
  std::size_t fFilled;  // bytes of whole characters in the buffer
  std::size_t fRead;    // bytes in the buffer, with the beginning of a character at the end
  std::uint64_t fTotal;
  std::uint64_t fKept;
  unsigned long fLine;  // of the mark

  std::vector<TOpen> fOpen;  // of which the first `fDepth` count
  std::size_t fDepth;
  bool fIsAtStart;  // nothing but a byte order mark has been read yet
  bool fHasRoot;
  bool fIsEmptyTag;  // the open element has ended with its tag

  EElement fElement;
  std::string fElementName;
  unsigned long fTagLine;
  std::vector<TAttribute> fAttributes;  // of which the first `fAttributeCount` count
  std::size_t fAttributeCount;
  std::vector<TNote> fNotes;
  bool fNotesAreOld;
  std::string fText;
};

}  // namespace container

#endif  // CONTAINER_SCANNER_H
