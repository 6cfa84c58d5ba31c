#include "sendfax/receivers.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "sendfax/job.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

constexpr std::int32_t growth = 1000;

bool grow_receiver_array() {
    const std::int32_t room = job().receiver_room;
    auto** grown = static_cast<char**>(
        std::realloc(ppReceiver, static_cast<std::size_t>(room + growth) * sizeof(char*)));
    if (grown == nullptr)
        return false;
    std::fill_n(grown + room, growth, nullptr);
    ppReceiver = grown;
    job().receiver_room = room + growth;
    return true;
}

char* blank_receiver() {
    return static_cast<char*>(std::calloc(1, receiver_size));
}

} // namespace

bool make_receiver_array() {
    job().receiver_room = 0;
    return grow_receiver_array();
}

void add_receiver(std::string_view receiver) {
    if (ppReceiver == nullptr && !make_receiver_array())
        return;
    if (lPDCountReceiver >= job().receiver_room && !grow_receiver_array())
        return;
    char* block = blank_receiver();
    if (block == nullptr)
        return;
    std::memcpy(block, receiver.data(), std::min(receiver.size(), receiver_size - 1));
    ppReceiver[lPDCountReceiver++] = block;
}

void add_blank_receiver() {
    ppReceiver[0] = blank_receiver();
}

void take_receiver(std::int32_t index) {
    if (ppReceiver[index] == nullptr || ppReceiver[index][0] == '\0')
        return;
    pa_s_rec->phone.assign(ppReceiver[index]);
    trace_lines.info("SendFaxDoc(): Receiver: %s", pa_s_rec->phone.bytes);
}

void release_receiver(std::int32_t index) {
    std::free(ppReceiver[index]);
    ppReceiver[index] = nullptr;
}

void release_receivers() {
    for (std::int32_t i = 0; ppReceiver != nullptr && i < job().receiver_room; ++i)
        release_receiver(i);
    std::free(ppReceiver);
    ppReceiver = nullptr;
    lPDCountReceiver = 0;
    job().receiver_room = 0;
}

} // namespace zerdix::sendfax
