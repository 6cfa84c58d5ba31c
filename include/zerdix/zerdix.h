// ZERDIX: the session with the Alpha server.
//
// The connection belongs to the process, not to the object: client handle, login id, user, server
// and language are shared by all objects, and JOURNAL and TELEBOOK work over the same connection.
// A new object forgets the handle that another one opened, without closing it.
//
// Results of the long operations: 0 success, 4 refused, 8 the remote call failed or no connection
// could be made, 12 there is no client handle. The reason stands in the trace. After a call that
// timed out the connection is gone, and every operation gives 12 or null until the next
// GetClientAddr.
//
// A null text counts as an empty one.
//
// One thread at a time: calls must not overlap, not on different objects either. A call that
// reaches the server blocks for up to 25 seconds.
#ifndef ZERDIX_ZERDIX_H
#define ZERDIX_ZERDIX_H

#include <cstdint>

#include <zerdix/export.h>
#include <zerdix/records.h>

class ZX_API ZERDIX {
  public:
    ZERDIX();

    // Doesn't close the connection.
    ~ZERDIX();

    ZERDIX(const ZERDIX&) = delete;
    ZERDIX& operator=(const ZERDIX&) = delete;

    // The client handle, null when there is none. Good until the connection ends.
    static client* clsGetClient();

    // The session's user and server: never null, empty before any session. Good until they are
    // set anew.
    static const char* clsGetUserId();
    static const char* clsGetAlphaServer();

    // Cut to 10 and 35 characters.
    void setUserId(const char* userid);
    void setAlphaserver(const char* alphaServer);

    // Resolves the server and connects to it; null on failure. A name that begins with a digit is
    // taken as an address, and an address needs a name of its own (reverse look-up). A handle that
    // is still open is closed first.
    client* GetClientAddr(const char* alphaServer);

    // Closes the connection, if there is one, and forgets the login.
    void CleanupHostConnection();

    // The program number of the server: `number` plus the value of the environment variable
    // ZERDIXRPCOFFSET.
    std::uint32_t rpc_prog_nr(std::int32_t number);

    // The language of the session, a letter of G, F, U, A, S, I; 4 for any other, which changes
    // nothing. The string is the locale's name that the server is told.
    static std::int32_t clsSetLanguage(char letter);
    static char clsGetLanguage();
    static const char* clsGetLanguageString();

    // The block sizes that the server is configured with, at most 200; 30 where it has none. Asked
    // for once. -1 when the call failed, 12 without a client handle: no block size either.
    static std::int32_t clsGetJournalBlockSize();
    static std::int32_t clsGetTelebookBlockSize();
};

#endif
