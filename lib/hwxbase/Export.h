#ifndef HWXBASE_EXPORT_H
#define HWXBASE_EXPORT_H

/// Stands in front of what a shared library of this project offers: a class, with all its members,
/// a function or a variable. All else stays inside the library.
#define HWX_EXPORT __attribute__((visibility("default")))

#endif  // HWXBASE_EXPORT_H
