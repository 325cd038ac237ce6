#include "hwx/filter/Condition.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "hwx/text/Failure.h"
#include "hwx/text/Words.h"

namespace hwx {

namespace {

constexpr std::string_view kBlanks = " \t\n\r";
constexpr std::string_view kNoWord = " \t\n\r()=!<>~\"'";
constexpr int kDeepest = 100;  // parentheses and "not"s within each other

struct TToken {
  enum EKind { kEnd, kWord, kText, kSymbol };
  EKind fKind;
  std::string fText;  ///< Without quotes.
  std::size_t fPlace;
};

[[noreturn]] void RefuseAt(std::size_t place, const std::string& what) {
  throw TFailure("the condition is wrong at character " + std::to_string(place + 1) + ": " + what);
}

std::string Name(const TToken& token) {
  return token.fKind == TToken::kEnd ? std::string("the end") : Quoted(token.fText);
}

// Takes a text apart, one token after the other.
class TTokens {
 public:
  explicit TTokens(const std::string& text) : fText(text) { Advance(); }

  const TToken& Next() const { return fNext; }

  TToken Take() {
    TToken taken = std::move(fNext);
    Advance();
    return taken;
  }

  // Whether the next one is this word or symbol; takes it then.
  bool TakeIf(TToken::EKind kind, const char* text) {
    if (fNext.fKind != kind || Lower(fNext.fText) != text) return false;
    Advance();
    return true;
  }

 private:
  void Advance() {
    fPlace = std::min(fText.find_first_not_of(kBlanks, fPlace), fText.size());
    const std::size_t begin = fPlace;
    if (begin == fText.size()) {
      fNext = {TToken::kEnd, "", begin};
    } else if (fText[begin] == '"' || fText[begin] == '\'') {
      fNext = {TToken::kText, TakeQuoted(), begin};
    } else if (kNoWord.find(fText[begin]) != std::string_view::npos) {
      fNext = {TToken::kSymbol, TakeSymbol(), begin};
    } else {
      fPlace = std::min(fText.find_first_of(kNoWord, begin), fText.size());
      fNext = {TToken::kWord, fText.substr(begin, fPlace - begin), begin};
    }
  }

  std::string TakeQuoted() {
    const std::size_t end = fText.find(fText[fPlace], fPlace + 1);
    if (end == std::string::npos) RefuseAt(fPlace, "the quotation mark isn't closed");
    const std::string text = fText.substr(fPlace + 1, end - fPlace - 1);
    fPlace = end + 1;
    return text;
  }

  // Those of two characters first.
  std::string TakeSymbol() {
    for (const char* symbol : {"!=", "!~", "<=", ">=", "=="}) {
      if (fText.compare(fPlace, 2, symbol) != 0) continue;
      fPlace += 2;
      return symbol;
    }
    return std::string(1, fText[fPlace++]);
  }

  const std::string& fText;
  std::size_t fPlace = 0;
  TToken fNext;
};

std::optional<EOperator> OperatorOf(const std::string& symbol) {
  if (symbol == "=" || symbol == "==") return EOperator::kEqual;
  if (symbol == "!=") return EOperator::kUnequal;
  if (symbol == "<") return EOperator::kLess;
  if (symbol == "<=") return EOperator::kAtMost;
  if (symbol == ">") return EOperator::kMore;
  if (symbol == ">=") return EOperator::kAtLeast;
  if (symbol == "~") return EOperator::kHolds;
  if (symbol == "!~") return EOperator::kHoldsNot;
  return std::nullopt;
}

// A number with its unit; nothing if the word is neither.
void ReadNumberOf(TOperand& operand) {
  const std::string_view text = operand.fText;
  const std::size_t size = std::min(text.find_first_not_of("+-.0123456789"), text.size());
  const std::string digits(text.substr(0, size));
  char* end = nullptr;
  const long double number = std::strtold(digits.c_str(), &end);
  if (digits.empty() || *end != '\0' || !std::isfinite(number)) return;
  if (size != text.size()) operand.fUnit = ParseSymbol(text.substr(size));
  if (size == text.size() || operand.fUnit) operand.fNumber = number;
}

class TParser {
 public:
  explicit TParser(const std::string& text) : fTokens(text) {}

  TCondition Parse() {
    TCondition condition = Or(0);
    if (fTokens.Next().fKind != TToken::kEnd)
      RefuseAt(fTokens.Next().fPlace, Name(fTokens.Next()) + " doesn't belong here");
    return condition;
  }

 private:
  TCondition Or(int depth) {
    return Joined(TCondition::kOr, "or", [&] { return And(depth); });
  }

  TCondition And(int depth) {
    return Joined(TCondition::kAnd, "and", [&] { return Factor(depth); });
  }

  template <typename Part>
  TCondition Joined(TCondition::EKind kind, const char* word, Part part) {
    TCondition first = part();
    if (!IsWord(word)) return first;
    TCondition joined;
    joined.fKind = kind;
    joined.fParts.push_back(std::move(first));
    while (fTokens.TakeIf(TToken::kWord, word))
      joined.fParts.push_back(part());
    return joined;
  }

  bool IsWord(const char* word) const {
    return fTokens.Next().fKind == TToken::kWord && Lower(fTokens.Next().fText) == word;
  }

  TCondition Factor(int depth) {
    if (depth == kDeepest) RefuseAt(fTokens.Next().fPlace, "too deep");
    if (fTokens.TakeIf(TToken::kWord, "not")) {
      TCondition negated;
      negated.fKind = TCondition::kNot;
      negated.fParts.push_back(Factor(depth + 1));
      return negated;
    }
    if (!fTokens.TakeIf(TToken::kSymbol, "(")) return Comparison();
    TCondition inner = Or(depth + 1);
    if (!fTokens.TakeIf(TToken::kSymbol, ")"))
      RefuseAt(fTokens.Next().fPlace, "\")\" is missing before " + Name(fTokens.Next()));
    return inner;
  }

  TCondition Comparison() {
    const TToken name = fTokens.Take();
    if (name.fKind != TToken::kWord)
      RefuseAt(name.fPlace, "the name of a property is needed, not " + Name(name));
    TCondition comparison;
    comparison.fName = name.fText;
    if (fTokens.Next().fKind != TToken::kSymbol) return comparison;
    const auto known = OperatorOf(fTokens.Next().fText);
    if (!known) return comparison;
    fTokens.Take();
    comparison.fOperator = *known;
    comparison.fOperand = Operand();
    return comparison;
  }

  TOperand Operand() {
    const TToken token = fTokens.Take();
    if (token.fKind != TToken::kWord && token.fKind != TToken::kText)
      RefuseAt(token.fPlace, "a value is needed, not " + Name(token));
    TOperand operand;
    operand.fText = token.fText;
    if (token.fKind == TToken::kText) return operand;
    operand.fIsNull = Lower(token.fText) == "null";
    ReadNumberOf(operand);
    return operand;
  }

  TTokens fTokens;
};

}  // namespace

TCondition ParseCondition(const std::string& text) {
  return TParser(text).Parse();
}

}  // namespace hwx
