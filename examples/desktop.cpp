// A desktop client: logs a user on, shows the incoming documents, writes the first page of the
// first one as a picture, and shows the phone books. Text is Windows-1252 throughout.
//
//     desktop SERVER USER PASSWORD PICTURE.pbm
#include <cstdio>
#include <string>

#include <zerdix/journal.h>
#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

// A page is stored as `compress` would: width and height, most significant byte first, then the
// rows from the top, a set bit black, the leftmost pixel in bit 0. PBM has it in bit 7.
static bool write_picture(const page_dat& page, const std::string& file) {
    std::FILE* expanded = popen(("uncompress -c > '" + file + ".raw'").c_str(), "w");
    if (expanded == nullptr)
        return false;
    std::fwrite(page.data, 1, page.size, expanded);
    std::FILE* raw = pclose(expanded) == 0 ? std::fopen((file + ".raw").c_str(), "rb") : nullptr;
    std::FILE* picture = std::fopen(file.c_str(), "wb");
    unsigned char head[8];
    if (raw == nullptr || picture == nullptr || std::fread(head, 1, 8, raw) != 8)
        return false;
    std::fprintf(picture, "P4\n%d %d\n", head[2] << 8 | head[3], head[6] << 8 | head[7]);
    for (int byte; (byte = std::fgetc(raw)) != EOF;) {
        int mirrored = 0;
        for (int bit = 0; bit < 8; ++bit)
            mirrored |= (byte >> bit & 1) << (7 - bit);
        std::fputc(mirrored, picture);
    }
    std::fclose(raw);
    std::remove((file + ".raw").c_str());
    return std::fclose(picture) == 0;
}

int main(int argc, char** argv) {
    ZERDIX session;
    if (argc != 5 || session.login(argv[2], argv[3], argv[1]) != 0)
        return 1; // 6: unknown user, 9: wrong password; the trace tells more
    JOURNAL journal;
    constexpr selectiontype all = 0;
    if (journal.loadDocPtrList(TOPF_E, all) != 0)
        return 2;
    PTRLIST* documents = journal.getEDocPtrList(); // good until the list is loaded again
    for (std::uint32_t i = 0; i < documents->getSize(); ++i)
        std::printf("document %d\n", static_cast<a_e_rec*>((*documents)[i])->faxid);
    if (documents->getSize() > 0) {
        const auto* first = static_cast<a_e_rec*>((*documents)[0]);
        const page_dat* page = journal.getDocPage(TOPF_E, first->faxid, 1, 0);
        if (page == nullptr || page->size == 0 || !write_picture(*page, argv[4]))
            return 3;
    }
    TELEBOOK books;
    PTRLIST* list = books.getTBooks();
    for (std::uint32_t i = 0; list != nullptr && i < list->getSize(); ++i)
        std::printf("phone book %s\n", static_cast<o_tebu*>((*list)[i])->tbookid.bytes);
    return session.logout() == 0 ? 0 : 4;
}
