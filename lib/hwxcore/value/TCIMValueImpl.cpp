#include "hwxcore/value/TCIMValueImpl.h"

#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxcore/value/detail/BlockPool.h"

namespace NQORHWX20 {

namespace {

[[noreturn]] void Refuse() {
  throw THWXException(kHWXStatusTypeMismatch);
}

}  // namespace

TCIMValueImpl::~TCIMValueImpl() = default;

void* TCIMValueImpl::operator new(std::size_t size) {
  return detail::TakeBlock(size);
}

void TCIMValueImpl::operator delete(void* body, std::size_t size) noexcept {
  detail::GiveBlock(body, size);
}

TCIMValueImpl::operator bool() const {
  Refuse();
}
TCIMValueImpl::operator unsigned char() const {
  Refuse();
}
TCIMValueImpl::operator signed char() const {
  Refuse();
}
TCIMValueImpl::operator unsigned short() const {
  Refuse();
}
TCIMValueImpl::operator short() const {
  Refuse();
}
TCIMValueImpl::operator unsigned int() const {
  Refuse();
}
TCIMValueImpl::operator int() const {
  Refuse();
}
TCIMValueImpl::operator unsigned long() const {
  Refuse();
}
TCIMValueImpl::operator long() const {
  Refuse();
}
TCIMValueImpl::operator float() const {
  Refuse();
}
TCIMValueImpl::operator double() const {
  Refuse();
}
TCIMValueImpl::operator std::string() const {
  Refuse();
}
TCIMValueImpl::operator TCIMChar16() const {
  Refuse();
}
TCIMValueImpl::operator TCIMDateTime() const {
  Refuse();
}
TCIMValueImpl::operator TCIMReference() const {
  Refuse();
}
TCIMValueImpl::operator std::vector<TCIMValue>&() const {
  Refuse();
}

}  // namespace NQORHWX20
