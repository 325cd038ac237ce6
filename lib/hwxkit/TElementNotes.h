#ifndef HWXKIT_TELEMENTNOTES_H
#define HWXKIT_TELEMENTNOTES_H

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

/// Whether a string holds an object in a text form.
enum EEmbeddedObject : unsigned char {
  kEmbeddedNothing,  ///< It is a string and no more.
  kEmbeddedObject,   ///< A class or an instance of any class.
  kEmbeddedInstance  ///< An instance.
};

/// What files say of an element and no schema interface has a place for. It is carried from file to
/// file; the kit itself reads none of it.
struct HWX_EXPORT TElementNotes {
  /// The language of the texts, as in "en"; empty if it isn't told.
  std::string fLanguage;
  /// The class that declared the element first, where that isn't the class which bears it.
  std::string fOrigin;
  /// Whether the element came down from a superclass that is outside the namespace.
  bool fIsPropagated = false;
  EEmbeddedObject fEmbedded = kEmbeddedNothing;
  /// The class that a parameter refers to; empty for any.
  std::string fReferencedClass;
  /// The most elements that a parameter may have; 0 for any number.
  unsigned int fMaxArraySize = 0;

  bool IsEmpty() const {
    return fLanguage.empty() && fOrigin.empty() && !fIsPropagated &&
           fEmbedded == kEmbeddedNothing && fReferencedClass.empty() && fMaxArraySize == 0;
  }
};

/// The part of an element that holds its notes. They take no memory while there are none.
///
/// Thread-safety: none.
class HWX_EXPORT TNotedElement {
 public:
  /// Valid until other notes are set.
  const TElementNotes& GetNotes() const {
    static const TElementNotes none;
    return fNotes ? *fNotes : none;
  }

  void SetNotes(const TElementNotes& notes) {
    fNotes.reset();
    if (!notes.IsEmpty()) fNotes = boost::make_shared<const TElementNotes>(notes);
  }

 protected:
  ~TNotedElement() = default;

 private:
  boost::shared_ptr<const TElementNotes> fNotes;  // copies of an element share them
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TELEMENTNOTES_H
