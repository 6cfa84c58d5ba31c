/* SPDX-License-Identifier: MIT */
/* Date, time and delimited text, in the forms of six languages. Usable from C and C++.
 *
 * Conventions
 *
 * (1) A time is 32 bits: seconds since 1970-01-01 00:00:00 UTC. 0 means that no time was given.
 * (2) Local time is the time zone of the process, which is the server's once setTZ has run.
 * (3) A language is one letter: G German, F French, U British English, A American English,
 *     S Spanish, I Italian.
 * (4) Results live in static buffers: none of these functions may run on two threads at once.
 */
#ifndef ZERDIX_TIMETEXT_H
#define ZERDIX_TIMETEXT_H

#include <stdint.h>

#include <zerdix/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Makes the local time of this process the server's: asks the server of the open connection and
 * sets TZ. 0, or 8 when the call failed; then the time zone stays as it was. */
ZX_API int32_t setTZ(void);

/* Reads a time, with a date in front or without, in the form of the session's language: "20",
 * "20:15", "31.12.97 20:15:30". A date needs a time; a time alone is today's. 0 for anything that
 * isn't accepted. */
ZX_API int32_t str2time_t(const char* text);

/* Writes a time in the form of `language`. Each of day (weekday, at most 7 characters), date and
 * clock may be null; each that isn't is set to a text that is good until the next call. An unknown
 * letter leaves the texts as they were. Always 0. */
ZX_API int32_t printTime(int32_t time, char language, const char** day, const char** date,
                         const char** clock);

/* Takes `text` apart at `delimiter`. `format` is a chain of conversions with nothing between them,
 * each with a destination as its argument:
 *
 *   %ld   int32_t*   the decimal value of the field
 *   %hd   int16_t*   the decimal value of the field
 *   %s    char*      the whole field with its NUL
 *   %Ns   char*      at most N characters, and no NUL when the field fills them: hand in N + 1
 *                    zeroed bytes
 *   %c    char*      the first character of the field
 *
 * A field is cut at 255 characters. When the delimiters run out, the last field serves every later
 * conversion, and counts each time; behind a closing delimiter it serves without counting. Anything
 * but a conversion ends the walk. The number of fields found, or -1 when memory ran out. */
ZX_API int16_t getTokens(char delimiter, const char* format, const char* text, ...);

#ifdef __cplusplus
}
#endif

#endif
