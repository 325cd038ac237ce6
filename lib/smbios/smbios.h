/*
 * The firmware's SMBIOS tables, for callers of any language: open, copy the first structure of a
 * type, close.
 *
 * Thread-safety: a handle may be read by several threads at once and closed by one; different
 * handles have nothing in common. smBiosLoad reads the environment, which no thread may change
 * meanwhile.
 */
#ifndef SMBIOS_SMBIOS_H
#define SMBIOS_SMBIOS_H

#include "hwxbase/Export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* NOLINTBEGIN(modernize-use-using): C reads this too. */

/** The codes in a status record. Callers know 0, 3 and 5 by number. */
typedef enum ESmBiosCode {
  kSmBiosOK = 0,             /**< Success. */
  kSmBiosAbsent = 1,         /**< Load: there are no tables at the place that was to be read. */
  kSmBiosNoPermission = 2,   /**< Load: the tables are there, but this user may not read them. */
  kSmBiosReadFailed = 3,     /**< Reading failed for another reason. */
  kSmBiosMalformed = 4,      /**< Load: the entry point is malformed, or the table is damaged before
                                  the structures of type 0 and 1. GetFirst: it is damaged before a
                                  structure of the type. */
  kSmBiosNoStructure = 5,    /**< GetFirst: the table has no structure of the type. */
  kSmBiosBufferTooSmall = 6, /**< GetFirst: the structure doesn't fit; nothing was copied. */
  kSmBiosInvalidArgument = 7 /**< A pointer that is needed is null. */
} ESmBiosCode;

/** How an operation ended. */
typedef struct TSmBiosStatus {
  int code; /**< One of ESmBiosCode. */
} TSmBiosStatus;

/** Opaque; nobody has one. */
typedef struct TPluginManagerProvider TPluginManagerProvider;

/* NOLINTEND(modernize-use-using) */

/**
 * Reads the firmware tables and stores a handle for them, which the caller gives back with
 * smBiosClose. On failure the handle is null and nothing is to be closed.
 *
 * The tables are those below /sys/firmware/dmi/tables, unless the environment variable
 * HWX_SMBIOS_TABLES names a directory that holds such files or one file as dmidecode --dump-bin
 * writes it. They are read and checked whole, once: later operations on the handle read from
 * memory. A table that is damaged has a handle all the same where the damage lies behind the
 * structures of type 0 and type 1.
 *
 * provider: not used; null.
 */
HWX_EXPORT TSmBiosStatus smBiosLoad(TPluginManagerProvider* provider, void** handle);

/**
 * Copies the first structure of a type to the buffer: the formatted area, the strings and the two
 * NUL bytes that close the structure, and one NUL byte more where it has strings, so that the last
 * string too is followed by an empty one.
 *
 * length: on entry the buffer's capacity in bytes; on return the number of bytes copied, all those
 * above, and 0 on failure, when the buffer is left as it was.
 */
HWX_EXPORT TSmBiosStatus smBiosGetFirst(void* handle, int type, void* buffer, int* length);

/** Releases what smBiosLoad opened and makes the handle null. A null handle is let pass. */
HWX_EXPORT TSmBiosStatus smBiosClose(void** handle);

#ifdef __cplusplus
}
#endif

#endif /* SMBIOS_SMBIOS_H */
