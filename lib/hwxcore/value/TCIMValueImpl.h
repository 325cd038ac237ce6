#ifndef HWXCORE_VALUE_TCIMVALUEIMPL_H
#define HWXCORE_VALUE_TCIMVALUEIMPL_H

#include <cstddef>
#include <string>
#include <vector>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMValue.h"

namespace NQORHWX20 {

class TCIMReference;

/// The body of a value that isn't null. A body overrides the conversion to what it really is; every
/// other conversion refuses with `kHWXStatusTypeMismatch`. The handle has checked null and the type
/// before it calls a body.
///
/// Thread-safety: none; a body belongs to one handle.
class HWX_EXPORT TCIMValueImpl {
 public:
  // Contract: slot-order.
  virtual ~TCIMValueImpl();

  virtual operator bool() const;                     // NOLINT(google-explicit-constructor)
  virtual operator unsigned char() const;            // NOLINT(google-explicit-constructor)
  virtual operator signed char() const;              // NOLINT(google-explicit-constructor)
  virtual operator unsigned short() const;           // NOLINT(google-explicit-constructor)
  virtual operator short() const;                    // NOLINT(google-explicit-constructor)
  virtual operator unsigned int() const;             // NOLINT(google-explicit-constructor)
  virtual operator int() const;                      // NOLINT(google-explicit-constructor)
  virtual operator unsigned long() const;            // NOLINT(google-explicit-constructor)
  virtual operator long() const;                     // NOLINT(google-explicit-constructor)
  virtual operator float() const;                    // NOLINT(google-explicit-constructor)
  virtual operator double() const;                   // NOLINT(google-explicit-constructor)
  virtual operator std::string() const;              // NOLINT(google-explicit-constructor)
  virtual operator TCIMChar16() const;               // NOLINT(google-explicit-constructor)
  virtual operator TCIMDateTime() const;             // NOLINT(google-explicit-constructor)
  virtual operator TCIMReference() const;            // NOLINT(google-explicit-constructor)
  virtual operator std::vector<TCIMValue>&() const;  // NOLINT(google-explicit-constructor)

  /// Prints the content; `base` is a number base.
  virtual std::string ToString(unsigned char base) const = 0;

  /// Both take a whole value, since they read its type first.
  virtual bool operator==(const TCIMValue& other) const = 0;
  virtual bool operator<(const TCIMValue& other) const = 0;

  /// Bodies come and go with every value: each thread keeps the memory of some for the next.
  static void* operator new(std::size_t size);
  static void operator delete(void* body, std::size_t size) noexcept;

 protected:
  TCIMValueImpl() = default;
  TCIMValueImpl(const TCIMValueImpl&) = default;
  TCIMValueImpl& operator=(const TCIMValueImpl&) = delete;

  /// The body of `value`, null for a null value.
  static const TCIMValueImpl* BodyOf(const TCIMValue& value) { return value.fBody.get(); }
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMVALUEIMPL_H
