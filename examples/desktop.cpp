// A desktop client: logs a user on, shows the incoming documents, writes the first page of the
// first one as a picture, and shows the phone books. Text is Windows-1252 throughout.
//
//     desktop SERVER USER PASSWORD PICTURE.pbm
#include <cstdio>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

#include <zerdix/journal.h>
#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

struct closing {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using open_file = std::unique_ptr<std::FILE, closing>;

// A page is stored as `compress` would. Null when it can't be expanded.
static open_file expand(const page_dat& page) {
    const open_file stored(std::tmpfile());
    open_file expanded(std::tmpfile());
    if (!stored || !expanded)
        return nullptr;
    if (std::fwrite(page.data, 1, page.size, stored.get()) != page.size)
        return nullptr;
    std::rewind(stored.get());
    const pid_t child = fork();
    if (child == 0) {
        dup2(fileno(stored.get()), STDIN_FILENO);
        dup2(fileno(expanded.get()), STDOUT_FILENO);
        execlp("uncompress", "uncompress", "-c", nullptr);
        _exit(127);
    }
    int status = -1;
    if (child < 0 || waitpid(child, &status, 0) != child || status != 0)
        return nullptr;
    std::rewind(expanded.get());
    return expanded;
}

// Width and height, most significant byte first, then the rows from the top, a set bit black, the
// leftmost pixel in bit 0. PBM has it in bit 7.
static bool write_picture(const page_dat& page, const char* name) {
    const open_file rows = expand(page);
    unsigned char head[8];
    if (!rows || std::fread(head, 1, 8, rows.get()) != 8)
        return false;
    open_file picture(std::fopen(name, "wb"));
    if (!picture)
        return false;
    std::fprintf(picture.get(), "P4\n%d %d\n", head[2] << 8 | head[3], head[6] << 8 | head[7]);
    for (int byte; (byte = std::fgetc(rows.get())) != EOF;) {
        int mirrored = 0;
        for (int bit = 0; bit < 8; ++bit)
            mirrored |= (byte >> bit & 1) << (7 - bit);
        std::fputc(mirrored, picture.get());
    }
    const bool whole = std::ferror(picture.get()) == 0;
    return std::fclose(picture.release()) == 0 && whole;
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
