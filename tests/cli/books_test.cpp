// SPDX-License-Identifier: MIT
// Phone books and groups from the command line.

#include <pty.h>
#include <set>
#include <unistd.h>

#include "cli/desk_test.h"
#include "output/failure.h"

namespace zerdix::test {
namespace {

using namespace app;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr int put_entry = 81;
constexpr int get_entries = 83;

class Books : public desk_test {
  protected:
    // The entries of a book as "entry=number".
    static std::vector<std::string> entries(const std::string& book) {
        std::vector<std::string> all;
        for (const auto& entry : answer("book show " + book))
            all.push_back(entry["entry"].get<std::string>() + '=' +
                          entry["phone"].get<std::string>());
        return all;
    }

    std::string ten_lines() const {
        std::string lines;
        for (char id = 'a'; id <= 'j'; ++id)
            lines += std::string(1, id) + ";1;;E;F;x;\n";
        return write("ten.csv", lines);
    }
};

TEST_F(Books, AreCreatedChangedAndDeleted) {
    done("book create neu");
    fails("book create neu", exit_refused, "there is a phone book neu already");
    fails("book create neu:1", exit_usage, "can't hold a colon");
    fails("book change neu", exit_usage, "nothing is to be changed");
    done("book change neu --comment", {"Grün"});
    done("book rights neu acdurp ru-- none");
    shows("book info neu", {{"comment", "Grün"},
                            {"owner", "zerdix"},
                            {"rights", "ruacdp ru---- ------"},
                            {"your_rights", "ruacdp"}});
    done("book change neu --comment", {""});
    EXPECT_EQ(answer("book info neu")["comment"], "");
    fails("book rights neu r x r", exit_usage, "\"x\" aren't rights");
    EXPECT_THAT(zerdix("book create weg --owner meier").errors, HasSubstr("rights on"));

    const auto gone =
        fails("book delete nix neu elevenchars", exit_no_receiver, "there is no phone book nix");
    EXPECT_EQ(gone.output, "phone book neu deleted\n");
    EXPECT_THAT(gone.errors, HasSubstr("2 of 3 weren't done"));
    fails("book show neu", exit_no_receiver, "there is no phone book neu");
}

TEST_F(Books, ComeWholeWhateverTheBlockSize) {
    server_.fill_book("common", 61);
    for (const char* size : {"30", "1", "62"}) {
        server_.set_config("PHONEBOOKB", size);
        const auto all = entries("common");
        EXPECT_EQ(all.size(), 69U) << size;
        EXPECT_EQ(std::set(all.begin(), all.end()).size(), all.size()) << size;
    }
    EXPECT_EQ(answer("book show common --from e000059").front()["entry"], "e000059");
    EXPECT_EQ(answer("book show common --type telex").size(), 1U);
    EXPECT_EQ(answer("book show common --match MÜHLEN").size(), 1U);
    EXPECT_EQ(answer("book show common --match 0302312500 --most 3").size(), 3U);
    server_.drop(get_entries, 2);
    fails("book show common", exit_unavailable, "reading the phone book common failed");
}

TEST_F(Books, HoldEntries) {
    const auto added = zerdix("entry add private:neu_and_too_long --phone 1 --telex --comment",
                              {std::string(31, 'x')});
    EXPECT_EQ(added.status, 0);
    EXPECT_THAT(added.errors, HasSubstr("the entry's id is cut to 10 characters"));
    EXPECT_THAT(added.errors, HasSubstr("the comment is cut to 30 characters"));
    fails("entry add private:neu_and_to --phone 2", exit_refused, "is there already");
    fails("entry change private:neu_and_to --phone", exit_usage, "at most 30",
          {std::string(31, '1')});
    done("entry change private:neu_and_to --in-house --comment", {""});
    shows("entry show private:neu_and_to",
          {{"phone", "1"}, {"type", "telex"}, {"in_house", true}, {"comment", ""}});
    fails("entry show private:nix", exit_no_receiver, "has no entry nix");
    fails("entry show nix:nix", exit_no_receiver, "there is no phone book nix");
    fails("entry show private", exit_usage, "BOOK:ENTRY is expected");
    done("entry remove common:lager common:empfang");
    EXPECT_EQ(entries("common").size(), 6U);
}

TEST_F(Books, SayWhichRightIsMissing) {
    done("book create meins");
    EXPECT_EQ(zerdix("book rights meins ruacdp none r").errors, "");
    const std::string rights = "(your rights on the phone book meins: r-----)";
    for (const auto& [command, what] :
         {std::pair{"entry add meins:x --phone 1", "you may not add entries "},
          {"book change meins --comment x", "you may not change it "},
          {"book rights meins r r r", "you may not change its rights "},
          {"book delete meins", "you may not delete it "}})
        fails(command + as_meier(), exit_refused, what + rights);
}

TEST_F(Books, RefuseBadFilesBeforeAnythingIsStored) {
    done("book create neu");
    const std::string good = "a;1;;E;F;x;\n";
    for (const auto& [content, code, message] :
         {std::tuple{good + "b;2;;E;F\n", exit_bad_data, "bad.csv:2: 5 fields, 6 are expected"},
          {good + "b;2;;E;F;x;y;\n", exit_bad_data, "bad.csv:2: 7 fields"},
          {"\n" + good + ";2;;E;F;x;\n", exit_bad_data, "bad.csv:3: the entry has no id"},
          {good + "b;2;;E;F;\x1b[2J;\n", exit_bad_data, "bad.csv:2: a control character"},
          {"\xff\xfe" + good, exit_bad_data, "is in UTF-16"}}) {
        fails("book import neu", code, message, {write("bad.csv", content)});
    }
    for (const char* bytes : {"\xfc", "\xed\xa0\x80", "\xe0\x80\x80"})
        fails("book import neu --encoding utf-8", exit_bad_data, "bad.csv:2: the line isn't",
              {write("bad.csv", good + bytes + ";2;;E;F;x;\n")});
    fails("book import neu /", exit_no_input, "is a folder");
    fails("book import nix", exit_no_receiver, "no phone book nix", {ten_lines()});
    EXPECT_THAT(entries("neu"), ElementsAre());

    EXPECT_THAT(fails("book import -k neu", exit_bad_data, "bad.csv:2: 1 field,",
                      {write("bad.csv", good + "b\nc;3;;E;F;x;")})
                    .output,
                HasSubstr("neu: 2 entries stored"));
    EXPECT_THAT(entries("neu"), ElementsAre("a=1", "c=3"));
}

// A terminal whose other end has gone gives what was typed, then an error.
TEST_F(Books, TakeNoErrorForTheEndOfALine) {
    done("book create neu");
    int other_end = -1, terminal = -1;
    ASSERT_EQ(openpty(&terminal, &other_end, nullptr, nullptr, nullptr), 0);
    const std::string cut = "a;1;;E;F;x;\nb;23;;E;F;Half a comm";
    ASSERT_EQ(::write(other_end, cut.data(), cut.size()), static_cast<ssize_t>(cut.size()));
    close(other_end);
    fails("book import -k neu -", exit_no_input, "standard input can't be read: Input/output error",
          {}, {.input = terminal});
    close(terminal);
    fails("book import -k neu /proc/self/mem", exit_no_input,
          "/proc/self/mem can't be read: Input");
    EXPECT_THAT(entries("neu"), ElementsAre());
}

TEST_F(Books, MendWhatIsClearInAFile) {
    done("book create neu");
    const auto result = zerdix(
        "book import neu", {write("mixed.csv", "a;1;;i;t;M\xc3\xbcller;\r\n\r\nb;2;;E;X;\n"
                                               "elevenchars;3;;E;F;\xe2\x98\x83;\na;4;;I;F;neu")});
    EXPECT_EQ(result.status, 0);
    for (const char* part :
         {"is in UTF-8", "mixed.csv:3: the last field isn't closed",
          "mixed.csv:3: \"X\" is neither fax nor telex", "mixed.csv:4: the id is cut to 10",
          "mixed.csv:4: characters that", "mixed.csv:5: the entry a stands in line 1 as well"})
        EXPECT_THAT(result.errors, HasSubstr(part));
    EXPECT_THAT(entries("neu"), ElementsAre("a=4", "b=2", "elevenchar=3"));
}

TEST_F(Books, TellWhatWasStoredWhenALineIsRefused) {
    done("book create neu");
    const std::string ten = ten_lines();
    // The fourth line is refused with its batch and once more by itself.
    const auto refuse_fourth = [this] {
        server_.refuse(put_entry, 4);
        server_.refuse(put_entry, 8);
    };
    refuse_fourth();
    const auto stopped =
        fails("book import neu", exit_refused, "ten.csv:4: the entry d wasn't stored", {ten});
    EXPECT_THAT(stopped.errors, HasSubstr("3 entries are stored, 7 aren't, from line 4 on"));
    EXPECT_EQ(entries("neu").size(), 3U);

    // It stands in the book already, as it stands in the file.
    done("entry add neu:d --phone 1 --comment x");
    refuse_fourth();
    EXPECT_THAT(fails("book import neu --keep-going", exit_refused,
                      "ten.csv:4: the entry d wasn't stored", {ten})
                    .output,
                HasSubstr("neu: 9 entries stored"));

    server_.drop(put_entry, 3);
    fails("book import neu", exit_unavailable, "of the lines 1 to 10 some may be", {ten});
}

TEST_F(Books, GoToAFileAndBack) {
    server_.fill_book("common", 70);
    EXPECT_THAT(zerdix("book export common", {path("out.csv")}).output,
                HasSubstr("common: 78 entries written"));
    EXPECT_THAT(read("out.csv"), testing::StartsWith("baecker;03023125101;+49 30 23125 101;E;F;"
                                                     "B\344ckerei M\374hlenhof;\n"));
    EXPECT_EQ(answer("book export common --encoding utf-8", {path("utf8.csv")})["entries"], 78);
    EXPECT_THAT(read("utf8.csv"), HasSubstr("Mühlenhof;\n"));
    done("book create neu");
    EXPECT_EQ(answer("book import neu", {path("utf8.csv")})["stored"], 78);
    EXPECT_EQ(zerdix("book export neu -").output, read("out.csv"));
    EXPECT_EQ(entries("neu"), entries("common"));
    for (const char* encoding : {"utf-8", "windows-1252"})
        fails("book export common /dev/full --encoding", exit_no_output,
              "/dev/full can't be written: No space left", {encoding});
    fails("book export nix", exit_no_receiver, "no phone book nix", {path("nix.csv")});
    EXPECT_FALSE(std::filesystem::exists(path("nix.csv")));
}

TEST_F(Books, AskAnExternalDirectory) {
    const auto found = answer("book external extern druckhaus");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0]["place"], "München");
    fails("book external common x", exit_usage, "isn't an external one");
    server_.refuse(90);
    fails("book external extern x", exit_refused, "the server refused");
}

TEST_F(Books, MakeGroups) {
    done("group create nord");
    fails("group add nord common:kanzlei common:nix", exit_no_receiver,
          "the phone book common has no entry nix");
    done("group add nord private:kunde1");
    done("entry remove common:kanzlei");
    const auto members = answer("group show nord");
    ASSERT_EQ(members.size(), 2U);
    EXPECT_EQ(members[0]["known"], false) << "the entry is gone, the reference stays";
    EXPECT_EQ(members[1]["phone"], "03023125208");
    fails("group remove nord common:lager", exit_refused, "it isn't a member");
    done("group remove nord private:kunde1");
    EXPECT_EQ(answer("group info nord")["members"], 1);
    done("group delete nord");
    fails("group show nord", exit_no_receiver, "there is no group nord");
}

} // namespace
} // namespace zerdix::test
