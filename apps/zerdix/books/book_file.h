// SPDX-License-Identifier: MIT
// A phone book file, looked at line by line before any of it goes to the server.
//
// A line is an entry: id;number;station;I or E (in-house or not);F or T (fax or telex);comment;
#ifndef ZERDIX_APP_BOOKS_BOOK_FILE_H
#define ZERDIX_APP_BOOKS_BOOK_FILE_H

#include <string>
#include <vector>

#include <zerdix/records.h>

#include "books/text_file.h"

namespace zerdix::app {

struct book_line {
    int number;    // in the file, from 1
    o_tebul entry; // without a book
};

struct line_remark {
    int number;
    std::string what; // UTF-8, a clause
};

struct book_file {
    std::vector<book_line> lines;
    std::vector<line_remark> faults; // lines that are no entry
    std::vector<line_remark> notes;  // what changes on the way
    encoding found = encoding::windows_1252;
};

// Blank lines are passed over. Throws failure as read_text_file does.
book_file read_book_file(const std::string& path, encoding told);

// A line as the import takes it, with its line feed; Windows-1252.
std::string file_line(const o_tebul& entry);

} // namespace zerdix::app

#endif
