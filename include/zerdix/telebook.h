// TELEBOOK: the phone books and recipient groups of the Alpha server, as the session's user may see
// them.
//
// A phone book has an id of up to ten characters, and its entries have ids of their own, unique in
// the book. A recipient group is a named list of references to entries, which may come from several
// books.
//
// Results of the long operations: 0 success, 4 the server refused, 8 the remote call failed, 12
// there is no client handle. Operations that give a pointer give null in the last two cases. A list
// or record is the library's: it is good until the same operation runs again, on whichever object,
// or until the object goes, and the caller frees nothing. Ids that are too long are cut.
//
// An object may be made before the connection stands, and outlives it. Calls must not overlap. No
// trace lines.
#ifndef ZERDIX_TELEBOOK_H
#define ZERDIX_TELEBOOK_H

#include <cstdint>

#include <zerdix/export.h>
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

    // Creates a phone book or changes it; the id in the record decides which one is meant.
    std::int32_t putTBook(const o_tebu* book);
    std::int32_t delTBook(const char* tbookid);

    // A block of at most `blocksize` entries of a book, in the order of their ids: a list of
    // o_tebul. It begins at the id `start`, "" for the beginning; whether the entry of that very id
    // is among them is the server's business. A net type other than fax and telex asks for both.
    PTRLIST* getTBookEntries(const char* tbookid, nettypetype nettype, const char* start,
                             std::int32_t blocksize);

    // One entry. An unknown id gives a record whose tbookid is empty. `flag` is passed on.
    o_tebul* getTBookEntry(const char* tbookid, const char* teleid, int flag);

    // Creates an entry or changes it; the two ids in the record decide which one is meant.
    std::int32_t putTBookEntry(const o_tebul* entry);
    std::int32_t delTBookEntry(const char* tbookid, const char* teleid);

    // All recipient groups: a list of o_tgroup, gathered by blocks, at once, or one block that
    // begins at the id `start`.
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

  private:
    PTRLIST* pTBookList;
    PTRLIST* pEntryList;
    PTRLIST* pTGroupList;
    PTRLIST* pTGroupBlock;
    PTRLIST* pTGroupEntryList;
    PTRLIST* pTGroupEntryBlock;
    client* pClient;
    o_get_tbooks_o* pTBooksResult;
    o_tebu* pTBookResult;
    o_get_tbookl_o* pEntriesResult;
    o_tebul* pEntryResult;
    o_get_tgroups_o* pTGroupsResult;
    o_get_tgroups_o* pTGroupBlockResult;
    o_tgroup* pTGroupResult;
    o_get_tgroupl_o* pTGroupEntriesResult;
    o_get_tgroupl_o* pTGroupEntryBlockResult;
    bool fTGroupCopies;      // the elements of pTGroupList are copies of the list's own
    bool fTGroupEntryCopies; // the same for pTGroupEntryList
};

#endif
