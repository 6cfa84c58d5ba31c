// SPDX-License-Identifier: MIT
// The lines of the text file for export and import of a phone book: an entry each, with ";" behind
// each field,
//
//     teleid;phone;tsi;I or E;F or T;comment;
//
// in the bytes of the entry. I is in-house and E outside, F fax and T telex. Nothing is quoted.
#ifndef ZERDIX_TELEBOOK_PHONE_BOOK_LINE_H
#define ZERDIX_TELEBOOK_PHONE_BOOK_LINE_H

#include <array>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

#include <zerdix/records.h>

namespace zerdix::telebook {

// Room for a line of 511 characters and a NUL.
using line_buffer = std::array<char, 512>;

struct close_file {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using text_file = std::unique_ptr<std::FILE, close_file>;

// Null when the file can't be opened. The mode is fopen's.
text_file open_file(const char* name, const char* mode);

// Puts an entry's line behind `text`, its line feed included.
void append_line(std::string& text, const o_tebul& entry);

// Reads a line with its line feed, or as much of it as the buffer takes: the rest counts as a line
// of its own. CR LF reads as LF. The number of characters, 0 at the end and after a read error.
std::size_t read_line(std::FILE* file, line_buffer& line);

// A line as an entry of a book. A line with too few fields repeats its last one.
o_tebul parse_line(const char* line, const char* tbookid);

} // namespace zerdix::telebook

#endif
