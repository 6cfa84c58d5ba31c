// SPDX-License-Identifier: MIT
#include "books/book_file.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string_view>

#include "books/known_entry.h"
#include "output/value_text.h"

namespace zerdix::app {

namespace {

constexpr std::size_t field_count = 6;
constexpr std::size_t longest_number = 30;

using field_list = std::vector<std::string_view>;

// One line on its way to an entry.
class line_reader {
  public:
    line_reader(book_file& file, int number) : file_(file), number_(number) {}

    void take(const text_line& line) {
        if (line.text.find_first_not_of(" \t") == std::string::npos)
            return;
        field_list fields = split(line.text);
        const bool closed = fields.back().empty() && fields.size() != field_count;
        if (closed)
            fields.pop_back();
        if (const std::string what = fault_of(line.text, fields); !what.empty()) {
            file_.faults.push_back({number_, what});
            return;
        }
        if (!closed)
            note("the last field isn't closed by \";\" and is taken as it stands");
        if (line.has_unknown_characters)
            note("characters that aren't in Windows-1252 become \"?\"");
        file_.lines.push_back({number_, entry_of(fields)});
    }

  private:
    void note(const std::string& what) { file_.notes.push_back({number_, what}); }

    // What stands behind the last ";" comes along, empty in a line that is closed.
    static field_list split(std::string_view text) {
        field_list fields;
        for (std::size_t end = 0; (end = text.find(';')) != std::string_view::npos;) {
            fields.push_back(text.substr(0, end));
            text.remove_prefix(end + 1);
        }
        fields.push_back(text);
        return fields;
    }

    static std::string fault_of(std::string_view text, const field_list& fields) {
        const bool steers = std::any_of(text.begin(), text.end(), [](char c) {
            return static_cast<unsigned char>(c) < 0x20 && c != '\t';
        });
        if (steers)
            return "a control character stands in it";
        if (fields.size() != field_count)
            return std::to_string(fields.size()) + (fields.size() == 1 ? " field" : " fields") +
                   ", 6 are expected";
        if (fields[1].size() > longest_number) // cut, it would be somebody else's
            return "the number has more than 30 characters";
        return fields[0].empty() ? "the entry has no id" : "";
    }

    o_tebul entry_of(const field_list& fields) {
        o_tebul entry{};
        assign(entry.teleid, fields[0], "the id");
        assign(entry.phone, fields[1], "the number");
        assign(entry.tsi, fields[2], "the station identification");
        entry.intern =
            letter(fields[3], "IE", "in the house nor outside (I, E): taken for outside") == 'I';
        entry.nettype = letter(fields[4], "FT", "fax nor telex (F, T): taken for fax") == 'T'
                            ? NETTYPE_TELEX
                            : NETTYPE_FAX;
        assign(entry.comment, fields[5], "the comment");
        return entry;
    }

    template <std::size_t N>
    void assign(text<N>& field, std::string_view value, const char* what) {
        field.assign(value);
        if (value.size() > N)
            note(std::string(what) + " is cut to " + std::to_string(N) + " characters");
    }

    // The first character in upper case, if it is one of the two.
    char letter(std::string_view field, std::string_view two, const char* otherwise) {
        const char c = field.empty() ? ' ' : static_cast<char>(field[0] & ~0x20);
        if (two.find(c) != std::string_view::npos)
            return c;
        note('"' + shown(field) + "\" is neither " + otherwise);
        return ' ';
    }

    book_file& file_;
    int number_;
};

void note_repeated_ids(book_file& file) {
    std::map<std::string_view, int> seen;
    for (const book_line& line : file.lines) {
        const auto [at, first] = seen.emplace(line.entry.teleid.view(), line.number);
        if (first)
            continue;
        file.notes.push_back({line.number, "the entry " + shown(line.entry.teleid) +
                                               " stands in line " + std::to_string(at->second) +
                                               " as well; this one takes its place"});
        at->second = line.number;
    }
}

} // namespace

book_file read_book_file(const std::string& path, encoding told) {
    const text_lines text = read_text_file(path, told);
    book_file file;
    file.found = text.found;
    for (std::size_t i = 0; i < text.lines.size(); ++i)
        line_reader(file, static_cast<int>(i) + 1).take(text.lines[i]);
    note_repeated_ids(file);
    std::stable_sort(file.notes.begin(), file.notes.end(),
                     [](const auto& a, const auto& b) { return a.number < b.number; });
    return file;
}

std::string file_line(const o_tebul& entry) {
    std::string line;
    for (const std::string_view field :
         {entry.teleid.view(), entry.phone.view(), entry.tsi.view(),
          std::string_view(entry.intern ? "I" : "E"),
          std::string_view(entry.nettype == NETTYPE_TELEX ? "T" : "F"), entry.comment.view()})
        line.append(field) += ';';
    return line += '\n';
}

} // namespace zerdix::app
