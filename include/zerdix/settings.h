/* SPDX-License-Identifier: MIT */
/* The settings of the workstation, as the library reads them: the first of the user's, the
 * machine's and the installation's file that has a key gives it. Usable from C and C++.
 *
 * Files are read anew at each call. Records and texts are the library's, good until the same
 * function is called again.
 */
#ifndef ZERDIX_SETTINGS_H
#define ZERDIX_SETTINGS_H

#include <zerdix/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/* What holds for a print job, with defaults for what isn't set. */
struct zx_settings {
    const char* user;       /* Windows-1252 */
    const char* host;       /* the Alpha server, Windows-1252 */
    const char* error_file; /* path of the error log, bytes of the file system */
};

/* Never null. */
ZX_API const struct zx_settings* ReadSettings(void);

/* A key of the section "Zerdix", in bytes as they stand in the file, UTF-8 for what a person reads.
 */
struct zx_setting {
    const char* value;
    const char* path; /* the value as a path: a "~" at its head became the user's home folder */
    const char* file; /* path of the settings file that has it */
};

/* Null when no file has the key, or with an empty value. */
ZX_API const struct zx_setting* FindSetting(const char* key);

#ifdef __cplusplus
}
#endif

#endif
