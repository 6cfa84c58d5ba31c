// SPDX-License-Identifier: MIT
// The log of a document.

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <zerdix/journal.h>

#include "rpc/call.h"
#include "rpc/fields.h"

using namespace zerdix;
using rpc::by_object;
using rpc::field;
using rpc::user_id;
namespace proc = rpc::proc;

namespace {

constexpr std::int32_t lines_per_request = 80;
constexpr std::size_t growth_step = 4096;
constexpr std::size_t end_of_growth = 65535;
constexpr std::size_t line_characters = 100;
constexpr std::size_t room_for_line = line_characters + 3; // CR, LF and the NUL

// A text that grows in steps while lines are put behind it. It is held in the object's own member,
// so that what was gathered survives a failed call.
class log_text {
  public:
    explicit log_text(held_text& text) : text_(text), size_(growth_step) {
        text_.reset();
        text_.reset(static_cast<char*>(std::calloc(1, size_)));
    }

    bool usable() const { return text_ != nullptr; }

    // False when the text is full and takes no more lines.
    bool append(const unsigned char* line) {
        if (length_ > size_ - room_for_line && !grow())
            return false;
        const std::size_t length = ::strnlen(reinterpret_cast<const char*>(line), line_characters);
        char* const end = text_.get() + length_;
        std::memcpy(end, line, length);
        std::memcpy(end + length, "\r\n", 3);
        length_ += length + 2;
        return true;
    }

  private:
    bool grow() {
        if (size_ >= end_of_growth)
            return false;
        auto* grown = static_cast<char*>(std::realloc(text_.get(), size_ + growth_step));
        if (grown == nullptr)
            return false;
        (void)text_.release(); // realloc has freed it
        text_.reset(grown);
        size_ += growth_step;
        return true;
    }

    held_text& text_;
    std::size_t size_;
    std::size_t length_ = 0;
};

// Puts an answer's lines behind the text; false when no more are wanted.
bool take_lines(log_text& text, const a_log_line* line) {
    if (line == nullptr)
        return false;
    for (; line != nullptr; line = line->next)
        if (!text.append(line->line.bytes))
            return false;
    return true;
}

} // namespace

std::int32_t JOURNAL::putLog(topftype pool, std::int32_t faxid, const char* line) {
    line = rpc::or_empty(line);
    // The filter only reads what it encodes.
    auto* text = reinterpret_cast<unsigned char*>(const_cast<char*>(line));
    const auto length = static_cast<std::uint32_t>(std::strlen(line) + 1);
    return rpc::request<proc::a_put_log_1>(by_object{pClient},
                                           {user_id(), pool, faxid, {length, text}});
}

char* JOURNAL::getLog(topftype pool, std::int32_t faxid, std::int32_t position,
                      std::int32_t* nextPosition) {
    const by_object caller{pClient};
    client* handle = caller.handle();
    if (handle == nullptr)
        return nullptr;
    a_get_logl_i request{user_id(),
                         pool,
                         faxid,
                         position,
                         lines_per_request,
                         field<30>(ZERDIX::clsGetLanguageString())};
    log_text text{pLogText};
    if (!text.usable())
        return nullptr;
    for (bool wanted = true; wanted;) {
        auto* answer = rpc::call<proc::a_get_logl_1>(caller, handle, request);
        if (answer == nullptr)
            return nullptr;
        if (!answer->more)
            break;
        wanted = take_lines(text, answer->first);
        request.position = answer->position;
        wire::release(*answer);
    }
    if (nextPosition != nullptr)
        *nextPosition = request.position;
    return pLogText.get();
}
