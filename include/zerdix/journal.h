// SPDX-License-Identifier: MIT
// JOURNAL: the documents of the session's user on the Alpha server, with their pages and logs.
//
// A user has three pools of documents (topftype). A document has an id that the server gives, and
// pages from 1 on; a page can exist in several picture types: 0 compressed bitmap, 1 a second
// bitmap, 4 text, 6 telex, 10 text beside a cover template's bitmap.
//
// The page_dat of a page in picture type 0 is a stream as the Unix compress tool writes it (1F 9D
// 90, then codes of 9 to 16 bits). Expanded, it is width and height in pixels, 32 bits each, most
// significant byte first, then the rows from the top of the page to its bottom, (width + 7) / 8
// bytes each and nothing between them. A set bit is black, and the leftmost pixel of a byte is bit
// 0, the lowest. A full fax page is 1,728 pixels wide. Driver blocks (sendfax.h) look different:
// bottom row first, a set bit white, leftmost pixel in bit 7. In the other types a page_dat is
// bytes that the library carries as they are.
//
// Results of the long operations, where nothing else is said: 0 success, 4 the server refused, 8
// the remote call failed, 12 there is no client handle. Operations that give a pointer give null in
// the last two cases. What a pointer shows is the library's: it is good until the same operation
// runs again, on whichever object, or until the object goes, and the caller frees nothing.
//
// Text arguments are cut to the width of their field: users, printers, scanners and target names
// 10 characters, comments 30, servers 35.
//
// An object may be made before the connection stands. Calls must not overlap. No trace lines.
#ifndef ZERDIX_JOURNAL_H
#define ZERDIX_JOURNAL_H

#include <cstdint>
#include <memory>

#include <zerdix/export.h>
#include <zerdix/held_result.h>
#include <zerdix/ptrlist.h>
#include <zerdix/records.h>

struct a_get_elist_o;
struct a_get_plist_o;
struct a_get_slist_o;

class ZX_API JOURNAL {
  public:
    JOURNAL();

    // Frees what its operations returned; the connection stays.
    ~JOURNAL();

    JOURNAL(const JOURNAL&) = delete;
    JOURNAL& operator=(const JOURNAL&) = delete;

    // The values of the field `resolution` of a_s_rec: 0, 1 and 2.
    static std::int32_t clssetPCTAsIs();
    static std::int32_t clssetPCTFine();
    static std::int32_t clssetPCTNormal();

    // The lists as last loaded: of a_e_rec, a_p_rec and a_s_rec, in the server's order. Null before
    // the first load, empty for an empty pool and after a load that gave 8. Lists and records are
    // good until the same pool is loaded again, on whichever object, or until the object goes.
    PTRLIST* getEDocPtrList();
    PTRLIST* getPDocPtrList();
    PTRLIST* getSDocPtrList();

    // Loads the list of a pool, whole or one block of it; needs a login, which the server is asked
    // for first. 4 when nobody is logged on, and also when that couldn't be asked: there is no
    // connection, it is dead, or the server was silent (25 seconds). Then the old list stays. 8
    // when the login stands and the load itself failed: the list is empty then. A pool that doesn't
    // exist gives 0 and loads nothing. What the selection and the two values mean is agreed between
    // caller and server; the size of a block is ZERDIX::clsGetJournalBlockSize().
    std::int32_t loadDocPtrList(topftype pool, selectiontype selection);
    std::int32_t loadDocPtrList(topftype pool, selectiontype selection, std::int32_t firstvalue,
                                std::int32_t secondvalue);

    // Whether the pool holds a document with the bif flag: 1 yes, 0 no; 8 and 12 as usual.
    std::int32_t isBifStatus(topftype pool);

    // One record by id. A document that the server doesn't hold comes back with faxid 0.
    a_e_rec* getEDoc(std::int32_t faxid);
    a_s_rec* getSDoc(std::int32_t faxid);
    a_p_rec* getPDoc(std::int32_t faxid);

    // Number of pages and their picture types. With markRead 1 the document's bif flag is cleared
    // first.
    a_get_inf_o* getDocInf(topftype pool, std::int32_t faxid, int markRead);

    // Fetches one page. The bytes are good until the next getDocPage on this object. A page that
    // doesn't exist gives size 0, and then `data` has no meaning. A page of more than 1,638,400
    // bytes comes back cut to that length. Null also when memory runs out.
    page_dat* getDocPage(topftype pool, std::int32_t faxid, std::int16_t page,
                         std::int16_t pictureType);

    // Stores a page of a desk document of the session's user, or of the print user ".winpr". The
    // page goes in blocks of the setting MaxPageBlockLen; on failure the blocks already sent stay.
    std::int32_t putDocPage(std::int32_t faxid, std::int16_t page, std::int16_t pictureType,
                            const page_dat* data);
    std::int32_t putPrintDocPage(std::int32_t faxid, std::int16_t page, std::int16_t pictureType,
                                 const page_dat* data);

    // Makes room for a page at this number: the pages from there on move up by one.
    std::int32_t insertDocPage(std::int32_t faxid, std::int16_t page);

