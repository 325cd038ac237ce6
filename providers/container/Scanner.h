#ifndef CONTAINER_SCANNER_H
#define CONTAINER_SCANNER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "providers/container/Bytes.h"
#include "providers/container/Limits.h"

namespace container {

/// Goes through an XML document tag by tag and cuts it into pieces that are small enough to be
/// parsed one at a time, so that memory is taken for what is kept and not for the document.
///
/// pugixml alone would take the whole document into memory, several times its size, and lets much
/// pass that isn't XML: unknown entities, attributes that stand twice, characters that are
/// forbidden. Within a piece it is pugixml that knows the place of each element.
///
/// The scanner is strict: XML 1.0 in UTF-8, well-formed to the last byte. It takes a document type
/// declaration without definitions and reads none from outside; entities other than XML's own five
/// are refused, so nothing in a document can grow. What is wrong throws `TContainerException` with
/// `kHWXStatusCorruptedContainer` and a text that names the file and the line.
///
/// Thread-safety: none.
class TScanner {
 public:
  enum EToken { kStartTag, kEmptyTag, kEndTag, kOtherMarkup, kEndOfDocument };

  /// `name` is that of the file in messages.
  TScanner(TByteSource& source, const std::string& name, const TLimits& limits);

  /// The next tag, or the end. White space, comments and the like in front of it are skipped, other
  /// text is refused. `kOtherMarkup` is never the result.
  EToken Next();

  /// Behind a start tag, reads on to the end of its element.
  void ReadElement();

  /// The name of the element whose tag was read last.
  const std::string& Element() const { return fElement; }
  /// What was read last: a tag, or a whole element.
  const std::string& Text() const { return fText; }
  /// The line in which that begins.
  unsigned long Line() const { return fTextLine; }
  const std::string& FileName() const { return fName; }
  /// How many bytes have been read, at least to the end of `Text`.
  std::uint64_t BytesRead() const { return fTotal; }

  [[noreturn]] void Fail(unsigned long line, const std::string& why) const;

 private:
  bool Refill();
  void TakeInCharacters();
  int Peek();
  char Take();
  void CheckSize() const;
  [[noreturn]] void Fail(const std::string& why) const { Fail(fLine, why); }

  bool TakeBlanks();
  template <typename Stop>
  void TakeUntil(Stop stop);
  void Expect(std::string_view text);
  std::string_view TakeName();
  void SkipUntil(std::string_view end, const char* what);

  void CheckDeclaration() const;
  void TakeMarkup();
  void TakeProcessingInstruction();
  void TakeDocumentType();
  void TakeText();
  void TakeReference();
  void CheckCharacterReference(const std::string& name);
  void CheckAttributeName(std::string_view name);
  void TakeAttribute();
  EToken TakeStartTag();
  void TakeEndTag();
  EToken TakeTag();
  void CheckComplete() const;

  TByteSource& fSource;
  const std::string fName;
  const TLimits fLimits;

  std::vector<char> fBuffer;
  std::size_t fPosition;  // in the buffer, of the next byte
  std::size_t fFilled;    // bytes of whole characters in the buffer
  std::size_t fRead;      // bytes in the buffer, with the beginning of a character at the end
  std::uint64_t fTotal;
  unsigned long fLine;

  std::vector<std::pair<std::string, unsigned long> > fOpen;  // elements, with their lines
  // The names of the attributes in a tag, where they begin and end in `fText`.
  std::vector<std::pair<std::size_t, std::size_t> > fAttributes;
  bool fIsAtStart;  // nothing but a byte order mark has been read yet
  bool fHasRoot;
  std::string fElement;
  std::string fText;
  unsigned long fTextLine;
};

}  // namespace container

#endif  // CONTAINER_SCANNER_H
