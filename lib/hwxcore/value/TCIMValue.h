#ifndef HWXCORE_VALUE_TCIMVALUE_H
#define HWXCORE_VALUE_TCIMVALUE_H

#include <boost/shared_ptr.hpp>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

class ICIMClass;
class ICIMNamespace;
class TCIMChar16;
class TCIMDateTime;
class TCIMReference;
class TCIMReferenceValueImpl;
class TCIMValueImpl;

/// The one type in which data is passed around: the value of a property, of a qualifier, of a key,
/// an element of an array.
///
/// A value is a type tag with an owned body. Without a body it is null, and a null value has a type
/// all the same. Copies are deep: no two handles share a body. Conversions are strict: nothing is
/// widened, narrowed or read from text.
///
/// Assignment is special. It compares first and does nothing between values that compare equal, it
/// throws between values that refuse to be compared (date-times of two kinds, null characters), and
/// it throws for a source without a type. `std::sort`, `std::swap` and erasing from a vector go
/// through it, so use them on values with care.
///
/// Thread-safety: none; a value belongs to one thread at a time, like a string.
class HWX_EXPORT TCIMValue {
 public:
  /// The type of a value: one of fifteen scalar types, or an array of one.
  class TCIMType {
   public:
    /// The low four bits name the scalar type, bit 4 marks an array of it. Values of different
    /// types are ordered by these numbers, so none may move.
    enum ECIMType : int {
      kCIMTypeNone = 0,  ///< A value that was never given a type.
      kCIMTypeBoolean = 1,
      kCIMTypeUInt8 = 2,
      kCIMTypeSInt8 = 3,
      kCIMTypeUInt16 = 4,
      kCIMTypeSInt16 = 5,
      kCIMTypeUInt32 = 6,
      kCIMTypeSInt32 = 7,
      kCIMTypeUInt64 = 8,
      kCIMTypeSInt64 = 9,
      kCIMTypeReal32 = 10,
      kCIMTypeReal64 = 11,
      kCIMTypeChar16 = 12,
      kCIMTypeString = 13,
      kCIMTypeDateTime = 14,
      kCIMTypeReference = 15,
      kCIMTypeArrayFlag = 16  ///< Or-ed to a scalar type.
    };

    TCIMType(ECIMType type) : fType(type) {}  // NOLINT(google-explicit-constructor)

    /// Reads a type name, such as "uint8" or "DateTime", in any mix of cases. A name that is none
    /// gives `kCIMTypeNone`; nothing is thrown. Arrays have no name of their own. What is lower
    /// case is up to the process's locale: in a Turkish one of 8 bits, "UINT8" is no type's name.
    TCIMType(std::string name);  // NOLINT(google-explicit-constructor)

    /// The tag, with the array flag.
    operator ECIMType() const { return fType; }  // NOLINT(google-explicit-constructor)

    /// The name of the scalar type; an array has its element's name. Throws
    /// `kHWXStatusTypeMismatch` for a tag without a name, `kCIMTypeNone` first of all.
    std::string ToString() const;

   private:
    ECIMType fType;
  };

  /// An untyped null value.
  TCIMValue();

  /// A typed null value. A `maxArraySize` other than 0 makes it an array type.
  TCIMValue(TCIMType type, unsigned int maxArraySize);

  /// Reads a scalar from text, in the way in which streams read it: leading blanks are skipped,
  /// 0x and 0 lead hexadecimal and octal numbers, what follows the number is ignored, a text that
  /// isn't a number gives 0, an overflow gives the type's limit. Booleans read "true" and "false".
  /// A `char16` comes out as a string. `ns` is the namespace in which a reference is looked up.
  /// Throws `kHWXStatusTypeMismatch` for no type and for array types, `kHWXStatusInvalidDateTime`
  /// for a text that is no date-time, and what `TCIMReference::SetPath` throws.
  TCIMValue(TCIMType type, std::string& text, boost::shared_ptr<ICIMNamespace> ns);

