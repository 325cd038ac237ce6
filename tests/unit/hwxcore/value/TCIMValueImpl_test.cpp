#include "hwxcore/value/TCIMValueImpl.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/VirtualSlots.h"
#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FailureOf;

/// A body that is nothing in particular.
class TPlainBody : public TCIMValueImpl {
 public:
  explicit TPlainBody(bool* destroyed = nullptr) : fDestroyed(destroyed) {}
  ~TPlainBody() override {
    if (fDestroyed) *fDestroyed = true;
  }
  std::string ToString(unsigned char /*base*/) const override { return "plain"; }
  bool operator==(const TCIMValue& /*other*/) const override { return true; }
  bool operator<(const TCIMValue& /*other*/) const override { return false; }

 private:
  bool* fDestroyed;
};

template <typename Target>
std::string FailureOfConversion(const TCIMValueImpl& body) {
  return FailureOf([&] { static_cast<void>(body.operator Target()); });
}

TEST(TCIMValueImpl, EveryConversionRefusesUntilABodyOverridesIt) {
  const TPlainBody body;
  const std::string refused = "kHWXStatusTypeMismatch";
  EXPECT_EQ(FailureOfConversion<bool>(body), refused);
  EXPECT_EQ(FailureOfConversion<unsigned char>(body), refused);
  EXPECT_EQ(FailureOfConversion<signed char>(body), refused);
  EXPECT_EQ(FailureOfConversion<unsigned short>(body), refused);
  EXPECT_EQ(FailureOfConversion<short>(body), refused);
  EXPECT_EQ(FailureOfConversion<unsigned int>(body), refused);
  EXPECT_EQ(FailureOfConversion<int>(body), refused);
  EXPECT_EQ(FailureOfConversion<unsigned long>(body), refused);
  EXPECT_EQ(FailureOfConversion<long>(body), refused);
  EXPECT_EQ(FailureOfConversion<float>(body), refused);
  EXPECT_EQ(FailureOfConversion<double>(body), refused);
  EXPECT_EQ(FailureOfConversion<std::string>(body), refused);
  EXPECT_EQ(FailureOfConversion<TCIMChar16>(body), refused);
  EXPECT_EQ(FailureOfConversion<TCIMDateTime>(body), refused);
  EXPECT_EQ(FailureOfConversion<std::vector<TCIMValue>&>(body), refused);
}

TEST(TCIMValueImpl, IsDestroyedThroughTheBase) {
  bool destroyed = false;
  const TCIMValueImpl* const body = new TPlainBody(&destroyed);
  delete body;
  EXPECT_TRUE(destroyed);
}

TEST(TCIMValueImpl, ItsOperationsStandInTheOrderThatPluginsAreCompiledAgainst) {
  typedef TCIMValueImpl B;
  hwxtest::SlotTable()
      .Has(&B::operator bool, &B::operator unsigned char, &B::operator signed char,
           &B::operator unsigned short, &B::operator short, &B::operator unsigned int,
           &B::operator int, &B::operator unsigned long, &B::operator long)
      .Has(&B::operator float, &B::operator double, &B::operator std::string)
      .Has(&B::operator TCIMChar16, &B::operator TCIMDateTime, &B::operator TCIMReference)
      .Has(&B::operator std::vector<TCIMValue>&, &B::ToString, &B::operator==, &B::operator<);
}

}  // namespace
}  // namespace NQORHWX20
