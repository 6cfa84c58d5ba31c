// SPDX-License-Identifier: MIT
// Phone books to a text file and back.

#include <cstdio>
#include <fstream>

#include <zerdix/telebook.h>

#include "rpc/scripted_handle.h"
#include "support/session_test.h"
#include "telebook/phone_book_line.h"

namespace zerdix::testing {
namespace {

using ::testing::ElementsAre;
using std::string_literals::operator""s;
using id_list = std::vector<std::string>;

constexpr auto both = static_cast<nettypetype>(0);

o_tebul entry(std::string_view id) {
    o_tebul made{{"b"}, {}, {}, {}, {"1"}, {}, NETTYPE_FAX};
    made.teleid.assign_field(id);
    return made;
}

std::string content_of(const std::string& file) {
    std::ifstream bytes{file};
    return {std::istreambuf_iterator<char>(bytes), {}};
}

id_list ids_in(const std::string& file) {
    id_list ids;
    std::ifstream lines{file};
    for (std::string line; std::getline(lines, line);)
        ids.push_back(line.substr(0, line.find(';')));
    return ids;
}

class Transfer : public connected_test {
  protected:
    Transfer() : connected_test(false) {
        const o_tebu book{{"b"}, {}, {}, {}, {}, {}, {}, {}, {}, {}};
        EXPECT_EQ(books.putTBook(&book), 0);
        rpc::session().lTelebookBlockSize = 2;
    }

    void store(const id_list& ids) {
        for (const std::string& id : ids)
            ASSERT_TRUE(server.store().phone_books.put_entry(entry(id)));
        server.clear_calls();
    }

    std::int32_t export_to(const std::string& name) {
        return books.exportTBook("b", both, name.c_str());
    }

    std::int32_t import(const std::string& text) {
        std::ofstream{file} << text;
        return books.importTBook("b", file.c_str());
    }

