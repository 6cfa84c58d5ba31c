// SPDX-License-Identifier: MIT
#include "telebook/phone_book_line.h"

#include <zerdix/timetext.h>

#include "rpc/fields.h"

namespace zerdix::telebook {

namespace {

constexpr char separator = ';';
constexpr char in_house = 'I';
constexpr char outside = 'E';
constexpr char fax = 'F';
constexpr char telex = 'T';

int read_character(std::FILE* file) {
    const int character = std::getc(file);
    if (character != '\r')
        return character;
    const int behind = std::getc(file);
    if (behind == '\n')
        return behind;
    std::ungetc(behind, file);
    return character;
}

// Whether a letter is the given upper-case one, in either case.
bool is_letter(char letter, char upper_case) {
    return letter == upper_case || letter == upper_case + ('a' - 'A');
}

} // namespace

void append_line(std::string& text, const o_tebul& entry) {
    const auto append = [&text](std::string_view field) { (text += field) += separator; };
    append(entry.teleid.view());
    append(entry.phone.view());
    append(entry.tsi.view());
    append({entry.intern ? &in_house : &outside, 1});
    append({entry.nettype == NETTYPE_FAX ? &fax : &telex, 1});
    append(entry.comment.view());
    text += '\n';
}

text_file open_file(const char* name, const char* mode) {
    return text_file{std::fopen(rpc::or_empty(name), mode)};
}

std::size_t read_line(std::FILE* file, line_buffer& line) {
    std::size_t length = 0;
    while (length < line.size() - 1) {
        const int character = read_character(file);
        if (character == EOF)
            break;
        line[length++] = static_cast<char>(character);
        if (character == '\n')
            break;
    }
    line[length] = '\0';
    return std::ferror(file) != 0 ? 0 : length;
}

o_tebul parse_line(const char* line, const char* tbookid) {
    o_tebul entry{};
    entry.tbookid = rpc::whole_field<10>(tbookid);
    char connection = '\0';
    char net = '\0';
    getTokens(separator, "%10s%30s%20s%c%c%30s", line, entry.teleid.bytes, entry.phone.bytes,
              entry.tsi.bytes, &connection, &net, entry.comment.bytes);
    entry.intern = is_letter(connection, in_house);
    entry.nettype = is_letter(net, telex) ? NETTYPE_TELEX : NETTYPE_FAX;
    return entry;
}

} // namespace zerdix::telebook
