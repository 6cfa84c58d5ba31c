// SPDX-License-Identifier: MIT
#include "sendfax/receivers.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "sendfax/job.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

constexpr std::int32_t growth = 1000;

bool grow_receiver_array(std::int32_t by) {
    const std::int32_t room = job().receiver_room;
    auto** grown = static_cast<char**>(
        std::realloc(ppReceiver, static_cast<std::size_t>(room + by) * sizeof(char*)));
    if (grown == nullptr)
        return false;
    std::fill_n(grown + room, by, nullptr);
    ppReceiver = grown;
    job().receiver_room = room + by;
    return true;
}

bool has_room_for(std::int32_t count) {
    if (ppReceiver == nullptr && !make_receiver_array())
        return false;
    const std::int32_t missing = count - job().receiver_room;
    return missing <= 0 || grow_receiver_array(missing);
}

char* blank_receiver() {
    return static_cast<char*>(std::calloc(1, receiver_size));
}

// A block that is there already is used again.
bool write_receiver(std::int32_t index, std::string_view receiver) {
    char*& block = ppReceiver[index];
    if (block == nullptr)
        block = blank_receiver();
    if (block == nullptr)
        return false;
    std::memset(block, 0, receiver_size);
    std::memcpy(block, receiver.data(), std::min(receiver.size(), receiver_size - 1));
    return true;
}

} // namespace

bool make_receiver_array() {
    job().receiver_room = 0;
    return grow_receiver_array(growth);
}

void add_receiver(std::string_view receiver) {
    if (ppReceiver == nullptr && !make_receiver_array())
        return;
    if (lPDCountReceiver >= job().receiver_room && !grow_receiver_array(growth))
        return;
    if (write_receiver(lPDCountReceiver, receiver))
        ++lPDCountReceiver;
}

void add_blank_receiver() {
    ppReceiver[0] = blank_receiver();
}

void add_desk_receiver() {
    if (!has_room_for(1) || !write_receiver(0, " "))
        return;
    lPDCountReceiver = std::min(lPDCountReceiver + 1, job().receiver_room);
}

bool replace_receivers(const std::vector<std::string>& receivers) {
    const auto count = static_cast<std::int32_t>(receivers.size());
    if (!has_room_for(count))
        return false;
    for (std::int32_t i = 0; i < count; ++i)
        if (!write_receiver(i, receivers[static_cast<std::size_t>(i)]))
            return false;
    for (std::int32_t i = std::max(count, 1); i < job().receiver_room; ++i)
        release_receiver(i);
    lPDCountReceiver = count;
    return true;
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
