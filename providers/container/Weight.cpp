#include "providers/container/Weight.h"

#include <string>
#include <utility>
#include <vector>

#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/value/TCIMReference.h"

namespace container {

namespace {

using namespace NQORHWX20;

std::uint64_t ValueWeight(const TCIMValue& value) {
  if (value.IsNull()) return 1;
  std::uint64_t weight = 1;
  if (value.IsArray()) {
    const std::vector<TCIMValue>& elements = value;
    for (const TCIMValue& element : elements)
      weight += ValueWeight(element);
  } else if (value.IsReference()) {
    const TCIMReference reference = value;
    reference.EnumerateKeyBindings([&weight](const std::pair<std::string, TCIMValue>& key) {
      weight += ValueWeight(key.second);
      return true;
    });
  } else if (value.GetType() == TCIMValue::TCIMType::kCIMTypeString) {
    constexpr std::size_t kBytesOfProperty = 256;  // of memory, without a text
    weight += value.operator std::string().size() / kBytesOfProperty;
  }
  return weight;
}

template <typename Element>
auto AddQualifiers(std::uint64_t& weight) {
  return [&weight](const boost::shared_ptr<Element>& element) {
    weight += 1 + element->GetQualifierCount(TCIMContext());
    return true;
  };
}

std::uint64_t ClassWeight(TMemoryClass& source) {
  std::uint64_t weight = source.GetQualifierCount(TCIMContext());
  source.EnumeratePropertyDecls(AddQualifiers<ICIMPropertyDecl>(weight), TCIMContext());
  source.EnumerateMethodDecls(
      [&weight](const boost::shared_ptr<ICIMMethodDecl>& method) {
        method->EnumerateParameterDecls(AddQualifiers<ICIMParameterDecl>(weight), TCIMContext());
        return AddQualifiers<ICIMMethodDecl>(weight)(method);
      },
      TCIMContext());
  return weight;
}

std::uint64_t InstanceWeight(TMemoryClass& source) {
  std::uint64_t weight = 0;
  source.EnumeratePropertyDecls(
      [&weight](const boost::shared_ptr<ICIMPropertyDecl>& decl) {
        weight += ValueWeight(decl->GetDefaultValue(TCIMContext()));
        return true;
      },
      TCIMContext());
  return weight;
}

}  // namespace

bool TWeight::Add(std::uint64_t weight, std::uint64_t bytes) {
  fTotal += weight;
  return fTotal <= fLimits.WeightBehind(bytes);
}

bool TWeight::AddClass(TMemoryClass& added, std::uint64_t bytes) {
  return Add(ClassWeight(added), bytes);
}

bool TWeight::AddInstanceOf(TMemoryClass& instanceClass, std::uint64_t bytes) {
  auto found = fOfInstances.find(&instanceClass);
  if (found == fOfInstances.end())
    found = fOfInstances.emplace(&instanceClass, InstanceWeight(instanceClass)).first;
  return Add(found->second, bytes);
}

}  // namespace container