  /// A text given by a null pointer throws `std::logic_error`.
  TCIMValue(bool value);                 // NOLINT(google-explicit-constructor)
  TCIMValue(unsigned char value);        // NOLINT(google-explicit-constructor)
  TCIMValue(signed char value);          // NOLINT(google-explicit-constructor)
  TCIMValue(unsigned short value);       // NOLINT(google-explicit-constructor)
  TCIMValue(short value);                // NOLINT(google-explicit-constructor)
  TCIMValue(unsigned int value);         // NOLINT(google-explicit-constructor)
  TCIMValue(int value);                  // NOLINT(google-explicit-constructor)
  TCIMValue(unsigned long value);        // NOLINT(google-explicit-constructor)
  TCIMValue(long value);                 // NOLINT(google-explicit-constructor)
  TCIMValue(float value);                // NOLINT(google-explicit-constructor)
  TCIMValue(double value);               // NOLINT(google-explicit-constructor)
  TCIMValue(const char* value);          // NOLINT(google-explicit-constructor)
  TCIMValue(const std::string& value);   // NOLINT(google-explicit-constructor)
  TCIMValue(const TCIMChar16& value);    // NOLINT(google-explicit-constructor)
  TCIMValue(const TCIMDateTime& value);  // NOLINT(google-explicit-constructor)
  /// Throws `kHWXStatusInvalidReference` for a reference without a class.
  TCIMValue(TCIMReference& value);  // NOLINT(google-explicit-constructor)

  /// An array; see the `Set` of the same arguments.
  TCIMValue(TCIMType type, unsigned int maxArraySize, const std::vector<TCIMValue>& elements);

  /// A deep copy. Throws `kHWXStatusTypeMismatch` for a tag that names no type.
  TCIMValue(const TCIMValue& other);
  /// What a copy would be, but a tag that names no type is taken as it is; `other` is left a null
  /// of its type. There is no assignment of this kind, as an assignment between equals changes
  /// nothing.
  TCIMValue(TCIMValue&& other) noexcept;
  ~TCIMValue();

  /// The same as `Set(other)`.
  TCIMValue& operator=(const TCIMValue& other);

  /// Each makes the value one of its argument's type. The maximum array size and the referenced
  /// class stay as they were. A text given by a null pointer throws `std::logic_error`.
  void Set(bool value);
  void Set(unsigned char value);
  void Set(signed char value);
  void Set(unsigned short value);
  void Set(short value);
  void Set(unsigned int value);
  void Set(int value);
  void Set(unsigned long value);
  void Set(long value);
  void Set(float value);
  void Set(double value);
  void Set(const char* value);
  void Set(const std::string& value);
  void Set(const TCIMChar16& value);
  void Set(const TCIMDateTime& value);

  /// Makes the value a copy of a reference, and the reference's class its referenced class. Throws
  /// `kHWXStatusInvalidReference` for a reference without a class; the value then holds that
  /// reference all the same, and the referenced class stays as it was.
  void Set(TCIMReference& value);

  /// Makes the value an array that holds copies of `elements`. `type` may bear the array flag or
  /// not. `maxArraySize` (0: no maximum) is carried and never enforced. Throws
  /// `kHWXStatusInvalidProperty`, after a log entry, if an element's tag isn't the type, and
  /// `kHWXStatusTypeMismatch` if that element or the type has no name to log; the value then is the
  /// array all the same, wrong elements and all.
  void Set(TCIMType type, unsigned int maxArraySize, const std::vector<TCIMValue>& elements);

  /// Makes the value a copy of `other`, unless the two compare equal: then nothing changes, not
  /// even the maximum array size. Throws what the comparison throws, with the value unchanged, and
  /// `kHWXStatusTypeMismatch` for a source whose tag names no type, with the value null and of that
  /// tag. A scalar's maximum array size isn't copied.
  void Set(const TCIMValue& other);

  /// Makes the value null. `maxArraySize` counts only for an array type. The referenced class
  /// stays.
  void SetNullValue(TCIMType::ECIMType type, unsigned int maxArraySize);

