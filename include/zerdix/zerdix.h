// SPDX-License-Identifier: MIT
// ZERDIX: the session with the Alpha server.
//
// The connection belongs to the process, not to the object: client handle, login id, user, server
// and language are shared by all objects, and JOURNAL and TELEBOOK work over the same connection.
// A new object forgets the handle that another one opened, without closing it.
//
// A desktop client calls login; a print job, which has no user at a desk, sets user and server and
// calls GetClientAddr alone.
//
// Results of the long operations, where nothing else is said: 0 success, 4 refused, 8 the remote
// call failed or no connection could be made, 12 there is no client handle. Operations that give a
// pointer give null in the last two cases. The reason stands in the trace. After a call that timed
// out the connection is gone, and every operation gives 12 or null until the next GetClientAddr.
//
// Records and lists that an operation returns are the library's: a caller reads them and frees
// nothing. Each is good until the same operation runs again, on whichever object, or until the
// object goes, whichever comes first; where more is promised it is said.
//
// A null text counts as an empty one. The session's user is cut at 10 characters, its server at 35,
// a password at 20. All other ids are cut at the bytes of their field: 11, and 36 for a server.
//
// One thread at a time: calls must not overlap, not on different objects either. A call that
// reaches the server blocks for up to 25 seconds.
#ifndef ZERDIX_ZERDIX_H
#define ZERDIX_ZERDIX_H

#include <cstdint>
#include <memory>

#include <zerdix/export.h>
#include <zerdix/held_result.h>
#include <zerdix/ptrlist.h>
#include <zerdix/records.h>

struct a_get_users_o;
struct a_get_groups_o;
struct a_get_printers_o;
struct a_get_scanners_o;
struct a_get_board_o;
struct a_get_sigb_o;

class ZX_API ZERDIX {
  public:
    ZERDIX();

    // Frees what its operations returned; the connection stays.
    ~ZERDIX();

    ZERDIX(const ZERDIX&) = delete;
    ZERDIX& operator=(const ZERDIX&) = delete;

    // Connects to the server and logs the user on. 0; 4 the user is already logged on, 6 the user
    // is unknown, 8 no connection or a failed call, 9 wrong password, 10 client and server don't
    // fit together or the server gave a reason of its own, 11 the server can't reach the Omega
    // server. The password crosses the wire in plain text.
    //
    // Before the server is asked to log the user on, user and server become the new ones and the
    // records that are kept of the user before are forgotten. A login that is refused leaves it so;
    // the connection stays open for another try, and the login id stays that of a login before,
    // which the server hasn't ended.
    //
    // After a success clsGetAlphaServer() is the name that the server gives itself, which needn't
    // be one that the network knows: a caller keeps the one that was typed, to connect again with.
    std::int32_t login(const char* userid, const char* password, const char* alphaServer);

    // Logs off and closes the connection. When the call fails (8) both stay as they are.
    std::int32_t logout();

    // Whether the server still knows the login: 0 yes, 4 no.
    static std::int32_t clsCheckLogin();

    // 0 when nobody is logged on, as in a print job.
    static std::int32_t clsGetLoginId();

    // The client handle, null when there is none. Good until the connection ends.
    static client* clsGetClient();

    // The session's user and server: never null, empty before any session. Good until they are
    // set anew.
    static const char* clsGetUserId();
    static const char* clsGetAlphaServer();

    // Cut to 10 and 35 characters. The records kept of the user before stay until they are fetched.
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

    // The defaults of the session's user, kept once for the process until an object comes or goes
    // or a user logs on. getAUserRecord() fetches them anew, clsGetAUserRecord() only when there
    // are none yet. What a setter has changed stays in the kept record even when the server didn't
    // take it, until the next getAUserRecord().
    a_user_rec* getAUserRecord();
    static a_user_rec* clsGetAUserRecord();

    // Change one of the user's defaults and write the whole record back, so that what this client
    // doesn't know survives. 8 also when the record can't be fetched first. What is written is the
    // kept record: fetch it with getAUserRecord() first, so that nobody else's change is undone,
    // and always after setUserId.
    //
    // `trays` holds 10 values: per paper source the id of the pool document that is its background
    // paper, 0 for none. The priority is 0 (the lowest) to 100; others are refused with 4, before
    // anything is fetched or written. That of a send job has another unit, 0 to 32767 (a_s_rec).
    // `hwfeatures` and `actions` are sums of the values below.
    std::int32_t setDefPrinter(const char* printer);
    std::int32_t setDefScanner(const char* scanner, std::int32_t hwfeatures);
    std::int32_t setPaperTrays(const std::int32_t* trays);
    std::int32_t setPriority(std::int16_t priority);
    std::int32_t setActions(std::int32_t actions);

    // The user's identity on the Omega side, fetched anew; login and setReplacement may fetch it
    // too.
    o_user_rec* getOUserRecord();

    // Names who stands in for the user, and whether that is in force. 6 when the server refuses,
    // since it would close a cycle of replacements or since it doesn't know that user; then nothing
    // is changed. 8 also when the user's record can't be fetched first. What is written back is the
    // record that this object has fetched last: call getOUserRecord() first, as with the setters
    // above. The ids may have 11 and 36 characters.
    std::int32_t setReplacement(const char* userid, const char* alphaid, int active);

