#include "hwxkit/detail/Wire.h"

#include <cstring>
#include <type_traits>
#include <utility>
#include <vector>

#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/value/NumericType.h"
#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20::detail {

namespace {

using TType = TCIMValue::TCIMType;

// What stands in front of a date-time's fields.
enum EDateTimeForm : std::uint8_t { kNoDateTime = 0, kTimestamp = 1, kInterval = 2 };

// How deeply references and arrays may nest: as deeply as references in a path.
constexpr unsigned kMostNesting = 200;

[[noreturn]] void Refuse() {
  throw THWXException(kHWXStatusInvalidFormat);
}

bool IsClasslessNull(const TCIMValue& value) {
  return value.IsNull() && !value.GetReferencedClass();
}

}  // namespace

// Writing.

template <typename T>
void TWireWriter::Plain(T number) {
  char bytes[sizeof number];
  std::memcpy(bytes, &number, sizeof number);
  fBytes.append(bytes, sizeof bytes);
}

void TWireWriter::Byte(std::uint8_t number) {
  Plain(number);
}

void TWireWriter::Number(std::uint32_t number) {
  Plain(number);
}

void TWireWriter::Text(std::string_view text) {
  Number(static_cast<std::uint32_t>(text.size()));
  fBytes.append(text);
}

// The tag, whether the value is null, what belongs to the type, and the content.
void TWireWriter::Value(const TCIMValue& value) {
  Byte(static_cast<std::uint8_t>(value.GetType()));
  Byte(value.IsNull());
  if (value.IsArray()) Number(value.GetMaxArraySize());
  if (value.IsReference() && value.IsNull()) {
    const auto referenced = value.GetReferencedClass();
    Text(IsClasslessNull(value) ? std::string() : referenced->GetName(TCIMContext()));
  }
  if (value.IsNull()) return;
  if (!value.IsArray()) return Scalar(value);
  const std::vector<TCIMValue>& elements = value;
  Number(static_cast<std::uint32_t>(elements.size()));
  for (const TCIMValue& element : elements)
    Value(element);
}

void TWireWriter::Scalar(const TCIMValue& value) {
  const auto writeNumber = [&](auto numeric) {
    Plain(static_cast<typename decltype(numeric)::Type>(value));
  };
  const auto writeOther = [&] {
    switch (value.GetType()) {
      case TType::kCIMTypeDateTime:
        return DateTime(value);
      case TType::kCIMTypeReference:
        return Reference(value);
      case TType::kCIMTypeChar16:
        return Character(value);
      default:
        return Text(static_cast<std::string>(value));
    }
  };
  OfNumericType(value.GetType(), writeNumber, writeOther);
}

// The number of a character, read from its text. Empty for a null one, which has no text.
void TWireWriter::Character(const TCIMValue& value) {
  std::string number;
  try {
    number = value.ToString(10);
  } catch (const THWXException&) {
  }
  Text(number);
}

void TWireWriter::DateTime(const TCIMValue& value) {
  const TCIMDateTime moment = value;
  if (moment.IsNull()) return Byte(kNoDateTime);
  Byte(moment.IsInterval() ? kInterval : kTimestamp);
  Byte(moment.GetPrecision());
  if (!moment.IsInterval()) {
    Plain(moment.GetYear());
    Plain(moment.GetMonth());
    Plain(moment.GetUTCOffset());
  }
  Plain(moment.GetDay());
  Plain(moment.GetHour());
  Plain(moment.GetMinute());
  Plain(moment.GetSecond());
  Plain(moment.GetMicroSeconds());
}

void TWireWriter::Reference(const TCIMValue& value) {
  const TCIMReference reference = value;
  std::vector<std::pair<std::string, TCIMValue>> keys;
  reference.EnumerateKeyBindings([&keys](std::pair<std::string, TCIMValue> key) {
    keys.push_back(std::move(key));
    return true;
  });
  Text(reference.GetClassName());
  Text(reference.GetNameSpaceName());
  Number(static_cast<std::uint32_t>(keys.size()));
  for (const auto& key : keys) {
    Text(key.first);
    Value(key.second);
  }
}

// Reading.

TWireReader::TWireReader(std::string_view bytes, const TClassFinder& findClass)
    : fBytes(bytes), fFindClass(findClass) {}

std::string_view TWireReader::Take(std::size_t size) {
  if (size > fBytes.size()) Refuse();
  const std::string_view taken = fBytes.substr(0, size);
  fBytes.remove_prefix(size);
  return taken;
}

template <typename T>
T TWireReader::Plain() {
  T number;
  std::memcpy(&number, Take(sizeof number).data(), sizeof number);
  return number;
}

std::uint8_t TWireReader::Byte() {
  return Plain<std::uint8_t>();
}

std::uint32_t TWireReader::Number() {
  return Plain<std::uint32_t>();
}

