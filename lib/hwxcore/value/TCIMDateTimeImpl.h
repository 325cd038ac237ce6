#ifndef HWXCORE_VALUE_TCIMDATETIMEIMPL_H
#define HWXCORE_VALUE_TCIMDATETIMEIMPL_H

#include <string>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

class TCIMDateTime;

/// The body of `TCIMDateTime`, which documents the operations.
class HWX_EXPORT TCIMDateTimeImpl {
 public:
  TCIMDateTimeImpl() = default;
  TCIMDateTimeImpl(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
                   unsigned short minute, unsigned short second, unsigned int microSeconds,
                   short utcOffset);
  TCIMDateTimeImpl(unsigned int days, unsigned short hours, unsigned short minutes,
                   unsigned short seconds, unsigned int microSeconds);
  explicit TCIMDateTimeImpl(const std::string& text);

  /// Whether `Set` takes these values.
  static bool IsValid(unsigned int days, unsigned short hours, unsigned short minutes,
                      unsigned short seconds, unsigned int microSeconds);
  static bool IsValid(unsigned short year, unsigned short month, unsigned int day,
                      unsigned short hour, unsigned short minute, unsigned short second,
                      unsigned int microSeconds, short utcOffset);

  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microSeconds);
  void Set(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
           unsigned short minute, unsigned short second, unsigned int microSeconds,
           short utcOffset);
  void Set(const std::string& text);
  void Clear() { fIsNull = true; }

  bool IsNull() const { return fIsNull; }
  bool IsInterval() const { return fIsInterval; }
  unsigned short GetYear() const { return fYear; }
  unsigned short GetMonth() const { return fMonth; }
  unsigned int GetDay() const { return fDay; }
  unsigned short GetHour() const { return fHour; }
  unsigned short GetMinute() const { return fMinute; }
  unsigned short GetSecond() const { return fSecond; }
  unsigned int GetMicroSeconds() const { return fMicroSeconds; }
  short GetUTCOffset() const { return fUTCOffset; }
  bool GetPrecision() const { return fPrecision; }
  void SetPrecision(bool precision) { fPrecision = precision; }

  std::string ToString() const;
  std::string ToUIString() const;

  bool operator<(const TCIMDateTimeImpl& other) const;
  bool operator==(const TCIMDateTimeImpl& other) const;
  TCIMDateTimeImpl operator+(const TCIMDateTimeImpl& other) const;
  TCIMDateTimeImpl operator-(const TCIMDateTimeImpl& other) const;
  TCIMDateTime GetDifference(TCIMDateTime& first, TCIMDateTime& second) const;

 private:
  unsigned int IntervalSeconds() const;
  TCIMDateTimeImpl TimestampAt(long long microSeconds) const;

  bool fIsNull = true;
  unsigned short fYear = 0;
  unsigned short fMonth = 0;
  unsigned int fDay = 0;
  unsigned short fHour = 0;
  unsigned short fMinute = 0;
  unsigned short fSecond = 0;
  unsigned int fMicroSeconds = 0;
  short fUTCOffset = 0;
  bool fIsInterval = false;
  bool fPrecision = false;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMDATETIMEIMPL_H
