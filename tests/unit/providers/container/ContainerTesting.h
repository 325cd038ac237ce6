#ifndef HWXTESTS_UNIT_PROVIDERS_CONTAINER_CONTAINERTESTING_H
#define HWXTESTS_UNIT_PROVIDERS_CONTAINER_CONTAINERTESTING_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "hwxcore/hwxcore.h"
#include "hwxkit/hwxkit.h"
#include "providers/container/Bytes.h"
#include "providers/container/Reader.h"
#include "providers/container/Writer.h"
#include "support/Ptr.h"

namespace hwxtest {

using Type = NQORHWX20::TCIMValue::TCIMType;

using Namespace = Ptr<NQORHWX20::TMemoryNamespace>;

constexpr Type::ECIMType ArrayOf(Type::ECIMType type) {
  return static_cast<Type::ECIMType>(type | Type::kCIMTypeArrayFlag);
}

inline NQORHWX20::TCIMValue Null(Type::ECIMType type) {
  return NQORHWX20::TCIMValue(type, 0);
}

/// The document of a namespace.
inline std::string Save(NQORHWX20::TMemoryNamespace& ns,
                        const container::TLimits& limits = container::TLimits()) {
  container::TWriting writing;
  writing.fLimits = limits;
  container::TStringSink sink;
  container::WriteContainer(ns, sink, "saved.xml", writing);
  return sink.Bytes();
}

/// The namespace of a document.
inline Namespace Load(std::string_view document,
                      const container::TLimits& limits = container::TLimits()) {
  container::TReading reading;
  reading.fLimits = limits;
  container::TMemorySource source(document);
  return container::ReadContainer(source, "file.xml", reading);
}

/// A document around qualifier declarations, classes and instances, which begin in line 2.
inline std::string Document(const std::string& pieces) {
  return R"(<CIM CIMVERSION="2.0" DTDVERSION="2.0"><DECLARATION><DECLGROUP.WITHNAME>)"
         "\n" +
         pieces + "</DECLGROUP.WITHNAME></DECLARATION></CIM>\n";
}

/// A failure of a container: its status, and its text as a matcher sees it.
struct Failure {
  int status = NQORHWX20::kHWXStatusOK;
  std::string text;
};

template <typename Call>
Failure FailureOf(Call call) {
  try {
    call();
  } catch (const NQORHWX20::TContainerException& failure) {
    return {failure.GetStatus(), failure.what()};
  }
  return {};
}

/// Why a document doesn't load, empty if it does. Only damage counts here.
inline std::string WhyRefused(std::string_view document,
                              const container::TLimits& limits = container::TLimits()) {
  const Failure failure = FailureOf([&] { Load(document, limits); });
  if (!failure.text.empty()) {
    EXPECT_EQ(failure.status, NQORHWX20::kHWXStatusCorruptedContainer) << failure.text;
  }
  return failure.text;
}

/// A value of an instance.
inline NQORHWX20::TCIMValue ValueOf(const Ptr<NQORHWX20::ICIMInstance>& instance,
                                    const std::string& property) {
  return instance->GetProperty(property, {})->GetValue({});
}

/// The only instance of a class.
inline Ptr<NQORHWX20::ICIMInstance> OnlyInstance(const Namespace& ns, const std::string& name) {
  std::vector<Ptr<NQORHWX20::ICIMInstance>> instances;
  ns->GetClass(name, {})->EnumerateInstances(
      NQORHWX20::TAddToVectorCallback<NQORHWX20::ICIMInstance>(&instances), false, {});
  EXPECT_EQ(instances.size(), 1u) << name;
  return instances.at(0);
}

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_PROVIDERS_CONTAINER_CONTAINERTESTING_H
