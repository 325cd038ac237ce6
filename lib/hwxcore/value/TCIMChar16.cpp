#include "hwxcore/value/TCIMChar16.h"

#include <boost/make_shared.hpp>

#include "hwxcore/value/TCIMChar16Impl.h"

namespace NQORHWX20 {

TCIMChar16::TCIMChar16() : fBody(boost::make_shared<TCIMChar16Impl>()) {}

TCIMChar16::TCIMChar16(unsigned short value) : fBody(boost::make_shared<TCIMChar16Impl>(value)) {}

TCIMChar16::TCIMChar16(const std::string& text) : fBody(boost::make_shared<TCIMChar16Impl>(text)) {}

TCIMChar16::TCIMChar16(const TCIMChar16& other)
    : fBody(boost::make_shared<TCIMChar16Impl>(*other.fBody)) {}

TCIMChar16::~TCIMChar16() = default;

unsigned short TCIMChar16::GetValue() const {
  return fBody->GetValue();
}

std::string TCIMChar16::ToString() const {
  return fBody->ToString();
}

bool TCIMChar16::operator<(const TCIMChar16& other) const {
  return *fBody < *other.fBody;
}

bool TCIMChar16::operator==(const TCIMChar16& other) const {
  return *fBody == *other.fBody;
}

}  // namespace NQORHWX20
