// SPDX-License-Identifier: MIT
// Asks the calling application to end.
#ifndef ZERDIX_PLATFORM_QUIT_H
#define ZERDIX_PLATFORM_QUIT_H

namespace zerdix::platform {

class quit_port {
  public:
    // The application's message loop is to end with this code, once it comes to look. Returns at
    // once and ends nothing itself.
    virtual void post(int code) = 0;

  protected:
    ~quit_port() = default;
};

// The one in use. Without a replacement nobody runs a message loop, and the request goes nowhere.
quit_port& quit_request();

// As port_slot.h says.
quit_port* replace_quit_request(quit_port* port);

} // namespace zerdix::platform

#endif
