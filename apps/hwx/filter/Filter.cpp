#include "hwx/filter/Filter.h"

#include <algorithm>
#include <cstdint>

#include "hwx/filter/Condition.h"
#include "hwx/inventory/ValueText.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Suggestion.h"
#include "hwx/text/Words.h"
#include "hwxkit/CIMName.h"

namespace hwx {

namespace {

long double NumberOf(const TJson& json) {
  if (json.is_number_unsigned()) return static_cast<long double>(json.get<std::uint64_t>());
  if (json.is_number_integer()) return static_cast<long double>(json.get<std::int64_t>());
  return json.get<double>();
}

// -1, 0 or 1.
template <typename T>
int Order(const T& left, const T& right) {
  return left < right ? -1 : right < left ? 1 : 0;
}

bool Holds(int order, EOperator op) {
  switch (op) {
    case EOperator::kEqual:
      return order == 0;
    case EOperator::kLess:
      return order < 0;
    case EOperator::kAtMost:
      return order <= 0;
    case EOperator::kMore:
      return order > 0;
    case EOperator::kAtLeast:
      return order >= 0;
    default:
      return false;
  }
}

// How a number stands to the operand's; missing if that counts something else.
std::optional<int> OrderOfNumbers(const TJson& element, const TMeaning& meaning,
                                  const TOperand& operand) {
  if (!element.is_number() || !operand.fNumber) return std::nullopt;
  const long double number = NumberOf(element);
  if (!operand.fUnit) return Order(number, *operand.fNumber);
  const auto& unit = meaning.Unit();
  if (!unit || unit->fSymbol != operand.fUnit->fSymbol) return std::nullopt;
  return Order(number * unit->fFactor, *operand.fNumber * operand.fUnit->fFactor);
}

bool TextHolds(const std::string& text, EOperator op, const std::string& operand) {
  if (op == EOperator::kHolds) return Lower(text).find(Lower(operand)) != std::string::npos;
  return Holds(Order(Lower(text), Lower(operand)), op);
}

// Compares one element, which isn't null, by an operator that negates nothing.
bool ElementMatches(const TJson& element, const TMeaning& meaning, EOperator op,
                    const TOperand& operand) {
  if (op != EOperator::kHolds) {
    if (const auto order = OrderOfNumbers(element, meaning, operand)) return Holds(*order, op);
    if (element.is_number() && op != EOperator::kEqual) return false;
  }
  const auto words = meaning.Words(element);
  return TextHolds(PlainText(element), op, operand.fText) ||
         (words && TextHolds(*words, op, operand.fText));
}

bool OneMatches(const TReadValue& value, EOperator op, const TOperand& operand) {
  const TJson& stored = value.fStored;
  if (operand.fIsNull) return op == EOperator::kEqual && stored.is_null();
  const auto matches = [&](const TJson& element) {
    return !element.is_null() && ElementMatches(element, *value.fMeaning, op, operand);
  };
  return stored.is_array() ? std::any_of(stored.begin(), stored.end(), matches) : matches(stored);
}

bool HasValue(const TJson& stored) {
  if (stored.is_null()) return false;
  if (stored.is_boolean()) return stored.get<bool>();
  if (stored.is_string()) return !stored.get<std::string>().empty();
  return !stored.is_array() || !stored.empty();
}

bool Compare(const TReadValue* value, const TCondition& condition) {
  static const TMeaning kNone;
  const TReadValue absent = {condition.fName, nullptr, &kNone};
  const TReadValue& asked = value ? *value : absent;
  switch (condition.fOperator) {
    case EOperator::kHasValue:
      return HasValue(asked.fStored);
    case EOperator::kUnequal:
      return !OneMatches(asked, EOperator::kEqual, condition.fOperand);
    case EOperator::kHoldsNot:
      return !OneMatches(asked, EOperator::kHolds, condition.fOperand);
    default:
      return OneMatches(asked, condition.fOperator, condition.fOperand);
  }
}

bool IsTrue(const TCondition& condition, const TReadInstance& instance) {
  const auto isTrue = [&](const TCondition& part) { return IsTrue(part, instance); };
  const auto& parts = condition.fParts;
  switch (condition.fKind) {
    case TCondition::kNot:
      return !isTrue(parts.front());
    case TCondition::kAnd:
      return std::all_of(parts.begin(), parts.end(), isTrue);
    case TCondition::kOr:
      return std::any_of(parts.begin(), parts.end(), isTrue);
    default:
      return Compare(instance.Find(condition.fName), condition);
  }
}

void AddNames(const TCondition& condition, std::vector<std::string>& names) {
  if (condition.fKind == TCondition::kComparison) names.push_back(condition.fName);
  for (const TCondition& part : condition.fParts)
    AddNames(part, names);
}

}  // namespace

TFilter::TFilter(const std::string& text)
    : fCondition(std::make_shared<TCondition>(ParseCondition(text))) {}

bool TFilter::Matches(const TReadInstance& instance) const {
  return IsTrue(*fCondition, instance);
}

std::vector<std::string> TFilter::PropertyNames() const {
  std::vector<std::string> names;
  AddNames(*fCondition, names);
  return names;
}

void KeepMatching(TReading& reading, const TFilter& filter) {
  for (const std::string& name : filter.PropertyNames())
    RequireProperty(reading, name);
  for (TReadClass& cimClass : reading.fClasses) {
    auto& instances = cimClass.fInstances;
    const auto fails = [&](const TReadInstance& instance) { return !filter.Matches(instance); };
    instances.erase(std::remove_if(instances.begin(), instances.end(), fails), instances.end());
  }
}

}  // namespace hwx
