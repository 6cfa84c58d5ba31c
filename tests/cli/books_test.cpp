// SPDX-License-Identifier: MIT
// Phone books and groups from the command line.

#include <set>

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

    static void create(const std::string& book) {
        EXPECT_EQ(zerdix("book create " + book).status, 0);
    }

    std::string ten_lines() const {
        std::string lines;
        for (char id = 'a'; id <= 'j'; ++id)
            lines += std::string(1, id) + ";1;;E;F;x;\n";
        return write("ten.csv", lines);
    }

    std::string as_meier() const {
        return " -U meier --password-file " + write("meier", "meier\n");
    }
};

TEST_F(Books, AreCreatedChangedAndDeleted) {
    create("neu");
    expect_failure("book create neu", exit_refused, "there is a phone book neu already");
    expect_failure("book create neu:1", exit_usage, "can't hold a colon");
    expect_failure("book change neu", exit_usage, "nothing is to be changed");
    EXPECT_EQ(zerdix("book change neu --comment", {"Gr\xc3\xbcn"}).status, 0);
    EXPECT_EQ(zerdix("book rights neu acdurp ru-- none").status, 0);
    const auto info = answer("book info neu");
    EXPECT_EQ(info["comment"], "Gr\xc3\xbcn");
    EXPECT_EQ(info["owner"], "zerdix");
    EXPECT_EQ(info["rights"], "ruacdp ru---- ------");
    EXPECT_EQ(info["your_rights"], "ruacdp");
    EXPECT_EQ(zerdix("book change neu --comment", {""}).status, 0);
    EXPECT_EQ(answer("book info neu")["comment"], "");
    expect_failure("book rights neu r x r", exit_usage, "\"x\" aren't rights");
    EXPECT_THAT(zerdix("book create weg --owner meier").errors, HasSubstr("rights on"));

    const outcome gone = zerdix("book delete nix neu elevenchars");
    EXPECT_EQ(gone.status, exit_no_receiver);
    EXPECT_EQ(gone.output, "phone book neu deleted\n");
    EXPECT_THAT(gone.errors, HasSubstr("there is no phone book nix"));
    EXPECT_THAT(gone.errors, HasSubstr("2 of 3 weren't done"));
    expect_failure("book show neu", exit_no_receiver, "there is no phone book neu");
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
    EXPECT_EQ(answer("book show common --match M\xc3\x9cHLEN").size(), 1U);
    EXPECT_EQ(answer("book show common --match 0302312500 --most 3").size(), 3U);
    server_.drop(get_entries, 2);
    expect_failure("book show common", exit_unavailable, "reading the phone book common failed");
}

TEST_F(Books, HoldEntries) {
    const outcome added = zerdix("entry add private:neu_and_too_long --phone 1 --telex --comment",
                                 {std::string(31, 'x')});
    EXPECT_EQ(added.status, 0);
    EXPECT_THAT(added.errors, HasSubstr("the entry's id is cut to 10 characters"));
    EXPECT_THAT(added.errors, HasSubstr("the comment is cut to 30 characters"));
    expect_failure("entry add private:neu_and_to --phone 2", exit_refused, "is there already");
    expect_failure("entry change private:neu_and_to --phone", exit_usage, "at most 30",
                   {std::string(31, '1')});
    EXPECT_EQ(zerdix("entry change private:neu_and_to --in-house --comment", {""}).status, 0);
    const auto entry = answer("entry show private:neu_and_to");
    EXPECT_EQ(entry["phone"], "1");
    EXPECT_EQ(entry["type"], "telex");
    EXPECT_EQ(entry["in_house"], true);
    EXPECT_EQ(entry["comment"], "");
    expect_failure("entry show private:nix", exit_no_receiver, "has no entry nix");
    expect_failure("entry show nix:nix", exit_no_receiver, "there is no phone book nix");
    expect_failure("entry show private", exit_usage, "BOOK:ENTRY is expected");
    EXPECT_EQ(zerdix("entry remove common:lager common:empfang").status, 0);
    EXPECT_EQ(entries("common").size(), 6U);
}

TEST_F(Books, SayWhichRightIsMissing) {
    create("meins");
    EXPECT_EQ(zerdix("book rights meins ruacdp none r").errors, "");
    const std::string rights = "(your rights on the phone book meins: r-----)";
    for (const auto& [command, what] :
         {std::pair{"entry add meins:x --phone 1", "you may not add entries "},
          {"book change meins --comment x", "you may not change it "},
          {"book rights meins r r r", "you may not change its rights "},
          {"book delete meins", "you may not delete it "}})
        expect_failure(command + as_meier(), exit_refused, what + rights);
}

