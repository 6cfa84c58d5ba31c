// SPDX-License-Identifier: MIT
// The bits of a device's features and of a user's actions, by name.

#include <zerdix/values.h>
#include <zerdix/zerdix.h>

std::int32_t ZERDIX::clssetHWFNormal() {
    return zerdix::hwf_normal;
}
std::int32_t ZERDIX::clssetHWFFine() {
    return zerdix::hwf_fine;
}
std::int32_t ZERDIX::clssetHWFRes1() {
    return zerdix::hwf_res1;
}
std::int32_t ZERDIX::clssetHWFRes2() {
    return zerdix::hwf_res2;
}
std::int32_t ZERDIX::clssetHWFScan() {
    return zerdix::hwf_scan;
}
std::int32_t ZERDIX::clssetHWFHalftone() {
    return zerdix::hwf_halftone;
}
std::int32_t ZERDIX::clssetHWFPrint() {
    return zerdix::hwf_print;
}
std::int32_t ZERDIX::clssetHWFReceive() {
    return zerdix::hwf_receive;
}
std::int32_t ZERDIX::clssetHWFSend() {
    return zerdix::hwf_send;
}
std::int32_t ZERDIX::clssetHWFTelex() {
    return zerdix::hwf_telex;
}
std::int32_t ZERDIX::clssetATPrintSend() {
    return zerdix::at_print_send;
}
std::int32_t ZERDIX::clssetATPrintError() {
    return zerdix::at_print_error;
}
std::int32_t ZERDIX::clssetATPrintReceive() {
    return zerdix::at_print_receive;
}
std::int32_t ZERDIX::clssetATMailSend() {
    return zerdix::at_mail_send;
}
std::int32_t ZERDIX::clssetATMailError() {
    return zerdix::at_mail_error;
}
std::int32_t ZERDIX::clssetATMailReceive() {
    return zerdix::at_mail_receive;
}
std::int32_t ZERDIX::clssetATLampSend() {
    return zerdix::at_lamp_send;
}
std::int32_t ZERDIX::clssetATLampError() {
    return zerdix::at_lamp_error;
}
std::int32_t ZERDIX::clssetATLampReceive() {
    return zerdix::at_lamp_receive;
}
std::int32_t ZERDIX::clssetATVoiceSend() {
    return zerdix::at_voice_send;
}
std::int32_t ZERDIX::clssetATVoiceError() {
    return zerdix::at_voice_error;
}
std::int32_t ZERDIX::clssetATVoiceReceive() {
    return zerdix::at_voice_receive;
}