    const std::string file = server.folder() / "book.csv";
    TELEBOOK books;
};

TEST_F(Transfer, ABookComesBackAsItWentOut) {
    EXPECT_EQ(export_to(file), 0);
    EXPECT_EQ(content_of(file), "") << "an empty book";
    const std::string lines = "0123456789;123456789012345678901234567890;TSI;I;T;"
                              "Wei\xdf, ganze drei\xdfig Zeichen ..;\n"
                              "9;1;;E;F;;\n";
    EXPECT_EQ(import(lines), 0);
    EXPECT_EQ(export_to(file), 0);
    EXPECT_EQ(content_of(file), lines);
    EXPECT_EQ(books.exportTBook("b", NETTYPE_FAX, file.c_str()), 0);
    EXPECT_EQ(content_of(file), "9;1;;E;F;;\n");
}

// No id is left out and none comes twice, wherever a block ends: behind an id of ten characters,
// in front of one that begins with it, behind one of high bytes.
TEST_F(Transfer, TheNextBlockBeginsBehindTheLastId) {
    const id_list ids{"a",          "a\x01", "abcdefghi", "abcdefghij",
                      "abcdefghik", "b",     "\xe4",      std::string(10, '\xff')};
    store(ids);
    for (const std::size_t size : {1, 2, 3, 8, 200}) {
        rpc::session().lTelebookBlockSize = static_cast<std::int32_t>(size);
        server.clear_calls();
        EXPECT_EQ(export_to(file), 0) << size;
        EXPECT_EQ(ids_in(file), ids) << size;
        EXPECT_EQ(server.calls(), std::vector<int>((ids.size() + size - 1) / size + 1, 83));
    }
}

TEST_F(Transfer, AnExportTellsWhyItEnds) {
    store({"a", "b", "c"});
    server.drop(83, 2);
    EXPECT_EQ(export_to(file), 4);
    EXPECT_THAT(ids_in(file), ElementsAre("a", "b"));
    EXPECT_EQ(export_to(file + "/none"), 6);
    EXPECT_EQ(export_to(server.folder()), 6);
    ASSERT_NE(connect(), nullptr);
    for (const std::int32_t size : {-1, -200}) {
        rpc::session().lTelebookBlockSize = size;
        EXPECT_EQ(export_to(file), 4) << size;
    }
    rpc::session().lTelebookBlockSize = 0;
    server.fail(74);
    EXPECT_EQ(export_to(file), 4) << "no block size to be had";
    session.CleanupHostConnection();
    EXPECT_EQ(export_to(file), 4);
    EXPECT_EQ(content_of(file), "") << "emptied before the server is asked";
}

TEST_F(Transfer, AFullDiskIsTold) {
    store({"a"});
    EXPECT_EQ(export_to("/dev/full"), 5) << "when the file is closed";
    for (int i = 0; i < 1000; ++i)
        store({std::to_string(i)});
    rpc::session().lTelebookBlockSize = 200;
    EXPECT_EQ(export_to("/dev/full"), 5);
    EXPECT_LT(server.calls().size(), 3u) << "before the book is through";
}

TEST_F(Transfer, AnImportStopsAtTheFirstRefusal) {
    std::string ten;
    for (char id = 'a'; id < 'k'; ++id)
        ten += id + ";1;;E;F;;\n"s;
    server.refuse(81, 4);
    EXPECT_EQ(import(ten), 4);
    server.fail(81, 2);
    EXPECT_EQ(import(ten), 8);
    EXPECT_EQ(import(""), 0);
    EXPECT_EQ(books.getTBookEntries("b", both, "", 100)->getSize(), 3u);
    EXPECT_EQ(books.importTBook("b", (file + "/none").c_str()), 6);
    EXPECT_EQ(books.importTBook("b", nullptr), 6);
    EXPECT_EQ(books.importTBook("b", server.folder().c_str()), 5) << "a folder can't be read";
    session.CleanupHostConnection();
    EXPECT_EQ(import(ten), 12);
}

// Servers of their own mind: the blocks that they answer with, whatever the key.
TEST(OddServers, NothingIsWrittenTwiceAndTheExportEnds) {
    const struct {
        const char* kind;
        std::int32_t blocksize;
        std::vector<id_list> blocks;
        std::int32_t result;
        id_list written;
    } servers[] = {
        {"reads keys as texts", 2, {{"a", "b"}, {"b", "c"}, {"c"}}, 0, {"a", "b", "c"}},
        {"no room behind the repeated entry", 1, {{"a"}, {"a"}}, 4, {"a"}},
        {"an id like a key",
         2,
         {{"0123456789\xff"}, {"0123456789\xff", "1"}, {}},
         0,
         {"0123456789\xff", "1"}},
        {"an order of its own",
         2,
         {{"\xe4", "B"}, {"a", "10"}, {"9"}, {}},
         0,
         {"\xe4", "B", "a", "10", "9"}},
        {"back and on", 2, {{"a", "b"}, {"a", "c"}}, 4, {"a", "b"}},
        {"back within a block", 2, {{"b", "a"}, {"a", "b"}}, 4, {"b", "a"}},
        {"always the first block", 2, {{"a", "b"}, {"a", "b"}}, 4, {"a", "b"}},
        {"a circle", 2, {{"a", "b"}, {"c", "d"}, {"a", "b"}}, 4, {"a", "b", "c", "d"}},
        {"a circle that hides", 2, {{"a", "b"}, {"c", "a"}}, 4, {"a", "b"}},
    };
    const test::scratch_folder folder;
    const std::string file = folder.path() / "book.csv";
    for (const auto& [kind, blocksize, blocks, result, written] : servers) {
        scripted_handle server;
        rpc::session().lTelebookBlockSize = blocksize;
        std::size_t turn = 0;
        server.on(rpc::proc::o_get_tbookl_1{}, [&, &answers = blocks](const auto&, auto& answer) {
            if (turn == answers.size())
                return;
            for (auto id = answers[turn].rbegin(); id != answers[turn].rend(); ++id)
                push_front(answer, entry(*id));
            ++turn;
        });
        EXPECT_EQ(TELEBOOK{}.exportTBook("b", NETTYPE_FAX, file.c_str()), result) << kind;
        EXPECT_EQ(ids_in(file), written) << kind;
        EXPECT_EQ(server.calls().size(), blocks.size()) << kind;
    }
}

// What an import makes of a file, as an export would write it.
TEST(TransferFile, LinesBecomeEntries) {
    const std::string x10(10, 'x'), x20(20, 'x'), x30(30, 'x');
    const std::string all_x = x10 + ";" + x30 + ";" + x20 + ";E;F;" + x30 + ";\n";
    const std::pair<std::string, id_list> cases[] = {
        {"a;1;2;i;t;c;\nb;1;2;E;F;d;", {"a;1;2;I;T;c;\n", "b;1;2;E;F;d;\n"}},
        {"a;1;2;innen;Fax;c;d;e;\n", {"a;1;2;I;F;c;\n"}},
        {"a;1;2;;x;c\n", {"a;1;2;E;F;c\n;\n"}},
        {"a;1;2;I;F;c;\r\nb;1;2;I;F;c\r\n", {"a;1;2;I;F;c;\n", "b;1;2;I;F;c\n;\n"}},
        {"a\rb;1;2;I;F;c;\r", {"a\rb;1;2;I;F;c;\n"}},
        {"a;1;\n", {"a;1;\n;E;F;\n;\n"}},
        {"a;1;", {"a;1;1;E;F;1;\n"}},
        {"text", {"text;text;text;E;T;text;\n"}},
        {"a\0b;1;2;I;F;c;\nb;1;2;I;F;c;\n"s, {"a;a;a;E;F;a;\n", "b;1;2;I;F;c;\n"}},
        {x20 + ";" + x30 + x30 + ";" + x30 + ";e;f;" + x30 + x30 + ";\n", {all_x}},
        {std::string(510, 'x') + "\r\n;;;I;F;;\n", {all_x, ";;;I;F;;\n"}},
        {std::string(600, 'x') + "\n", {all_x, all_x}},
    };
    for (const auto& [text, expected] : cases) {
        const telebook::text_file file{std::tmpfile()};
        std::fwrite(text.data(), 1, text.size(), file.get());
        std::rewind(file.get());
        id_list entries;
        for (telebook::line_buffer line; telebook::read_line(file.get(), line) > 0;)
            telebook::append_line(entries.emplace_back(), telebook::parse_line(line.data(), "b"));
        EXPECT_EQ(entries, expected) << text;
    }
    EXPECT_EQ(telebook::parse_line("a;", "twelve bytes").tbookid, "twelve byte");
}

} // namespace
} // namespace zerdix::testing
