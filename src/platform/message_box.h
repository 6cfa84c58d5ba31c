// SPDX-License-Identifier: MIT
// Telling the user something while the library has no window of its own.
#ifndef ZERDIX_PLATFORM_MESSAGE_BOX_H
#define ZERDIX_PLATFORM_MESSAGE_BOX_H

#include <string_view>

namespace zerdix::platform {

// Text and caption are Windows-1252.
class message_box_port {
  public:
    // Shows the text and returns when the user has taken note of it, or at once where there is
    // nobody to wait for. May be called while the library is being loaded or unloaded.
    virtual void show(std::string_view text, std::string_view caption) = 0;

  protected:
    ~message_box_port() = default;
};

// The one in use. Without a replacement: the host's handler (zerdix/messages.h), else a line
// "caption: text" on standard error, in UTF-8, or nothing where nobody takes it just now.
message_box_port& message_box();

// Told each line of the default port too, in Windows-1252, so that it can be kept in a log; null
// for nobody. What it shows itself meanwhile isn't told. Returns the one that was there before.
using message_log = void (*)(const char* line);
message_log set_message_log(message_log log);

// As port_slot.h says.
message_box_port* replace_message_box(message_box_port* port);

} // namespace zerdix::platform

#endif
