// Phone books to a text file and back.

#include <cstdio>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "rpc/scripted_handle.h"
#include "support/test_server.h"
#include "telebook/transfer_file.h"

namespace zerdix::testing {
namespace {

using ::testing::ElementsAre;
using calls = std::vector<int>;
using std::string_literals::operator""s;

o_tebul entry(std::string_view id, std::string_view phone = "1") {
    o_tebul made{};
    made.tbookid.assign("b");
    made.teleid.assign_field(id);
    made.phone.assign(phone);
    made.nettype = NETTYPE_FAX;
    return made;
}

std::string content_of(const std::string& file) {
    std::stringstream text;
    text << std::ifstream{file}.rdbuf();
    return text.str();
}

// The ids of a file, in its order.
std::vector<std::string> ids_in(const std::string& file) {
    std::vector<std::string> ids;
    std::istringstream lines(content_of(file));
    for (std::string line; std::getline(lines, line);)
        ids.push_back(line.substr(0, line.find(';')));
    return ids;
}

class Transfer : public ::testing::Test {
  protected:
    Transfer() {
        session.setUserId("zerdix");
        session.setAlphaserver("127.0.0.1");
        EXPECT_NE(session.GetClientAddr("127.0.0.1"), nullptr);
        o_tebu book{};
        book.tbookid.assign("b");
        EXPECT_EQ(books.putTBook(&book), 0);
        set_block_size("2");
    }
    ~Transfer() override { session.CleanupHostConnection(); }

    void set_block_size(const char* size) {
        rpc::session().lTelebookBlockSize = 0;
        server.store().directory.set_config("PHONEBOOKB", size);
        ZERDIX::clsGetTelebookBlockSize();
        server.clear_calls();
    }

    void store(const std::vector<o_tebul>& entries) {
        for (const o_tebul& each : entries)
            ASSERT_TRUE(server.store().phone_books.put_entry(each));
    }

    std::int32_t export_all() {
        return books.exportTBook("b", static_cast<nettypetype>(0), file.c_str());
    }

    std::int32_t import(const std::string& text) {
        std::ofstream{file} << text;
        return books.importTBook("b", file.c_str());
    }

    std::string written() const { return content_of(file); }
    std::vector<std::string> written_ids() const { return ids_in(file); }

    std::vector<std::string> stored_ids() {
        std::vector<std::string> ids;
        PTRLIST* list = books.getTBookEntries("b", static_cast<nettypetype>(0), "", 100);
        for (std::uint32_t i = 0; i < list->getSize(); ++i)
            ids.emplace_back(static_cast<o_tebul*>((*list)[i])->teleid.view());
        return ids;
    }

