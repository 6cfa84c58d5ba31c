// SPDX-License-Identifier: MIT
// zerdix book export: the entries of a phone book as a text file.

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>

#include "arguments/commands.h"
#include "books/file_growth.h"
#include "books/kinds.h"
#include "books/known_entry.h"
#include "books/scratch_file.h"
#include "output/output_file.h"
#include "output/value_text.h"
#include "platform/encoding.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

struct export_line {
    std::string typed, id, file, type;
    std::string encoding = "windows-1252";
};

struct written {
    std::size_t entries = 0;
    int torn = 0; // entries with a ";" or a line end in a field, which no import can read back
};

// Counts the entries of an export, and copies them to `out` when there is one.
written pass_on(const std::string& path, std::ostream* out, bool to_utf8) {
    std::ifstream in(path, std::ios::binary);
    written count;
    for (std::string line; std::getline(in, line);) {
        ++count.entries;
        count.torn += std::count(line.begin(), line.end(), ';') != 6 ? 1 : 0;
        if (out != nullptr)
            *out << (to_utf8 ? platform::cp1252_to_utf8(line) : line) << '\n';
    }
    return count;
}

std::string so_far(const std::string& path) {
    const std::size_t entries = pass_on(path, nullptr, false).entries;
    return entries == 0 ? "nothing was written" : count_of_entries(entries) + " in the file";
}

void export_to(user_session& user, const export_line& line, const std::string& path) {
    const call_probe watch;
    const file_growth growth(path,
                             !user.out().is_json() && !user.out().is_quiet() && line.file != "-");
    errno = 0;
    const std::int32_t result = user.books().exportTBook(
        line.id.c_str(), static_cast<nettypetype>(net_type_of(line.type)), path.c_str());
    if (result == 5 || result == 6)
        not_written(path, std::strerror(errno));
    if (result != 0)
        user.lost("exporting " + shown(line.id) + " (" + so_far(path) + ')', watch);
}

written export_converted(user_session& user, const export_line& line) {
    const scratch_file scratch;
    export_to(user, line, scratch.path());
    const bool to_utf8 = line.encoding == "utf-8";
    if (line.file == "-")
        return pass_on(scratch.path(), &std::cout, to_utf8);
    std::ofstream out(line.file, std::ios::binary | std::ios::trunc);
    const written count = pass_on(scratch.path(), &out, to_utf8);
    if (!out.flush())
        not_written(line.file, std::strerror(errno));
    return count;
}

written export_plain(user_session& user, const export_line& line) {
    export_to(user, line, line.file);
    return pass_on(line.file, nullptr, false);
}

void run(user_session& user, const export_line& line) {
    known<book_kind>(user, line.id); // an unknown book would give an empty file
    const bool plain = line.encoding == "windows-1252" && line.file != "-";
    const written count = plain ? export_plain(user, line) : export_converted(user, line);
    if (count.torn > 0)
        note(std::to_string(count.torn) + (count.torn == 1 ? " line holds" : " lines hold") +
             " a \";\" or a line end in a field, and can't be read back as they are");
    if (line.file == "-")
        return; // whether it has left is looked at when the program ends
    user.out().done(shown(line.id) + ": " + count_of_entries(count.entries) + " written to " +
                        line.file,
                    {{"book", shown(line.id)},
                     {"file", line.file},
                     {"entries", count.entries},
                     {"encoding", line.encoding}});
}

} // namespace

void add_book_export(cli::command group) {
    auto line = std::make_shared<export_line>();
    cli::command command = add_user_command(
        group, "export", "Write the entries of a phone book to a text file",
        [line](user_session& user) { run(user, *line); },
        [line] { line->id = id_text("the phone book", line->typed); });
    command.add_argument("ID", line->typed, "Id of the phone book");
    command.add_argument("FILE", line->file, "The file to write; - for standard output");
    add_net_type(command, line->type);
    command
        .add_option("--encoding", line->encoding,
                    "windows-1252 (the default, as other programs of this system write it) or "
                    "utf-8",
                    "NAME")
        .one_of({"windows-1252", "utf-8"});
    command.footer("A line is an entry: id;number;station;I or E;F or T;comment;\n"
                   "(in the house or external, fax or telex). A file that is there is "
                   "overwritten.\n\nExample: zerdix book export common telebuch.csv");
}

} // namespace zerdix::app
