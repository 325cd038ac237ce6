// Read by ThreadSanitizer at its start, in the executables that this file is compiled into.
//
// The C library keeps the zone under a lock that the sanitizer can't see, so that two threads which
// read the local time seem to race.
extern "C" const char* __tsan_default_suppressions() {
  return "race:tzset_internal\n";
}
