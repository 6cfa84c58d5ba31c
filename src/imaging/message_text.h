// The texts that imaging shows the user, by number, and the message box that shows them.
#ifndef ZERDIX_IMAGING_MESSAGE_TEXT_H
#define ZERDIX_IMAGING_MESSAGE_TEXT_H

#include <cstdint>

namespace zerdix::imaging {

// Windows-1252, good for good. Empty for a number that imaging doesn't use.
const char* message_text(std::int32_t number);

// Shows the text of that number.
void show_message(std::int32_t number);

} // namespace zerdix::imaging

#endif
