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

// An array without receivers, all slots null. True when memory was there.
bool make_receiver_array();

// Adds a receiver, cut to 30 characters; one that memory doesn't suffice for is dropped.
void add_receiver(std::string_view receiver);

// Puts a block of 31 zero bytes into slot 0, for the send dialog to fill.
void add_blank_receiver();

// Makes the first receiver one to whom nothing is sent, for a document that goes to a desk. It
// counts once more each time, as far as there are slots.
void add_desk_receiver();

// What the send dialog chose takes the place of all receivers there are, also of those that merge
// data brought while it ran. The array is the one that ppReceiver shows now; an array of somebody
// else's is taken over, with as many slots and blocks of malloc as the job's own. One with too few
// slots is given one a receiver. False when memory ran out.
bool replace_receivers(const std::vector<std::string>& receivers);

// Makes the receiver that of the send record, unless the string is empty.
void take_receiver(std::int32_t index);

void release_receiver(std::int32_t index);

// Releases what is left of the strings, and the array.
void release_receivers();

} // namespace zerdix::sendfax

#endif
