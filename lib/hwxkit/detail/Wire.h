// Values as bytes between a process and its child. Both are the same program, so numbers are as the
// machine has them; but a broken provider may write anything, so all that is read is checked.

#ifndef HWXKIT_DETAIL_WIRE_H
#define HWXKIT_DETAIL_WIRE_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "hwxcore/value/TCIMValue.h"

namespace NQORHWX20::detail {

/// Puts values together to a message. Thread-safety: none.
class TWireWriter {
 public:
  void Byte(std::uint8_t number);
  void Number(std::uint32_t number);
  void Text(std::string_view text);
  /// Throws what the value throws that can't be read: `kHWXStatusInvalidReference` for a reference
  /// without a class.
  void Value(const TCIMValue& value);

  const std::string& Bytes() const { return fBytes; }

 private:
  template <typename T>
  void Plain(T number);
  void Scalar(const TCIMValue& value);
  void Character(const TCIMValue& value);
  void DateTime(const TCIMValue& value);
  void Reference(const TCIMValue& value);

  std::string fBytes;
};

/// The class of that name, or an empty pointer.
using TClassFinder = std::function<boost::shared_ptr<ICIMClass>(const std::string& name)>;

/// Takes a message apart. Each operation throws `THWXException` with `kHWXStatusInvalidFormat` if
/// what it reads isn't there. Thread-safety: none.
class TWireReader {
 public:
  /// `bytes` must outlive the reader. `findClass` is asked for the classes of references; what it
  /// doesn't find makes the value invalid.
  TWireReader(std::string_view bytes, const TClassFinder& findClass);

  std::uint8_t Byte();
  std::uint32_t Number();
  std::string Text();
  TCIMValue Value();

  bool AtEnd() const { return fBytes.empty(); }
  /// Throws unless everything was read.
  void RequireEnd() const;

 private:
  template <typename T>
  T Plain();
  std::string_view Take(std::size_t size);
  TCIMValue ValueAt(unsigned depth);
  TCIMValue Array(TCIMValue::TCIMType type, std::uint32_t maxSize, unsigned depth);
  TCIMValue Scalar(TCIMValue::TCIMType type, unsigned depth);
  TCIMValue Character();
  TCIMValue DateTime();
  TCIMValue Reference(unsigned depth);
  boost::shared_ptr<ICIMClass> Class();

  std::string_view fBytes;
  TClassFinder fFindClass;
};

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_WIRE_H