  bool IsNull() const;
  /// Whether the tag bears the array flag.
  bool IsArray() const;
  /// Whether the value is a single reference; an array of references isn't.
  bool IsReference() const;
  TCIMType GetType() const;
  /// The declared maximum number of elements, 0 for none. Nothing enforces it.
  unsigned int GetMaxArraySize() const;

  /// The class that a reference value refers to; may be empty.
  boost::shared_ptr<ICIMClass> GetReferencedClass() const;
  /// Throws `kHWXStatusInvalidOpSequence` on a value that isn't null.
  void SetReferencedClass(boost::shared_ptr<ICIMClass> referencedClass);

  /// Prints the value; numbers in base 8, 10 or 16. Throws `kHWXStatusValueIsNULL` for a null value
  /// and for an array with a null element, `kHWXStatusNotSupported` for a base that the type
  /// doesn't have (signed numbers and reals have base 10 alone), `kHWXStatusInvalidDateTime` for a
  /// null date-time or character.
  std::string ToString(unsigned char base) const;

  /// Each conversion throws `kHWXStatusValueIsNULL` for a null value and `kHWXStatusTypeMismatch`
  /// unless the value is of exactly the type asked for. A `char16` has no conversion: `ToString` is
  /// the way to its content.
  operator bool() const;            // NOLINT(google-explicit-constructor)
  operator unsigned char() const;   // NOLINT(google-explicit-constructor)
  operator signed char() const;     // NOLINT(google-explicit-constructor)
  operator unsigned short() const;  // NOLINT(google-explicit-constructor)
  operator short() const;           // NOLINT(google-explicit-constructor)
  operator unsigned int() const;    // NOLINT(google-explicit-constructor)
  operator int() const;             // NOLINT(google-explicit-constructor)
  operator unsigned long() const;   // NOLINT(google-explicit-constructor)
  operator long() const;            // NOLINT(google-explicit-constructor)
  operator float() const;           // NOLINT(google-explicit-constructor)
  operator double() const;          // NOLINT(google-explicit-constructor)
  operator std::string() const;     // NOLINT(google-explicit-constructor)
  operator TCIMDateTime() const;    // NOLINT(google-explicit-constructor)
  operator TCIMReference() const;   // NOLINT(google-explicit-constructor)
  // No operator TCIMChar16. Contract: char16-not-converted.

  /// The array's own elements, also for changing them: what is changed there is checked by nobody.
  /// The reference is valid until the value is assigned to or destroyed.
  operator std::vector<TCIMValue>&() const;  // NOLINT(google-explicit-constructor)

  /// Null sorts before everything, and values of different types sort by the number of the type.
  /// Ordering two arrays of one type throws `kHWXStatusNotImplemented`; comparing date-times of two
  /// kinds, or null date-times or characters, throws `kHWXStatusInvalidDateTime`.
  bool operator<(const TCIMValue& other) const;
  /// Values of different types are unequal, two nulls of one type equal; null arrays must agree in
  /// the maximum size too, null references in the referenced class.
  bool operator==(const TCIMValue& other) const;
  bool operator<=(const TCIMValue& other) const;
  bool operator>(const TCIMValue& other) const;
  bool operator>=(const TCIMValue& other) const;
  bool operator!=(const TCIMValue& other) const;

 private:
  friend class TCIMReferenceImpl;
  friend class TCIMValueImpl;

  template <typename Body, typename... Arguments>  // inline: not exported
  inline void SetBody(TCIMType type, const Arguments&... arguments);
  void SetBody(std::unique_ptr<TCIMReferenceValueImpl> body);
  template <typename Body>
  inline void CopyBody(const TCIMValue& other);
  const TCIMValueImpl& BodyOfType(TCIMType::ECIMType type) const;

  TCIMType fType;
  std::unique_ptr<TCIMValueImpl> fBody;
  boost::shared_ptr<ICIMClass> fReferencedClass;
  unsigned int fMaxArraySize;
};

/// Writes `ToString()`, and throws what it throws.
HWX_EXPORT std::ostream& operator<<(std::ostream& stream, const TCIMValue::TCIMType& type);

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMVALUE_H
