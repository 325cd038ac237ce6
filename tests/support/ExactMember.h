#ifndef HWXTESTS_SUPPORT_EXACTMEMBER_H
#define HWXTESTS_SUPPORT_EXACTMEMBER_H

namespace hwxtest {

/// Names a member by its exact type, so that a missing or another one doesn't compile:
///
///     static_assert(Has<std::string (TCIMReference::*)() const>(&TCIMReference::GetPath));
template <typename Member>
constexpr bool Has(Member) {
  return true;
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_EXACTMEMBER_H