    // The server copies a page of a document of any pool into a desk document.
    std::int32_t copyDocPage(topftype pool, std::int32_t sourceFaxid, std::int16_t sourcePage,
                             std::int32_t targetFaxid, std::int16_t targetPage);

    // Removes a page of a desk document.
    std::int32_t delPoolPage(std::int32_t faxid, std::int16_t page);

    // Makes an empty desk document for the session's user, or for the print user. Its id; 0 when
    // the server made none, -1 without a client handle or when the call failed.
    std::int32_t createDoc(const char* user);
    std::int32_t makeDoc();
    std::int32_t makePrintDoc();

    std::int32_t copyDoc(topftype pool, std::int32_t sourceFaxid, std::int32_t targetFaxid);
    std::int32_t delDoc(topftype pool, std::int32_t faxid);
    std::int32_t delPrintDoc(topftype pool, std::int32_t faxid);

    // Hands a document on to a user or a group of another server's pool. Which of the two targets
    // is the user and which the group is agreed with the server.
    std::int32_t forwardDoc(topftype pool, std::int32_t faxid, const char* targetAlpha,
                            const char* targetOne, const char* targetTwo, topftype targetPool);

    std::int32_t printDoc(topftype pool, std::int32_t faxid, std::int16_t fromPage,
                          std::int16_t toPage, const char* printer, std::int16_t copies);
    std::int32_t printPrintDoc(topftype pool, std::int32_t faxid, std::int16_t fromPage,
                               std::int16_t toPage, const char* printer, std::int16_t copies);

    std::int32_t putComment2Doc(topftype pool, std::int32_t faxid, const char* comment);
    std::int32_t setPublic(std::int32_t faxid, int isPublic);

    // The bif flag marks a document that its owner hasn't looked at yet.
    std::int32_t setbif(topftype pool, std::int32_t faxid, int flag);
    std::int32_t setReadFlag(topftype pool, std::int32_t faxid);

    // Makes an outgoing document of a desk document, with the settings of `record`. The desk
    // document stays. A priority below 0 is refused with 4 and doesn't go out.
    std::int32_t sendDoc(std::int32_t faxid, const a_s_rec* record);

    // Changes the settings of a send job, stops it, starts it anew. The priority is that of
    // a_s_rec, 0 (the lowest) to 32767, and not a user's 0 to 100; one below 0 is refused with 4
    // and doesn't go out.
    std::int32_t chgSRec(std::int32_t faxid, std::int16_t priority, const char* comment,
                         std::int32_t sendtime, int nighttariff, std::int16_t maxretries,
                         std::int32_t resolution);
    std::int32_t cancelJob(std::int32_t faxid);
    std::int32_t restartSendJob(std::int32_t faxid);

    std::int32_t scanDoc(const char* scanner, std::int32_t value, const char* comment);

    // Id of the cover template, 0 when the server has none; -1 without a client handle or when the
    // call failed. An id is asked for once.
    std::int32_t getCoverId();

    // Makes one desk document out of the first pages of others. Its id, or -1 when it couldn't be
    // made or a page was refused; what was copied until then stays on the server. A page whose call
    // failed is skipped without a word, and those behind it keep the numbers that they were to
    // have: ask getDocInf whether all pages are there.
    std::int32_t combineDocs(const fax_info* list, std::uint16_t count);

    // Adds a line to a document's log; a null one counts as empty.
    std::int32_t putLog(topftype pool, std::int32_t faxid, const char* line);

    // The log from `position` on, as one text with CR LF behind each line, each cut at 100
    // characters; empty when there is none. `nextPosition` may be null, and else receives the
    // position to go on from, on success only. The text is good until the next getLog on this
    // object.
    //
    // The text ends before 64 KiB. It then lacks lines that the server had already sent, up to 80,
    // and `nextPosition` stands behind those, so that they are skipped by whoever goes on from
    // there. With a server that counts positions in lines, as alphad does, `position` plus the
    // number of lines in the text leads on without a gap.
    char* getLog(topftype pool, std::int32_t faxid, std::int32_t position,
                 std::int32_t* nextPosition);

  private:
    std::int32_t storeDocPage(const char* user, std::int32_t faxid, std::int16_t page,
                              std::int16_t pictureType, const page_dat* data);
    std::int32_t deleteDoc(const char* user, topftype pool, std::int32_t faxid);
    std::int32_t printDocument(const char* user, topftype pool, std::int32_t faxid,
                               std::int16_t fromPage, std::int16_t toPage, const char* printer,
                               std::int16_t copies);

    template <class Record>
    using result = zerdix::held_result<Record>;

    std::unique_ptr<PTRLIST> pEDocList;
    std::unique_ptr<PTRLIST> pPDocList;
    std::unique_ptr<PTRLIST> pSDocList;
    client* pClient; // a copy of the session's, which owns it
    zerdix::held_text pLogText;
    zerdix::held_page lastPage;
    result<a_get_elist_o> pEListResult;
    result<a_get_plist_o> pPListResult;
    result<a_get_slist_o> pSListResult;
    result<a_e_rec> pERecResult;
    result<a_s_rec> pSRecResult;
    result<a_p_rec> pPRecResult;
    result<a_get_inf_o> pInfResult;
    std::int32_t lCoverId = 0;
};

#endif
