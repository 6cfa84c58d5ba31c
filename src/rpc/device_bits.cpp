// SPDX-License-Identifier: MIT
// The bits of a device's features and of a user's actions, by name.

#include <zerdix/zerdix.h>

namespace {

// Features, in the order of their bits.
enum feature { normal, fine, res1, res2, scanning, halftone, printing, receiving, sending, telex };

constexpr std::int32_t bit(feature which) {
    return 1 << which;
}

// Each kind of action has three bits, one for each event.
enum action { print, mail, lamp, voice };
enum event { on_send, on_error, on_receive };

constexpr std::int32_t bit(action what, event when) {
    return 1 << (3 * what + when);
}

} // namespace

std::int32_t ZERDIX::clssetHWFNormal() {
    return bit(normal);
}
std::int32_t ZERDIX::clssetHWFFine() {
    return bit(fine);
}
std::int32_t ZERDIX::clssetHWFRes1() {
    return bit(res1);
}
std::int32_t ZERDIX::clssetHWFRes2() {
    return bit(res2);
}
std::int32_t ZERDIX::clssetHWFScan() {
    return bit(scanning);
}
std::int32_t ZERDIX::clssetHWFHalftone() {
    return bit(halftone);
}
std::int32_t ZERDIX::clssetHWFPrint() {
    return bit(printing);
}
std::int32_t ZERDIX::clssetHWFReceive() {
    return bit(receiving);
}
std::int32_t ZERDIX::clssetHWFSend() {
    return bit(sending);
}
std::int32_t ZERDIX::clssetHWFTelex() {
    return bit(telex);
}

std::int32_t ZERDIX::clssetATPrintSend() {
    return bit(print, on_send);
}
std::int32_t ZERDIX::clssetATPrintError() {
    return bit(print, on_error);
}
std::int32_t ZERDIX::clssetATPrintReceive() {
    return bit(print, on_receive);
}
std::int32_t ZERDIX::clssetATMailSend() {
    return bit(mail, on_send);
}
std::int32_t ZERDIX::clssetATMailError() {
    return bit(mail, on_error);
}
std::int32_t ZERDIX::clssetATMailReceive() {
    return bit(mail, on_receive);
}
std::int32_t ZERDIX::clssetATLampSend() {
    return bit(lamp, on_send);
}
std::int32_t ZERDIX::clssetATLampError() {
    return bit(lamp, on_error);
}
std::int32_t ZERDIX::clssetATLampReceive() {
    return bit(lamp, on_receive);
}
std::int32_t ZERDIX::clssetATVoiceSend() {
    return bit(voice, on_send);
}
std::int32_t ZERDIX::clssetATVoiceError() {
    return bit(voice, on_error);
}
std::int32_t ZERDIX::clssetATVoiceReceive() {
    return bit(voice, on_receive);
}
