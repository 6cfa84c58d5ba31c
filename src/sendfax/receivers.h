// SPDX-License-Identifier: MIT
// The receiver strings of the job: blocks of 31 bytes in the exported array ppReceiver, which
// grows by 1000 slots. A receiver is a number as typed, or BOOK:ENTRY.
#ifndef ZERDIX_SENDFAX_RECEIVERS_H
#define ZERDIX_SENDFAX_RECEIVERS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zerdix::sendfax {

constexpr std::size_t receiver_size = 31;

// Makes an array without receivers, all slots null. False when memory ran out.
bool make_receiver_array();

// Adds a receiver, cut to 30 characters. It is dropped when memory ran out.
void add_receiver(std::string_view receiver);

// Puts a block of 31 zero bytes into slot 0, for the send dialog to fill.
void add_blank_receiver();

// Makes the first receiver a blank one, to whom nothing is sent, for a document that goes to a
// desk. The count of receivers goes up each time, as far as there are slots.
void add_desk_receiver();

// Replaces all receivers by those that the send dialog chose, also receivers that merge data added
// while it ran. The array is the one that ppReceiver points to now. A driver may have put its own
// there, which must have as many slots as the job's own and blocks of malloc, and is owned by the
// job from then on. An array with fewer slots than there are receivers grows. False when memory ran
// out.
bool replace_receivers(const std::vector<std::string>& receivers);

// Puts the receiver into the send record, unless the string is empty.
void take_receiver(std::int32_t index);

void release_receiver(std::int32_t index);

// Releases what is left of the strings, and the array.
void release_receivers();

} // namespace zerdix::sendfax

#endif
