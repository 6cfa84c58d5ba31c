// SPDX-License-Identifier: MIT
// TELEBOOK: the phone books and recipient groups of the Alpha server, as the session's user may see
// them.
//
// A phone book has an id, and its entries have ids of their own, unique in the book. A recipient
// group is a named list of references to entries, which may come from several books.
//
// Results of the long operations: 0 success, 4 the server refused, 8 the remote call failed, 12
// there is no client handle. Operations that give a pointer give null in the last two cases. A list
// or record is the library's: it is good until the same operation runs again, on whichever object,
// or until the object goes, and the caller frees nothing.
//
// An id that is handed in is cut at the 11 bytes of its field. An id in a record may fill its field
// and then has no NUL; it may be handed in as it stands, since no more than 11 bytes are read.
//
// An object may be made before the connection stands, and outlives it. Calls must not overlap. No
// trace lines.
#ifndef ZERDIX_TELEBOOK_H
#define ZERDIX_TELEBOOK_H

#include <cstdint>
#include <memory>

#include <zerdix/export.h>
#include <zerdix/held_result.h>
#include <zerdix/ptrlist.h>
#include <zerdix/records.h>

struct o_get_tbooks_o;
struct o_get_tbookl_o;
struct o_get_tgroups_o;
struct o_get_tgroupl_o;

class ZX_API TELEBOOK {
  public:
    TELEBOOK();
    ~TELEBOOK();

    TELEBOOK(const TELEBOOK&) = delete;
    TELEBOOK& operator=(const TELEBOOK&) = delete;

    // All phone books: a list of o_tebu.
    PTRLIST* getTBooks();

    // One phone book. An unknown id gives a record whose tbookid is empty.
    o_tebu* getTBook(const char* tbookid);

    // Creates a phone book or changes it; the id in the record decides which one is meant. Here and
    // with entries and groups the record is written whole: to change one, fetch it, change its
    // fields and write it back, so that owner, rights and the server's own fields survive.
    std::int32_t putTBook(const o_tebu* book);
    std::int32_t delTBook(const char* tbookid);

    // A block of at most `blocksize` entries of a book, in the order of their ids: a list of
    // o_tebul. It begins at the id `start`, "" for the beginning; whether the entry of that very id
    // is among them is the server's business. An id of ten characters and the byte 0xFF behind it
    // begin directly behind that id. A net type other than fax and telex asks for both.
    PTRLIST* getTBookEntries(const char* tbookid, nettypetype nettype, const char* start,
                             std::int32_t blocksize);

    // One entry. An unknown id gives a record whose tbookid is empty. `flag` is passed on.
    o_tebul* getTBookEntry(const char* tbookid, const char* teleid, int flag);

    // Creates an entry or changes it; the two ids in the record decide which one is meant.
    std::int32_t putTBookEntry(const o_tebul* entry);
    std::int32_t delTBookEntry(const char* tbookid, const char* teleid);

    // All recipient groups: a list of o_tgroup, gathered by blocks, at once, or one block that
    // begins at the id `start`. The gathered list is of copies, which only this object's next
    // getTGroups or _getTGroups ends; getTGroups also ends the list of getTGroupsB. The lists of
    // members below keep to the same rules.
    PTRLIST* getTGroups();
    PTRLIST* _getTGroups();
    PTRLIST* getTGroupsB(const char* start, std::int32_t blocksize);

    // One group. An unknown id gives a record whose groupid is empty.
    o_tgroup* getTGroup(const char* groupid);
    std::int32_t putTGroup(const o_tgroup* group);
    std::int32_t delTGroup(const char* groupid);

    // The members of a group: a list of o_tgroupl, gathered by blocks, at once, or one block that
    // begins at the member of these two ids. `flag` is passed on; 1 is usual.
    PTRLIST* getTGroupEntries(const char* groupid, int flag);
    PTRLIST* _getTGroupEntries(const char* groupid, int flag);
    PTRLIST* getTGroupEntriesB(const char* groupid, int flag, const char* starttbook,
                               const char* starttele, std::int32_t blocksize);

