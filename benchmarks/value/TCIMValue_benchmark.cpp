// A value's life beside that of std::variant and of a common dynamic type; and numbers as text
// beside the bare conversions of the standard library, which know no locale and no types.

#include <benchmark/benchmark.h>

#include <charconv>
#include <string>
#include <system_error>
#include <type_traits>
#include <variant>
#if __has_include(<Poco/Dynamic/Var.h>)
#include <Poco/Dynamic/Var.h>
#define HAS_POCO
#endif

#include "hwxcore/value/TCIMValue.h"
#include "hwxcore/value/detail/NumberText.h"

namespace {

using NQORHWX20::TCIMValue;

using uint32 = unsigned int;
using real64 = double;
using string = std::string;

// Two contents of each type; the strings are too long for the string object itself.
template <typename T>
const T kFirst{};
template <>
const uint32 kFirst<uint32> = 3735928559;
template <>
const real64 kFirst<real64> = 1234.5;
template <>
const string kFirst<string> = "Example Rack Server -[7X06CTO1WW]-";

template <typename T>
const T kSecond{};
template <>
const uint32 kSecond<uint32> = 1;
template <>
const real64 kSecond<real64> = -0.25;
template <>
const string kSecond<string> = "Example Tower Server -[7Y48CTO1WW]-";

template <typename Number>
string ToCharsText(Number number) {
  char digits[32];
  return string(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

/// The contenders: how each is asked for its content and printed.
struct Cim {
  using Value = TCIMValue;
  template <typename T>
  static T Get(const Value& value) {
    return value;
  }
  static string Print(const Value& value) { return value.ToString(10); }
};

struct Variant {
  using Value = std::variant<uint32, real64, string>;
  template <typename T>
  static T Get(const Value& value) {
    return std::get<T>(value);
  }
  static string Print(const Value& value) {
    return std::visit(
        [](const auto& content) -> string {
          if constexpr (std::is_same_v<std::decay_t<decltype(content)>, string>) {
            return content;
          } else {
            return ToCharsText(content);
          }
        },
        value);
  }
};

#ifdef HAS_POCO
struct Poco {
  using Value = ::Poco::Dynamic::Var;
  template <typename T>
  static T Get(const Value& value) {
    return value.extract<T>();
  }
  static string Print(const Value& value) { return value.toString(); }
};
#endif

template <typename Contender, typename T>
void Construct(benchmark::State& state) {
  T content = kFirst<T>;
  for (auto _ : state) {
    benchmark::DoNotOptimize(content);
    typename Contender::Value value(content);
    benchmark::DoNotOptimize(value);
  }
}

template <typename Contender, typename T>
void Copy(benchmark::State& state) {
  const typename Contender::Value source(kFirst<T>);
  for (auto _ : state) {
    typename Contender::Value value(source);
    benchmark::DoNotOptimize(value);
  }
}

// Two values by turns: the same one twice would only be compared.
template <typename Contender, typename T>
void AssignTwice(benchmark::State& state) {
  const typename Contender::Value first(kFirst<T>);
  const typename Contender::Value second(kSecond<T>);
  typename Contender::Value value(second);
  for (auto _ : state) {
    value = first;
    benchmark::DoNotOptimize(value);
    value = second;
    benchmark::DoNotOptimize(value);
  }
}

template <typename Contender, typename T>
void Compare(benchmark::State& state) {
  typename Contender::Value left(kFirst<T>);
  typename Contender::Value right(kFirst<T>);
  for (auto _ : state) {
    benchmark::DoNotOptimize(left);
    benchmark::DoNotOptimize(left == right);
  }
}

template <typename Contender, typename T>
void Print(benchmark::State& state) {
  const typename Contender::Value value(kFirst<T>);
  for (auto _ : state)
    benchmark::DoNotOptimize(Contender::Print(value));
}

template <typename Contender, typename T>
void ReadBack(benchmark::State& state) {
  typename Contender::Value value(kFirst<T>);
  for (auto _ : state) {
    benchmark::DoNotOptimize(value);
    benchmark::DoNotOptimize(Contender::template Get<T>(value));
  }
}

// NOLINTBEGIN(bugprone-macro-parentheses): names of types
#define FOR_ALL_TYPES(operation, contender) \
  BENCHMARK(operation<contender, uint32>);  \
  BENCHMARK(operation<contender, real64>);  \
  BENCHMARK(operation<contender, string>)

#define FOR_ALL_OPERATIONS(contender)    \
  FOR_ALL_TYPES(Construct, contender);   \
  FOR_ALL_TYPES(Copy, contender);        \
  FOR_ALL_TYPES(AssignTwice, contender); \
  FOR_ALL_TYPES(Compare, contender);     \
  FOR_ALL_TYPES(Print, contender);       \
  FOR_ALL_TYPES(ReadBack, contender)

// NOLINTEND(bugprone-macro-parentheses)

FOR_ALL_OPERATIONS(Cim);
FOR_ALL_OPERATIONS(Variant);
#ifdef HAS_POCO
FOR_ALL_OPERATIONS(Poco);
#endif

/// The type's tag, and a number that fills its width.
template <typename Number>
constexpr TCIMValue::TCIMType::ECIMType kTag = TCIMValue::TCIMType::kCIMTypeReal64;
template <>
constexpr TCIMValue::TCIMType::ECIMType kTag<uint32> = TCIMValue::TCIMType::kCIMTypeUInt32;

// The number as text in a string of the caller's: what `ToString` gives, without the value.
template <typename Number>
void PrintNumberByToChars(benchmark::State& state) {
  Number number = kFirst<Number>;
  for (auto _ : state) {
    benchmark::DoNotOptimize(number);
    benchmark::DoNotOptimize(ToCharsText(number));
  }
}
BENCHMARK(PrintNumberByToChars<uint32>);
BENCHMARK(PrintNumberByToChars<real64>);

// The digits in a buffer, with no string to give away.
template <typename Number>
void PrintNumberByToCharsIntoABuffer(benchmark::State& state) {
  Number number = kFirst<Number>;
  char digits[32];
  for (auto _ : state) {
    benchmark::DoNotOptimize(number);
    benchmark::DoNotOptimize(std::to_chars(digits, digits + sizeof digits, number));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(PrintNumberByToCharsIntoABuffer<uint32>);
BENCHMARK(PrintNumberByToCharsIntoABuffer<real64>);

template <typename Number>
void PrintNumber(benchmark::State& state) {
  const TCIMValue value(kFirst<Number>);
  for (auto _ : state)
    benchmark::DoNotOptimize(value.ToString(10));
}
BENCHMARK(PrintNumber<uint32>);
BENCHMARK(PrintNumber<real64>);

template <typename Number>
void ReadNumberByFromChars(benchmark::State& state) {
  const string text = ToCharsText(kFirst<Number>);
  for (auto _ : state) {
    Number number = 0;
    benchmark::DoNotOptimize(std::from_chars(text.data(), text.data() + text.size(), number));
    benchmark::DoNotOptimize(number);
  }
}
BENCHMARK(ReadNumberByFromChars<uint32>);
BENCHMARK(ReadNumberByFromChars<real64>);

// From text to number, as the text constructor does it, without the value that takes the number.
template <typename Number>
void ReadNumber(benchmark::State& state) {
  const string text = ToCharsText(kFirst<Number>);
  for (auto _ : state)
    benchmark::DoNotOptimize(NQORHWX20::detail::ReadNumber<Number>(text));
}
BENCHMARK(ReadNumber<uint32>);
BENCHMARK(ReadNumber<real64>);

// The same with the value, whose body is allocated.
template <typename Number>
void ReadNumberIntoAValue(benchmark::State& state) {
  string text = ToCharsText(kFirst<Number>);
  const TCIMValue::TCIMType type = kTag<Number>;
  for (auto _ : state) {
    TCIMValue value(type, text, boost::shared_ptr<NQORHWX20::ICIMNamespace>());
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(ReadNumberIntoAValue<uint32>);
BENCHMARK(ReadNumberIntoAValue<real64>);

}  // namespace