std::string TWireReader::Text() {
  const std::uint32_t size = Number();
  return std::string(Take(size));
}

void TWireReader::RequireEnd() const {
  if (!AtEnd()) Refuse();
}

TCIMValue TWireReader::Value() {
  return ValueAt(0);
}

TCIMValue TWireReader::ValueAt(unsigned depth) {
  if (depth > kMostNesting) Refuse();
  const std::uint8_t tag = Byte();
  if (tag > (TType::kCIMTypeReference | TType::kCIMTypeArrayFlag)) Refuse();
  const TType type = static_cast<TType::ECIMType>(tag);
  const bool isNull = Byte() != 0;
  if ((tag & TType::kCIMTypeArrayFlag) != 0) {
    const std::uint32_t maxSize = Number();
    TCIMValue null;
    null.SetNullValue(type, maxSize);
    return isNull ? null : Array(type, maxSize, depth);
  }
  if (!isNull) return Scalar(type, depth);
  TCIMValue null(type, 0);
  if (type == TType::kCIMTypeReference) null.SetReferencedClass(Class());
  return null;
}

TCIMValue TWireReader::Array(TType type, std::uint32_t maxSize, unsigned depth) {
  const std::uint32_t size = Number();
  std::vector<TCIMValue> elements;
  for (std::uint32_t i = 0; i < size; ++i)  // ends with the bytes, even if `size` is wrong
    elements.push_back(ValueAt(depth + 1));
  const auto elementType =
      static_cast<TType::ECIMType>(type & ~static_cast<int>(TType::kCIMTypeArrayFlag));
  for (const TCIMValue& element : elements) {
    if (element.GetType() != elementType) Refuse();
  }
  return TCIMValue(elementType, maxSize, elements);
}

TCIMValue TWireReader::Scalar(TType type, unsigned depth) {
  const auto readNumber = [&](auto numeric) {
    using Number = typename decltype(numeric)::Type;
    if constexpr (std::is_same_v<Number, bool>) {
      return TCIMValue(Byte() != 0);  // other bytes than 0 and 1 are no `bool`
    } else {
      return TCIMValue(Plain<Number>());
    }
  };
  const auto readOther = [&]() -> TCIMValue {
    switch (type) {
      case TType::kCIMTypeChar16:
        return Character();
      case TType::kCIMTypeString:
        return TCIMValue(Text());
      case TType::kCIMTypeDateTime:
        return DateTime();
      case TType::kCIMTypeReference:
        return Reference(depth);
      default:
        Refuse();
    }
  };
  return OfNumericType(type, readNumber, readOther);
}

TCIMValue TWireReader::Character() {
  std::string text = Text();
  if (text.empty()) return TCIMValue(TCIMChar16(text));
  TCIMValue number(TType(TType::kCIMTypeUInt16), text, {});
  return TCIMValue(TCIMChar16(static_cast<unsigned short>(number)));
}

TCIMValue TWireReader::DateTime() {
  const std::uint8_t form = Byte();
  if (form == kNoDateTime) return TCIMValue(TCIMDateTime());
  if (form != kTimestamp && form != kInterval) Refuse();
  const bool isTimestamp = form == kTimestamp;
  const bool precision = Byte() != 0;
  const auto year = isTimestamp ? Plain<unsigned short>() : static_cast<unsigned short>(0);
  const auto month = isTimestamp ? Plain<unsigned short>() : static_cast<unsigned short>(0);
  const auto utcOffset = isTimestamp ? Plain<short>() : static_cast<short>(0);
  const auto day = Plain<unsigned int>();
  const auto hour = Plain<unsigned short>();
  const auto minute = Plain<unsigned short>();
  const auto second = Plain<unsigned short>();
  const auto microSeconds = Plain<unsigned int>();
  TCIMDateTime moment;
  if (isTimestamp)
    moment.Set(year, month, day, hour, minute, second, microSeconds, utcOffset);
  else
    moment.Set(day, hour, minute, second, microSeconds);
  moment.SetPrecision(precision);
  return TCIMValue(moment);
}

// Empty if the message names no class.
boost::shared_ptr<ICIMClass> TWireReader::Class() {
  const std::string name = Text();
  if (name.empty()) return {};
  auto found = fFindClass(name);
  if (!found) Refuse();
  return found;
}

TCIMValue TWireReader::Reference(unsigned depth) {
  const auto referenced = Class();
  if (!referenced) Refuse();
  TCIMReference reference(referenced->GetNamespace(TCIMContext()), TCIMContext());
  reference.SetClass(referenced);
  reference.SetNameSpaceName(Text());
  const std::uint32_t keys = Number();
  for (std::uint32_t i = 0; i < keys; ++i) {
    const std::string name = Text();
    reference.AddKeyValue(name, ValueAt(depth + 1));
  }
  return TCIMValue(reference);
}

}  // namespace NQORHWX20::detail
