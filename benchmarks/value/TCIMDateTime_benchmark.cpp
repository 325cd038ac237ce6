// Date-times beside GLib's GDateTime, which keeps a calendar of its own and looks at no zone here.
// Ours rest on mktime, so each is measured with TZ unset, UTC, and a zone with summer time.

#include "hwxcore/value/TCIMDateTime.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#if __has_include(<glib.h>)
#include <glib.h>
#define HWX_HAVE_GLIB 1
#endif

namespace {

using NQORHWX20::TCIMDateTime;

void SetZone(const char* zone) {
  if (zone != nullptr) {
    ::setenv("TZ", zone, 1);
  } else {
    ::unsetenv("TZ");
  }
  ::tzset();
}

void Parse(benchmark::State& state, const char* zone) {
  SetZone(zone);
  const std::string text = "20070102030405.000006+060";
  for (auto _ : state) {
    TCIMDateTime dateTime(text);
    benchmark::DoNotOptimize(dateTime);
  }
}

// A timestamp for each day of ten years, so that few share what is remembered of the zone.
void ParseManyDays(benchmark::State& state, const char* zone) {
  SetZone(zone);
  std::vector<std::string> texts;
  for (std::time_t day = 13149; day != 13149 + 3650; ++day) {
    const std::time_t moment = day * 86400;
    char text[32];
    std::strftime(text, sizeof text, "%Y%m%d%H%M%S.000006+060", std::gmtime(&moment));
    texts.emplace_back(text);
  }
  for (auto _ : state) {
    for (const std::string& text : texts) {
      TCIMDateTime dateTime(text);
      benchmark::DoNotOptimize(dateTime);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

void PrintDateTime(benchmark::State& state, const char* zone) {
  SetZone(zone);
  const TCIMDateTime dateTime(2007, 1, 2, 3, 4, 5, 6, 60);
  for (auto _ : state)
    benchmark::DoNotOptimize(dateTime.ToString());
}

void CompareTwoMoments(benchmark::State& state, const char* zone) {
  SetZone(zone);
  const TCIMDateTime one(2007, 1, 2, 3, 4, 5, 6, 60);
  const TCIMDateTime other(2007, 7, 3, 3, 4, 5, 6, 60);
  for (auto _ : state)
    benchmark::DoNotOptimize(one < other);
}

void CompareOneMoment(benchmark::State& state, const char* zone) {
  SetZone(zone);
  const TCIMDateTime one(2007, 1, 2, 3, 4, 5, 6, 0);
  const TCIMDateTime other(2007, 1, 2, 4, 4, 5, 6, 60);
  for (auto _ : state)
    benchmark::DoNotOptimize(one == other);
}

// The arithmetic asks the C library each time.
void Add(benchmark::State& state, const char* zone) {
  SetZone(zone);
  const TCIMDateTime timestamp(2007, 1, 2, 3, 4, 5, 6, 60);
  const TCIMDateTime interval(1, 2, 3, 4, 5);
  for (auto _ : state)
    benchmark::DoNotOptimize(timestamp + interval);
}

#define HWX_IN_ALL_ZONES(function)                \
  BENCHMARK_CAPTURE(function, TZ_unset, nullptr); \
  BENCHMARK_CAPTURE(function, UTC, "UTC");        \
  BENCHMARK_CAPTURE(function, Berlin, "Europe/Berlin")

HWX_IN_ALL_ZONES(Parse);
HWX_IN_ALL_ZONES(ParseManyDays);
HWX_IN_ALL_ZONES(PrintDateTime);
HWX_IN_ALL_ZONES(CompareTwoMoments);
HWX_IN_ALL_ZONES(CompareOneMoment);
HWX_IN_ALL_ZONES(Add);

#ifdef HWX_HAVE_GLIB

void GDateTimeParse(benchmark::State& state) {
  for (auto _ : state) {
    GDateTime* const dateTime =
        g_date_time_new_from_iso8601("2007-01-02T03:04:05.000006+01:00", nullptr);
    benchmark::DoNotOptimize(dateTime);
    g_date_time_unref(dateTime);
  }
}

void GDateTimePrint(benchmark::State& state) {
  GDateTime* const dateTime =
      g_date_time_new_from_iso8601("2007-01-02T03:04:05.000006+01:00", nullptr);
  for (auto _ : state) {
    gchar* const text = g_date_time_format(dateTime, "%Y%m%d%H%M%S.%f%z");
    benchmark::DoNotOptimize(text);
    g_free(text);
  }
  g_date_time_unref(dateTime);
}

void GDateTimeCompare(benchmark::State& state) {
  GDateTime* const one = g_date_time_new_from_iso8601("2007-01-02T03:04:05.000006+01:00", nullptr);
  GDateTime* const other =
      g_date_time_new_from_iso8601("2007-07-03T03:04:05.000006+01:00", nullptr);
  for (auto _ : state)
    benchmark::DoNotOptimize(g_date_time_compare(one, other));
  g_date_time_unref(one);
  g_date_time_unref(other);
}

void GDateTimeAdd(benchmark::State& state) {
  GDateTime* const timestamp =
      g_date_time_new_from_iso8601("2007-01-02T03:04:05.000006+01:00", nullptr);
  for (auto _ : state) {
    GDateTime* const sum = g_date_time_add(timestamp, 93784000005);
    benchmark::DoNotOptimize(sum);
    g_date_time_unref(sum);
  }
  g_date_time_unref(timestamp);
}

BENCHMARK(GDateTimeParse);
BENCHMARK(GDateTimePrint);
BENCHMARK(GDateTimeCompare);
BENCHMARK(GDateTimeAdd);

#endif

}  // namespace
