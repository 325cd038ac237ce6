#include "hwxcore/value/TCIMValueImpl.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hwxcore/value/TCIMReference.h"
#include "support/VirtualSlots.h"
#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FailureOf;
using hwxtest::SlotTable;

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

TEST(TCIMValueImpl, HasItsOperationsInTheSlotsOfTheInterface) {
  SlotTable slots;
  slots.Has(&TCIMValueImpl::operator bool)
      .Has(&TCIMValueImpl::operator unsigned char, &TCIMValueImpl::operator signed char)
      .Has(&TCIMValueImpl::operator unsigned short, &TCIMValueImpl::operator short)
      .Has(&TCIMValueImpl::operator unsigned int, &TCIMValueImpl::operator int)
      .Has(&TCIMValueImpl::operator unsigned long, &TCIMValueImpl::operator long)
      .Has(&TCIMValueImpl::operator float, &TCIMValueImpl::operator double)
      .Has(&TCIMValueImpl::operator std::string)
      .Has(&TCIMValueImpl::operator TCIMChar16, &TCIMValueImpl::operator TCIMDateTime)
      .Has(&TCIMValueImpl::operator TCIMReference)
      .Has(&TCIMValueImpl::operator std::vector<TCIMValue>&)
      .Has(&TCIMValueImpl::ToString)
      .Has(&TCIMValueImpl::operator==, &TCIMValueImpl::operator<);
  EXPECT_EQ(slots.Size(), 21u);
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
  EXPECT_EQ(FailureOfConversion<TCIMReference>(body), refused);
  EXPECT_EQ(FailureOfConversion<std::vector<TCIMValue>&>(body), refused);
}

TEST(TCIMValueImpl, IsDestroyedThroughTheBase) {
  bool destroyed = false;
  const TCIMValueImpl* const body = new TPlainBody(&destroyed);
  delete body;
  EXPECT_TRUE(destroyed);
}

}  // namespace
}  // namespace NQORHWX20