    std::int32_t putTGroupEntry(const o_tgroupl* entry);
    std::int32_t delTGroupEntry(const char* groupid, const char* tbookid, const char* teleid);

    // The rights of the session's user on a book or a group, from that record's three bytes
    // `perms`, its owner and its user group: the sum of the values below that the owner's byte
    // gives when the user is the owner, the group's byte when the user is in the group, and
    // everybody's. One remote call; when it fails the user counts as no member.
    char getPermissions(const unsigned char* perms, const char* owner, const char* group);

    // The rights, the same six bits in each of the three bytes.
    static char clssetPRead();    // 1
    static char clssetPExecute(); // 2, use
    static char clssetPAdd();     // 4
    static char clssetPModify();  // 8, change
    static char clssetPDelete();  // 16
    static char clssetPPerm();    // 32, hold the rights

    // Writes the entries of a book to a text file, which is created or overwritten: one entry a
    // line, teleid;phone;tsi;I or E (in-house or not);F or T (fax or telex);comment; in
    // Windows-1252, each line ended by a line feed. A net type other than fax and telex asks for
    // both. 0; 4 a block couldn't be fetched, for whatever reason, no connection among them; 5 the
    // file couldn't be written; 6 it can't be opened. The file is emptied before the server is
    // asked for anything: after a 4 or a 5 what stood in it is gone, and it holds the entries
    // written so far, perhaps none. Ends the list of getTBookEntries.
    std::int32_t exportTBook(const char* tbookid, nettypetype nettype, const char* file);

    // Stores each line of such a file as an entry of a book, new or changed. 0; 4 the server
    // refused an entry; 5 the file can't be read; 6 it can't be opened; 7 no memory; 8 a remote
    // call failed; 12 no client handle. It stops at the first entry that isn't stored, and what was
    // stored before stays. Nothing is quoted: a ";" in a field shifts the fields behind it. A line
    // with too few fields repeats its last one in the others, an empty line its line feed; of a
    // line longer than 511 characters the rest counts as a line of its own. CR LF reads as LF.
    std::int32_t importTBook(const char* tbookid, const char* file);

    // Asks the server to look up recipients in an external directory. Ten parameters, each may be
    // null and is cut to 81 bytes. The value is the server's, and what the fetch takes; 12 without
    // a client handle (or as a value of the server's); below 0 the negated RPC status of a call
    // that failed, such as -5 for one that timed out.
    std::int32_t queryExternTBook(const char* tbookid, const char* p0, const char* p1,
                                  const char* p2, const char* p3, const char* p4, const char* p5,
                                  const char* p6, const char* p7, const char* p8, const char* p9);

    // What a query has found so far. How often to ask is agreed between caller and server.
    a_fetch_result_o* fetchExternTBookResult(std::int32_t query);

  private:
    template <class Record>
    using result = zerdix::held_result<Record>;
    template <class Record>
    using record_list = std::unique_ptr<zerdix::rpc::record_list<Record>>;

    std::unique_ptr<PTRLIST> pTBookList;
    std::unique_ptr<PTRLIST> pEntryList;
    record_list<o_tgroup> pTGroupList;
    std::unique_ptr<PTRLIST> pTGroupBlock;
    record_list<o_tgroupl> pTGroupEntryList;
    std::unique_ptr<PTRLIST> pTGroupEntryBlock;
    client* pClient; // a copy of the session's, which owns it
    result<o_get_tbooks_o> pTBooksResult;
    result<o_tebu> pTBookResult;
    result<o_get_tbookl_o> pEntriesResult;
    result<o_tebul> pEntryResult;
    result<o_get_tgroups_o> pTGroupsResult;
    result<o_get_tgroups_o> pTGroupBlockResult;
    result<o_tgroup> pTGroupResult;
    result<o_get_tgroupl_o> pTGroupEntriesResult;
    result<o_get_tgroupl_o> pTGroupEntryBlockResult;
    result<a_fetch_result_o> pFetchResult;
};

#endif
