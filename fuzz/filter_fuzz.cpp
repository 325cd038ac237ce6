// Conditions of any form, on a value of any form.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Require.h"
#include "hwx/filter/Condition.h"
#include "hwx/filter/Filter.h"
#include "hwx/text/Failure.h"

namespace {

using fuzz::Require;
using Bytes = std::vector<std::uint8_t>;

void Check(const hwx::TCondition& condition) {
  const bool isComparison = condition.fKind == hwx::TCondition::kComparison;
  Require(isComparison == !condition.fName.empty());
  Require(isComparison == condition.fParts.empty());
  Require(condition.fKind != hwx::TCondition::kNot || condition.fParts.size() == 1);
  Require(!condition.fOperand.fUnit || condition.fOperand.fNumber);
  for (const hwx::TCondition& part : condition.fParts)
    Check(part);
}

bool Matches(const std::string& condition, const hwx::TReadInstance& instance) {
  return hwx::TFilter(condition).Matches(instance);
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  std::vector<Bytes> seeds;
  for (const std::string text :
       {"Size>8GiB and (Name~\"a\" or not Size)", "a!='b' or c<=-1.5e", "((a))", "not not a=null",
        "Size=5", "Name!~x and Size<1", "a==b", "Size<1e400kB"}) {
    seeds.emplace_back(text.begin(), text.end());
  }
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  static const hwx::TMeaning kPlain;
  const hwx::TReadInstance instance = {
      "X", "X", {{"Size", 5, &kPlain}, {"Name", text, &kPlain}, {"a", {1, nullptr, "b"}, &kPlain}}};
  try {
    Check(hwx::ParseCondition(text));
    // "not" turns any condition around, and parentheses nothing.
    const bool matches = Matches(text, instance);
    Require(Matches("(" + text + ")", instance) == matches);
    Require(Matches("not (" + text + ")", instance) != matches);
  } catch (const hwx::TFailure&) {
  }
  return 0;
}