    test::test_server server{false};
    const std::string file = server.folder() / "book.csv";
    ZERDIX session;
    TELEBOOK books;
};

TEST_F(Transfer, EveryFieldHasItsPlaceInTheFile) {
    o_tebul full = entry("0123456789", "123456789012345678901234567890");
    full.tsi.assign("TSI");
    full.comment.assign("B\xe4rs drei\xdfig Zeichen lang ....");
    full.intern = true;
    full.nettype = NETTYPE_TELEX;
    store({entry("0"), full});
    EXPECT_EQ(export_all(), 0);
    const std::string all = "0;1;;E;F;;\n"
                            "0123456789;123456789012345678901234567890;TSI;I;T;"
                            "B\xe4rs drei\xdfig Zeichen lang ....;\n";
    EXPECT_EQ(written(), all);
    EXPECT_EQ(books.exportTBook("b", NETTYPE_TELEX, file.c_str()), 0);
    EXPECT_EQ(written_ids(), std::vector{"0123456789"s});

    ASSERT_TRUE(server.store().phone_books.remove_entry({"b"}, full.teleid));
    EXPECT_EQ(import(all), 0);
    const auto back = server.store().phone_books.entry({"b"}, full.teleid);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->phone, full.phone);
    EXPECT_EQ(back->comment, full.comment);
    EXPECT_TRUE(back->intern);
    EXPECT_EQ(back->nettype, NETTYPE_TELEX);
}

// No id is left out and none comes twice, wherever a block ends: behind an id of ten characters,
// in front of one that begins with it, behind one of high bytes.
TEST_F(Transfer, TheNextBlockBeginsBehindTheLastId) {
    const std::vector<std::string> ids{"a",          "a\x01", "abcdefghi", "abcdefghij",
                                       "abcdefghik", "b",     "\xe4",      std::string(10, '\xff')};
    for (const std::string& id : ids)
        store({entry(id)});
    for (const std::size_t size : {1, 2, 3, 8, 200}) {
        set_block_size(std::to_string(size).c_str());
        EXPECT_EQ(export_all(), 0) << size;
        EXPECT_EQ(written_ids(), ids) << size;
        EXPECT_EQ(server.calls(), calls((ids.size() + size - 1) / size + 1, 83)) << size;
    }
}

TEST_F(Transfer, AnExportTellsWhyItEnds) {
    EXPECT_EQ(export_all(), 0);
    EXPECT_EQ(written(), "") << "an empty book";
    store({entry("a"), entry("b"), entry("c")});
    server.fail(83);
    EXPECT_EQ(export_all(), 4);
    server.drop(83, 2);
    EXPECT_EQ(export_all(), 4);
    EXPECT_THAT(written_ids(), ElementsAre("a", "b"));
    EXPECT_EQ(books.exportTBook("b", NETTYPE_FAX, (file + "/none").c_str()), 6);
    EXPECT_EQ(books.exportTBook("b", NETTYPE_FAX, server.folder().c_str()), 6);
    session.CleanupHostConnection();
    EXPECT_EQ(export_all(), 4) << "without a client handle";
}

TEST_F(Transfer, AFullDiskIsTold) {
    store({entry("a")});
    EXPECT_EQ(books.exportTBook("b", NETTYPE_FAX, "/dev/full"), 5) << "when the file is closed";
    for (int i = 0; i < 1000; ++i)
        store({entry(std::to_string(i))});
    set_block_size("200");
    EXPECT_EQ(books.exportTBook("b", NETTYPE_FAX, "/dev/full"), 5);
    EXPECT_LT(server.calls().size(), 3u) << "before the book is through";
}

TEST_F(Transfer, ABlockSizeThatIsNoneEndsAnExport) {
    store({entry("a"), entry("b"), entry("c")});
    for (const char* size : {"-1", "-200", "-2147483648"}) {
        set_block_size(size);
        EXPECT_EQ(export_all(), 4) << size;
    }
    rpc::session().lTelebookBlockSize = 0;
    server.fail(74);
    EXPECT_EQ(export_all(), 4);
    set_block_size("0");
    EXPECT_EQ(export_all(), 0) << "the server has none: 30";
    EXPECT_THAT(written_ids(), ElementsAre("a", "b", "c"));
}

TEST_F(Transfer, AnImportStopsAtTheFirstRefusal) {
    std::string ten;
    for (char id = 'a'; id < 'k'; ++id)
        ten += id + ";1;;E;F;;\n"s;
    server.refuse(81, 4);
    EXPECT_EQ(import(ten), 4);
    EXPECT_THAT(stored_ids(), ElementsAre("a", "b", "c"));
    server.fail(81, 2);
    EXPECT_EQ(import(ten), 8);
    EXPECT_EQ(import(""), 0);
    EXPECT_EQ(stored_ids().size(), 3u);
    EXPECT_EQ(books.importTBook("b", (file + "/none").c_str()), 6);
    EXPECT_EQ(books.importTBook("b", nullptr), 6);
    EXPECT_EQ(books.importTBook("b", server.folder().c_str()), 5) << "a folder can't be read";
    session.CleanupHostConnection();
    EXPECT_EQ(import(ten), 12);
}

using id_list = std::vector<std::string>;

// A server of its own mind: which ids a block has that is to begin at a key.
struct odd_server {
    const char* kind;
    std::int32_t blocksize;
    std::function<id_list(const str10& start)> block;
    std::int32_t result;
    id_list written;
};

TEST(OddServers, NothingIsWrittenTwiceAndTheExportEnds) {
    const id_list book{"a", "b", "c", "d", "e"};
    const auto as_text = [&](std::size_t most) {
        return [&book, most](const str10& start) {
            id_list block;
            for (const std::string& id : book)
                if (id >= std::string{start.bytes} && block.size() < most)
                    block.push_back(id);
            return block;
        };
    };
    const std::string brim = "abcdefghij\xff";
    const odd_server servers[] = {
        {"reads keys as texts", 2, as_text(2), 0, book},
        {"reads keys as texts, more than asked for", 2, as_text(4), 0, book},
        {"no room behind the repeated entry", 1, as_text(1), 4, {"a"}},
        {"ids as keys",
         2,
         [&](const str10& start) {
             return start.bytes[0] == 'a' ? id_list{brim} : id_list{"a", brim};
         },
         0,
         {"a", brim}},
        {"always the first block",
         2,
         [](const str10&) {
             return id_list{"a", "b"};
         },
         4,
         {"a", "b"}},
        {"a circle",
         2,
         [](const str10& start) {
             return start.bytes[0] == 'b' ? id_list{"c", "d"} : id_list{"a", "b"};
         },
         4,
         {"a", "b", "c", "d"}},
        {"a circle that hides",
         2,
         [](const str10& start) {
             return start.bytes[0] == 'b' ? id_list{"c", "a"} : id_list{"a", "b"};
         },
         4,
         {"a", "b"}},
    };
    const test::temporary_folder folder;
    const std::string file = folder.path() / "book.csv";
    for (const odd_server& each : servers) {
        SCOPED_TRACE(each.kind);
        scripted_handle server;
        rpc::session().lTelebookBlockSize = each.blocksize;
        server.on(rpc::proc::o_get_tbookl_1{}, [&](const auto& request, auto& answer) {
            const id_list ids = each.block(request.start);
            for (auto id = ids.rbegin(); id != ids.rend(); ++id)
                push_front(answer, entry(*id));
        });
        EXPECT_EQ(TELEBOOK{}.exportTBook("b", NETTYPE_FAX, file.c_str()), each.result);
        EXPECT_EQ(ids_in(file), each.written);
    }
}

struct line_case {
    std::string text;
    std::vector<std::string> entries; // as lines of an export
};

// What an import makes of a file, shown as an export would write it.
TEST(TransferFile, LinesBecomeEntries) {
    const std::string long_text(600, 'x');
    const line_case cases[] = {
        {"a;1;2;I;F;c;\nb;1;2;E;T;d;", {"a;1;2;I;F;c;\n", "b;1;2;E;T;d;\n"}},
        {"a;1;2;i;t;c;\n", {"a;1;2;I;T;c;\n"}},
        {"a;1;2;innen;Fax;c;\n", {"a;1;2;I;F;c;\n"}},
        {"a;1;2;;;c;\n", {"a;1;2;E;F;c;\n"}},
        {"a;1;2;x;x;c;d;e;\n", {"a;1;2;E;F;c;\n"}},
        {"a;1;2;I;F;c\n", {"a;1;2;I;F;c\n;\n"}},
        {"a;1;2;I;F;c;\r\nb;1;2;I;F;c\r\n", {"a;1;2;I;F;c;\n", "b;1;2;I;F;c\n;\n"}},
        {"a\rb;1;2;I;F;c;\r", {"a\rb;1;2;I;F;c;\n"}},
        {"a;1;\n", {"a;1;\n;E;F;\n;\n"}},
        {"a;1;", {"a;1;1;E;F;1;\n"}},
        {"text", {"text;text;text;E;T;text;\n"}},
        {"\n", {"\n;\n;\n;E;F;\n;\n"}},
        {"abcdefghijklmn;" + long_text.substr(0, 40) + ";" + long_text.substr(0, 30) + ";I;F;" +
             long_text.substr(0, 50) + ";\n",
         {"abcdefghij;" + long_text.substr(0, 30) + ";" + long_text.substr(0, 20) + ";I;F;" +
          long_text.substr(0, 30) + ";\n"}},
        {"a\0b;1;2;I;F;c;\nb;1;2;I;F;c;\n"s, {"a;a;a;E;F;a;\n", "b;1;2;I;F;c;\n"}},
        {";;;;;" + long_text,
         {";;;E;F;" + long_text.substr(0, 30) + ";\n",
          long_text.substr(0, 10) + ";" + long_text.substr(0, 30) + ";" + long_text.substr(0, 20) +
              ";E;F;" + long_text.substr(0, 30) + ";\n"}},
        {long_text.substr(0, 510) + "\r\n;;;I;F;;\n",
         {long_text.substr(0, 10) + ";" + long_text.substr(0, 30) + ";" + long_text.substr(0, 20) +
              ";E;F;" + long_text.substr(0, 30) + ";\n",
          ";;;I;F;;\n"}},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(text);
        const telebook::text_file file{std::tmpfile()};
        std::fwrite(text.data(), 1, text.size(), file.get());
        std::rewind(file.get());
        std::vector<std::string> entries;
        for (telebook::line_buffer line; telebook::read_line(file.get(), line) > 0;)
            telebook::append_line(entries.emplace_back(), telebook::parse_line(line.data(), "b"));
        EXPECT_EQ(entries, expected);
    }
}

} // namespace
} // namespace zerdix::testing
