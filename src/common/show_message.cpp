// SPDX-License-Identifier: MIT
#include "common/show_message.h"

#include "common/string_table.h"
#include "platform/message_box.h"

namespace zerdix::common {
namespace {

constexpr const char* usual_name = "zerDIX";
constinit const char* name = usual_name;

} // namespace

void show_message(std::int32_t number) {
    platform::message_box().show(string_text(number), string_text(text_notification));
}

void show_plain_message(std::int32_t number) {
    show_plain_message(string_text(number));
}

void show_plain_message(std::string_view text) {
    platform::message_box().show(text, name);
}

const char* application_name() {
    return name;
}

void set_application_name(const char* new_name) {
    name = new_name != nullptr ? new_name : usual_name;
}

} // namespace zerdix::common