TEST_F(Books, RefuseBadFilesBeforeAnythingIsStored) {
    create("neu");
    const std::string good = "a;1;;E;F;x;\n";
    for (const auto& [content, code, message] :
         {std::tuple{good + "b;2;;E;F\n", exit_bad_data, "bad.csv:2: 5 fields, 6 are expected"},
          {good + "b;2;;E;F;x;y;\n", exit_bad_data, "bad.csv:2: 7 fields"},
          {"\n" + good + ";2;;E;F;x;\n", exit_bad_data, "bad.csv:3: the entry has no id"},
          {good + "b;2;;E;F;\x1b[2J;\n", exit_bad_data, "bad.csv:2: a control character"},
          {"\xff\xfe" + good, exit_bad_data, "is in UTF-16"}}) {
        expect_failure("book import neu", code, message, {write("bad.csv", content)});
    }
    expect_failure("book import neu --encoding utf-8", exit_bad_data, "bad.csv:2: the line isn't",
                   {write("bad.csv", good + "\xfc;2;;E;F;x;\n")});
    expect_failure("book import neu /", exit_no_input, "is a folder");
    expect_failure("book import nix", exit_no_receiver, "no phone book nix", {ten_lines()});
    EXPECT_THAT(entries("neu"), ElementsAre());

    const outcome rest = zerdix("book import -k neu", {write("bad.csv", good + "b\nc;3;;E;F;x;")});
    EXPECT_EQ(rest.status, exit_bad_data);
    EXPECT_THAT(rest.output, HasSubstr("neu: 2 entries stored"));
    EXPECT_THAT(entries("neu"), ElementsAre("a=1", "c=3"));
}

TEST_F(Books, MendWhatIsClearInAFile) {
    create("neu");
    const outcome result = zerdix(
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
    create("neu");
    // The fourth line is refused with its batch and once more by itself.
    const auto refuse_fourth = [this] {
        server_.refuse(put_entry, 4);
        server_.refuse(put_entry, 8);
    };
    refuse_fourth();
    const outcome stopped = zerdix("book import neu", {ten_lines()});
    EXPECT_EQ(stopped.status, exit_refused);
    EXPECT_THAT(stopped.errors, HasSubstr("ten.csv:4: the entry d wasn't stored"));
    EXPECT_THAT(stopped.errors, HasSubstr("3 entries are stored, 7 aren't, from line 4 on"));
    EXPECT_EQ(entries("neu").size(), 3U);

    // It stands in the book already, as it stands in the file.
    EXPECT_EQ(zerdix("entry add neu:d --phone 1 --comment x").status, 0);
    refuse_fourth();
    const outcome gone_on = zerdix("book import neu --keep-going", {ten_lines()});
    EXPECT_EQ(gone_on.status, exit_refused);
    EXPECT_THAT(gone_on.output, HasSubstr("neu: 9 entries stored"));
    EXPECT_THAT(gone_on.errors, HasSubstr("ten.csv:4: the entry d wasn't stored"));

    server_.drop(put_entry, 3);
    expect_failure("book import neu", exit_unavailable, "of the lines 1 to 10 some may be",
                   {ten_lines()});
}

TEST_F(Books, GoToAFileAndBack) {
    server_.fill_book("common", 70);
    EXPECT_THAT(zerdix("book export common", {path("out.csv")}).output,
                HasSubstr("common: 78 entries written"));
    EXPECT_THAT(read("out.csv"), testing::StartsWith("baecker;03023125101;+49 30 23125 101;E;F;"
                                                     "B\xe4"
                                                     "ckerei M\xfchlenhof;\n"));
    EXPECT_EQ(answer("book export common --encoding utf-8", {path("utf8.csv")})["entries"], 78);
    EXPECT_THAT(read("utf8.csv"), HasSubstr("M\xc3\xbchlenhof;\n"));
    create("neu");
    EXPECT_EQ(answer("book import neu", {path("utf8.csv")})["stored"], 78);
    EXPECT_EQ(zerdix("book export neu -").output, read("out.csv"));
    EXPECT_EQ(entries("neu"), entries("common"));
    for (const char* encoding : {"utf-8", "windows-1252"})
        expect_failure("book export common /dev/full --encoding", exit_no_output,
                       "/dev/full can't be written: No space left", {encoding});
    expect_failure("book export nix", exit_no_receiver, "no phone book nix", {path("nix.csv")});
    EXPECT_FALSE(std::filesystem::exists(path("nix.csv")));
}

TEST_F(Books, AskAnExternalDirectory) {
    const auto found = answer("book external extern druckhaus");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0]["place"], "M\xc3\xbcnchen");
    expect_failure("book external common x", exit_usage, "isn't an external one");
    server_.refuse(90);
    expect_failure("book external extern x", exit_refused, "the server refused");
}

TEST_F(Books, MakeGroups) {
    EXPECT_EQ(zerdix("group create nord").status, 0);
    expect_failure("group add nord common:kanzlei common:nix", exit_no_receiver,
                   "the phone book common has no entry nix");
    EXPECT_EQ(zerdix("group add nord private:kunde1").status, 0);
    EXPECT_EQ(zerdix("entry remove common:kanzlei").status, 0);
    const auto members = answer("group show nord");
    ASSERT_EQ(members.size(), 2U);
    EXPECT_EQ(members[0]["known"], false) << "the entry is gone, the reference stays";
    EXPECT_EQ(members[1]["phone"], "03023125208");
    expect_failure("group remove nord common:lager", exit_refused, "it isn't a member");
    EXPECT_EQ(zerdix("group remove nord private:kunde1").status, 0);
    EXPECT_EQ(answer("group info nord")["members"], 1);
    EXPECT_EQ(zerdix("group delete nord").status, 0);
    expect_failure("group show nord", exit_no_receiver, "there is no group nord");
}

} // namespace
} // namespace zerdix::test
