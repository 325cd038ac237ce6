#include "hwxcore/value/TCIMDateTime.h"

#include <boost/make_shared.hpp>
#include <utility>

#include "hwxcore/value/TCIMDateTimeImpl.h"

namespace NQORHWX20 {

namespace {

using TBody = boost::shared_ptr<TCIMDateTimeImpl>;

// Stands in for the body of a cleared date-time.
const TCIMDateTimeImpl kNullBody;

const TCIMDateTimeImpl& Read(const TBody& body) {
  return body ? *body : kNullBody;
}

template <typename... Values>
void SetBody(TBody& body, const Values&... values) {
  if (body) {
    body->Set(values...);
  } else {
    body = boost::make_shared<TCIMDateTimeImpl>(values...);
  }
}

}  // namespace

TCIMDateTime::TCIMDateTime() : fBody(boost::make_shared<TCIMDateTimeImpl>()) {}

TCIMDateTime::TCIMDateTime(const TCIMDateTime& other)
    : fBody(boost::make_shared<TCIMDateTimeImpl>(Read(other.fBody))) {}

TCIMDateTime::TCIMDateTime(unsigned short year, unsigned short month, unsigned int day,
                           unsigned short hour, unsigned short minute, unsigned short second,
                           unsigned int microSeconds, short utcOffset)
    : fBody(boost::make_shared<TCIMDateTimeImpl>(year, month, day, hour, minute, second,
                                                 microSeconds, utcOffset)) {}

TCIMDateTime::TCIMDateTime(unsigned int days, unsigned short hours, unsigned short minutes,
                           unsigned short seconds, unsigned int microSeconds)
    : fBody(boost::make_shared<TCIMDateTimeImpl>(days, hours, minutes, seconds, microSeconds)) {}

TCIMDateTime::TCIMDateTime(const std::string& text)
    : fBody(boost::make_shared<TCIMDateTimeImpl>(text)) {}

TCIMDateTime::TCIMDateTime(boost::shared_ptr<TCIMDateTimeImpl> body) : fBody(std::move(body)) {}

TCIMDateTime::~TCIMDateTime() = default;

TCIMDateTime& TCIMDateTime::operator=(const TCIMDateTime& other) {
  fBody = boost::make_shared<TCIMDateTimeImpl>(Read(other.fBody));
  return *this;
}

void TCIMDateTime::Set(unsigned int days, unsigned short hours, unsigned short minutes,
                       unsigned short seconds, unsigned int microSeconds) {
  SetBody(fBody, days, hours, minutes, seconds, microSeconds);
}

void TCIMDateTime::Set(unsigned short year, unsigned short month, unsigned int day,
                       unsigned short hour, unsigned short minute, unsigned short second,
                       unsigned int microSeconds, short utcOffset) {
  SetBody(fBody, year, month, day, hour, minute, second, microSeconds, utcOffset);
}

void TCIMDateTime::Set(const std::string& text) {
  SetBody(fBody, text);
}

void TCIMDateTime::Clear() {
  if (fBody) fBody->Clear();  // Contract: clear-drops-body.
  fBody.reset();
}

bool TCIMDateTime::IsNull() const {
  return Read(fBody).IsNull();
}
bool TCIMDateTime::IsInterval() const {
  return Read(fBody).IsInterval();
}
unsigned short TCIMDateTime::GetYear() const {
  return Read(fBody).GetYear();
}
unsigned short TCIMDateTime::GetMonth() const {
  return Read(fBody).GetMonth();
}
unsigned int TCIMDateTime::GetDay() const {
  return Read(fBody).GetDay();
}
unsigned short TCIMDateTime::GetHour() const {
  return Read(fBody).GetHour();
}
unsigned short TCIMDateTime::GetMinute() const {
  return Read(fBody).GetMinute();
}
unsigned short TCIMDateTime::GetSecond() const {
  return Read(fBody).GetSecond();
}
unsigned int TCIMDateTime::GetMicroSeconds() const {
  return Read(fBody).GetMicroSeconds();
}
short TCIMDateTime::GetUTCOffset() const {
  return Read(fBody).GetUTCOffset();
}
// Contract: precision-without-effect.
bool TCIMDateTime::GetPrecision() const {
  return Read(fBody).GetPrecision();
}

void TCIMDateTime::SetPrecision(bool precision) {
  if (!fBody) fBody = boost::make_shared<TCIMDateTimeImpl>();
  fBody->SetPrecision(precision);
}

std::string TCIMDateTime::ToString() const {
  return Read(fBody).ToString();
}

std::string TCIMDateTime::ToUIString() const {
  return Read(fBody).ToUIString();
}

bool TCIMDateTime::operator<(const TCIMDateTime& other) const {
  return Read(fBody) < Read(other.fBody);
}

bool TCIMDateTime::operator==(const TCIMDateTime& other) const {
  return Read(fBody) == Read(other.fBody);
}

TCIMDateTime TCIMDateTime::operator+(const TCIMDateTime& other) const {
  return TCIMDateTime(boost::make_shared<TCIMDateTimeImpl>(Read(fBody) + Read(other.fBody)));
}

TCIMDateTime TCIMDateTime::operator-(const TCIMDateTime& other) const {
  return TCIMDateTime(boost::make_shared<TCIMDateTimeImpl>(Read(fBody) - Read(other.fBody)));
}

TCIMDateTime TCIMDateTime::GetDifference(TCIMDateTime& first, TCIMDateTime& second) const {
  return Read(fBody).GetDifference(first, second);
}

boost::shared_ptr<TCIMDateTimeImpl> TCIMDateTime::GetBody() const {
  return fBody;
}

}  // namespace NQORHWX20
