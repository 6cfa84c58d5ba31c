// SPDX-License-Identifier: MIT
// A desktop client: logs a user on, shows the inbox, writes the first page of the
// first one as a picture, and shows the phone books. Text is Windows-1252 throughout.
//
//     desktop SERVER USER PASSWORD PICTURE.pbm
#include <cstdio>
#include <ctime>
#include <memory>

#include <zerdix/journal.h>
#include <zerdix/page.h>
#include <zerdix/telebook.h>
#include <zerdix/timetext.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

struct closing {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using open_file = std::unique_ptr<std::FILE, closing>;

// A PBM file has its rows as zx_page has them.
static bool write_picture(const page_dat& stored, const char* name) {
    zx_page page;
    if (ExpandPage(stored.data, stored.size, &page) != ZX_PAGE_GOOD)
        return false;
    const std::unique_ptr<zx_page, decltype(&FreePage)> owner(&page, &FreePage);
    open_file picture(std::fopen(name, "wb"));
    if (!picture)
        return false;
    std::fprintf(picture.get(), "P4\n%u %u\n", page.width, page.height);
    const std::size_t bytes = std::size_t{page.row_bytes} * page.height;
    const bool whole = std::fwrite(page.rows, 1, bytes, picture.get()) == bytes;
    return std::fclose(picture.release()) == 0 && whole;
}

// Who sent it, when it came, how long it is, and whether it was looked at.
static void show(const a_e_rec& document) {
    char received[32];
    const std::time_t when = zerdix::received_at(document);
    std::strftime(received, sizeof received, "%F %R", std::localtime(&when));
    std::printf("document %d from %.*s, %s, %d pages%s\n", document.faxid,
                static_cast<int>(zerdix::sender_number(document).size()),
                zerdix::sender_number(document).data(), received, zerdix::page_count(document),
                zerdix::is_new(document) ? ", new" : "");
}

int main(int argc, char** argv) {
    ZERDIX session;
    if (argc != 5 || session.login(argv[2], argv[3], argv[1]) != 0)
        return 1; // 6: unknown user, 9: wrong password; the trace tells more
    JOURNAL journal;
    setTZ(); // the server's time zone, for times that are shown
    if (journal.loadDocPtrList(TOPF_E, zerdix::select_all) != 0)
        return 2;
    PTRLIST* documents = journal.getEDocPtrList(); // good until the list is loaded again
    for (std::uint32_t i = 0; i < documents->getSize(); ++i)
        show(*static_cast<a_e_rec*>((*documents)[i]));
    if (documents->getSize() > 0) {
        const auto* first = static_cast<a_e_rec*>((*documents)[0]);
        const page_dat* page = journal.getDocPage(TOPF_E, first->faxid, 1, zerdix::picture_page);
        if (page == nullptr || page->size == 0 || !write_picture(*page, argv[4]))
            return 3;
    }
    TELEBOOK books;
    PTRLIST* list = books.getTBooks();
    for (std::uint32_t i = 0; list != nullptr && i < list->getSize(); ++i)
        std::printf("phone book %s\n", static_cast<o_tebu*>((*list)[i])->tbookid.bytes);
    return session.logout() == 0 ? 0 : 4;
}
