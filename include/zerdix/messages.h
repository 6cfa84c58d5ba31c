/* SPDX-License-Identifier: MIT */
/* Messages of the library to the user, for a host that shows them itself. Usable from C and C++. */
#ifndef ZERDIX_MESSAGES_H
#define ZERDIX_MESSAGES_H

#include <zerdix/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Takes a message: `text`, under the title `caption`, both Windows-1252 and good until it returns.
 * It comes on the thread of the call that it tells of, which waits meanwhile; the handler calls
 * nothing of the library. `context` is what SetMessageHandler was given. */
typedef void (*zx_message_handler)(void* context, const char* text, const char* caption);

/* From here on messages go to the handler and no longer to standard error; null takes that back.
 * They stand in the error log as before. Once a dialog of the library has opened, messages are
 * windows of its own and don't come here. */
ZX_API void SetMessageHandler(zx_message_handler handler, void* context);

#ifdef __cplusplus
}
#endif

#endif