    // 0; 6 the user is unknown, 9 the old password is wrong, 8 and 12 as usual; any other value is
    // the server's own. Both passwords cross the wire in plain text.
    std::int32_t chgPassword(const char* oldpassword, const char* newpassword);

    // All users, a list of o_user_rec, ordered as the server orders them.
    // getUserList gathers them block by block as copies, which are good until the next getUserList
    // or _getUserList on this object. _getUserList asks for all in one call; getUserList ends its
    // list too. getUserListB brings the block of at most `number` users that begins at the given
    // one, "" and "" for the first. getUserList ends that list as well. An empty directory is an
    // empty list. The copies of a getUserList that failed half-way go with the next load.
    PTRLIST* getUserList();
    PTRLIST* _getUserList();
    PTRLIST* getUserListB(const char* userid, const char* alphaid, std::int32_t number);

    // All user groups, a list of a_group_rec.
    PTRLIST* getUserGroups();

    // Whether the session's user is in a group: 0 yes, 4 no.
    static std::int32_t clsSearchUserInGroup(const char* groupid);

    // All printers, a list of a_printer_rec, in the three ways of the user lists.
    PTRLIST* getPrinterList();
    PTRLIST* _getPrinterList();
    PTRLIST* getPrinterListB(const char* printerid, std::int32_t number);

    // Lists of a_scanner_rec. What the selector chooses is agreed between caller and server. Each
    // of the two ends the list of the other.
    PTRLIST* getFreeScanners(std::int32_t selector);
    PTRLIST* getAllScanners(std::int32_t selector);

    // The signature of the session's user, bytes that the library doesn't look into. Size 0 when
    // there is none. One of more than 1,638,400 bytes comes back cut to that length. The record is
    // the object's, and its bytes are good until the next getSignature on it.
    page_dat* getSignature();
    std::int32_t putSignature(const page_dat* signature);

    // The bulletin board's entries that are newer than those of the last call on this object, or
    // all with `force` 1: the first of a chain. Null when there are none, and on failure.
    a_board_entry* getBoardEntries(int force);

    // Hardware features of a device.
    static std::int32_t clssetHWFNormal();   // 0x001, normal resolution
    static std::int32_t clssetHWFFine();     // 0x002, fine resolution
    static std::int32_t clssetHWFRes1();     // 0x004, without a meaning here
    static std::int32_t clssetHWFRes2();     // 0x008, without a meaning here
    static std::int32_t clssetHWFScan();     // 0x010
    static std::int32_t clssetHWFHalftone(); // 0x020
    static std::int32_t clssetHWFPrint();    // 0x040
    static std::int32_t clssetHWFReceive();  // 0x080
    static std::int32_t clssetHWFSend();     // 0x100
    static std::int32_t clssetHWFTelex();    // 0x200

    // What the server does for a user when a document was sent, when that failed, and when one
    // came.
    static std::int32_t clssetATPrintSend();    // 0x001
    static std::int32_t clssetATPrintError();   // 0x002
    static std::int32_t clssetATPrintReceive(); // 0x004
    static std::int32_t clssetATMailSend();     // 0x008
    static std::int32_t clssetATMailError();    // 0x010
    static std::int32_t clssetATMailReceive();  // 0x020
    static std::int32_t clssetATLampSend();     // 0x040
    static std::int32_t clssetATLampError();    // 0x080
    static std::int32_t clssetATLampReceive();  // 0x100
    static std::int32_t clssetATVoiceSend();    // 0x200
    static std::int32_t clssetATVoiceError();   // 0x400
    static std::int32_t clssetATVoiceReceive(); // 0x800

  private:
    std::int32_t putAUserRecord(const a_user_rec* record);
    std::int32_t putOUserRecord(const o_user_rec* record);

    template <class Record>
    using result = zerdix::held_result<Record>;
    template <class Record>
    using record_list = std::unique_ptr<zerdix::rpc::record_list<Record>>;

    result<o_user_rec> pouserrec;
    std::unique_ptr<PTRLIST> pUserGroups;
    record_list<o_user_rec> pUserList;
    std::unique_ptr<PTRLIST> pUserBlock;
    record_list<a_printer_rec> pPrinterList;
    std::unique_ptr<PTRLIST> pPrinterBlock;
    std::unique_ptr<PTRLIST> pScannerList;
    result<a_get_groups_o> pGroupsResult;
    result<a_get_users_o> pUsersResult;
    result<a_get_users_o> pUserBlockResult;
    result<a_get_printers_o> pPrintersResult;
    result<a_get_printers_o> pPrinterBlockResult;
    result<a_get_scanners_o> pFreeScannersResult;
    result<a_get_scanners_o> pAllScannersResult;
    a_board_entry* pBoardFirst = nullptr; // in pBoardResult
    a_get_board_i boardRequest{};
    result<a_get_board_o> pBoardResult;
    result<a_get_sigb_o> pSignatureResult;
    zerdix::held_page signature;
};

#endif
