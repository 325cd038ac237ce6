#ifndef HWXTESTS_UNIT_HWXCORE_VALUE_DATETIMETESTING_H
#define HWXTESTS_UNIT_HWXCORE_VALUE_DATETIMETESTING_H

#include <string>
#include <vector>

#include "hwxcore/value/TCIMDateTime.h"
#include "support/StatusOf.h"

namespace hwxtest {

/// Day, hour, minute, second, microseconds.
inline std::vector<long> IntervalFields(const NQORHWX20::TCIMDateTime& interval) {
  return {interval.GetDay(), interval.GetHour(), interval.GetMinute(), interval.GetSecond(),
          interval.GetMicroSeconds()};
}

/// Year, month, then what an interval has, then the offset to UTC.
inline std::vector<long> TimestampFields(const NQORHWX20::TCIMDateTime& timestamp) {
  std::vector<long> fields = IntervalFields(timestamp);
  fields.insert(fields.begin(), {timestamp.GetYear(), timestamp.GetMonth()});
  fields.push_back(timestamp.GetUTCOffset());
  return fields;
}

inline NQORHWX20::TCIMDateTime ParsedDateTime(const std::string& text) {
  return NQORHWX20::TCIMDateTime(text);
}

inline int StatusOfParsing(const std::string& text) {
  return StatusOf([&] { NQORHWX20::TCIMDateTime parsed(text); });
}

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_HWXCORE_VALUE_DATETIMETESTING_H
