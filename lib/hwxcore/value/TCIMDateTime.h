#ifndef HWXCORE_VALUE_TCIMDATETIME_H
#define HWXCORE_VALUE_TCIMDATETIME_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

class TCIMDateTimeImpl;

/// The CIM date-time: a timestamp (date, time of day, offset from UTC) or an interval (days, hours,
/// minutes, seconds, microseconds). Both have a text form of 25 characters:
///
///     20070102030405.000006+060    a timestamp, 60 minutes east of UTC
///     00000001020304.000005:000    an interval of 1 day, 2 hours, 3 minutes, 4 seconds, 5 us
///
/// Comparison and arithmetic of timestamps rest on the system's `mktime` and `localtime`, and so on
/// the machine's time zone. Another TZ is noticed at once, another zone file behind an unset TZ
/// within a second.
///
/// Copies are deep; only `GetBody` shares. A date-time that was cleared acts like a null one.
///
/// Unless an operation says otherwise, every failure is `kHWXStatusInvalidDateTime`, and a failed
/// `Set` leaves the object as it was.
///
/// Thread-safety: an object belongs to one thread at a time. The zone is the process's own: nobody
/// may change the environment while others use date-times.
class HWX_EXPORT TCIMDateTime {
 public:
  /// A null date-time.
  TCIMDateTime();
  TCIMDateTime(const TCIMDateTime& other);
  /// A timestamp; see `Set`.
  TCIMDateTime(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
               unsigned short minute, unsigned short second, unsigned int microSeconds,
               short utcOffset);
  /// An interval; see `Set`.
  TCIMDateTime(unsigned int days, unsigned short hours, unsigned short minutes,
               unsigned short seconds, unsigned int microSeconds);
  /// Reads the text form; see `Set`.
  TCIMDateTime(const std::string& text);  // NOLINT(google-explicit-constructor)
  ~TCIMDateTime();

  TCIMDateTime& operator=(const TCIMDateTime& other);

  /// Makes an interval. Fails beyond 23 hours, 59 minutes, 59 seconds or 999999 microseconds.
  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microSeconds);

  /// Makes a timestamp; `utcOffset` is in minutes east of UTC. The fields are stored as they are,
  /// and a month of 13 or an hour of 30 passes: what fails is a moment that `mktime` can't
  /// represent, such as one that the zone's standard time leaves out, or takes for an error, which
  /// is the second before the epoch.
  void Set(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
           unsigned short minute, unsigned short second, unsigned int microSeconds,
           short utcOffset);

  /// Reads the text form, digits in every place: no wildcards. An interval's days keep their low 16
  /// bits.
  void Set(const std::string& text);

  /// Makes the date-time null and gives up the body.
  void Clear();

  bool IsNull() const;
  bool IsInterval() const;

  /// The fields as they were set, without any check. `GetDay` is the day of the month or the
  /// interval's days; an interval has no year, month and offset of its own.
  unsigned short GetYear() const;
  unsigned short GetMonth() const;
  unsigned int GetDay() const;
  unsigned short GetHour() const;
  unsigned short GetMinute() const;
  unsigned short GetSecond() const;
  unsigned int GetMicroSeconds() const;
  short GetUTCOffset() const;

  /// A mark for callers, read by nothing.
  bool GetPrecision() const;
  void SetPrecision(bool precision);

  /// The text form. Fails on a null date-time. A value wider than its field isn't cut.
  std::string ToString() const;

  /// For people: "01/02/2007 03:04:05", without the time at midnight, or the parts of an interval
  /// in words, each with a blank behind it. Fails on a null date-time.
  std::string ToUIString() const;

  /// Timestamps compare as moments, whatever their offsets; both operators fail on null date-times
  /// and between a timestamp and an interval.
  bool operator<(const TCIMDateTime& other) const;
  bool operator==(const TCIMDateTime& other) const;

  /// Two intervals give an interval; a timestamp and an interval, in either order, a timestamp.
  /// Fails on null date-times and on two timestamps.
  TCIMDateTime operator+(const TCIMDateTime& other) const;

  /// Two of a kind give the interval between them, never a negative one; a timestamp and an
  /// interval, in either order, the timestamp less the interval. Fails on null date-times.
  TCIMDateTime operator-(const TCIMDateTime& other) const;

  /// Throws `kHWXStatusNotImplemented`, always; `operator-` gives the difference.
  TCIMDateTime GetDifference(TCIMDateTime& first, TCIMDateTime& second) const;

  /// The body itself, shared; empty after `Clear`.
  boost::shared_ptr<TCIMDateTimeImpl> GetBody() const;

 private:
  explicit TCIMDateTime(boost::shared_ptr<TCIMDateTimeImpl> body);

  boost::shared_ptr<TCIMDateTimeImpl> fBody;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMDATETIME_H
