/* SPDX-License-Identifier: MIT */
/* The one export macro of the library. Usable from C and C++. */
#ifndef ZERDIX_EXPORT_H
#define ZERDIX_EXPORT_H

#if defined(__GNUC__)
#define ZX_API __attribute__((visibility("default")))
#else
#define ZX_API
#endif

#endif
