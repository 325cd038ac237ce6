#ifndef HWXKIT_QUALIFIERFLAGS_H
#define HWXKIT_QUALIFIERFLAGS_H

namespace NQORHWX20 {

/// The kinds of elements that may bear a qualifier: the bits of `ICIMQualifierDecl::GetScope`, as
/// the kit encodes them. The kit carries the word and does not enforce it, as a declaration that
/// was copied from elsewhere may bear another provider's encoding.
enum EQualifierScope : unsigned int {
  kScopeNone = 0,
  kScopeClass = 1,
  kScopeAssociation = 2,
  kScopeIndication = 4,
  kScopeProperty = 8,
  kScopeReference = 16,
  kScopeMethod = 32,
  kScopeParameter = 64,
  kScopeAny = 127
};

/// What becomes of a qualifier in subclasses: the bits of `ICIMQualifierDecl::GetFlavor`, as the
/// kit encodes them. The kit inherits by them.
enum EQualifierFlavor : unsigned int {
  kFlavorRestricted = 0,      ///< The qualifier stays on the element that it was put on.
  kFlavorToSubclass = 1,      ///< Subclasses, and declarations that override, inherit it.
  kFlavorEnableOverride = 2,  ///< Whoever inherits it may give it another value.
  kFlavorTranslatable = 4,    ///< The text may be translated. Carried, read by nothing.
  kFlavorToInstance = 8,      ///< Instances bear it too. Carried, read by nothing.
  kFlavorDefault = kFlavorToSubclass | kFlavorEnableOverride
};

}  // namespace NQORHWX20

#endif  // HWXKIT_QUALIFIERFLAGS_H
