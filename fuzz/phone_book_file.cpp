// SPDX-License-Identifier: MIT
// Any bytes as a phone book file: read line by line as the import does. Every line gives an entry
// whose texts end within their fields; written as a line and read again it is the same entry.
#include <cstring>

#include "require.h"
#include "telebook/phone_book_line.h"

using namespace zerdix;

namespace {

constexpr const char* book = "COMMON";

void check_line(const char* line) {
    const o_tebul entry = telebook::parse_line(line, book);
    require(entry.tbookid == book && entry.teleid.view().size() <= 10);
    require(entry.phone.view().size() <= 30 && entry.comment.view().size() <= 30);
    require(entry.tsi.view().size() <= 20 && (entry.nettype == 1 || entry.nettype == 2));
    std::string text;
    telebook::append_line(text, entry);
    const o_tebul again = telebook::parse_line(text.c_str(), book);
    require(again.teleid == entry.teleid && again.phone == entry.phone && again.tsi == entry.tsi);
    require(again.intern == entry.intern && again.nettype == entry.nettype);
    require(again.comment == entry.comment);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    // Opened for reading, it isn't written to.
    const telebook::text_file file{fmemopen(const_cast<std::uint8_t*>(data), size, "r")};
    std::size_t taken = 0;
    for (telebook::line_buffer line; std::feof(file.get()) == 0;) {
        const std::size_t length = telebook::read_line(file.get(), line);
        require(length < line.size() && line[length] == '\0');
        taken += length;
        if (length > 0)
            check_line(line.data());
    }
    require(taken <= size && taken >= size / 2);
    return 0;
}
