// SPDX-License-Identifier: MIT
#include "books/rights_text.h"

#include <zerdix/telebook.h>

#include "output/failure.h"

namespace zerdix::app {

namespace {

struct right {
    char letter;
    char (*bit)();
};

constexpr right rights[] = {
    {'r', TELEBOOK::clssetPRead},   {'u', TELEBOOK::clssetPExecute}, {'a', TELEBOOK::clssetPAdd},
    {'c', TELEBOOK::clssetPModify}, {'d', TELEBOOK::clssetPDelete},  {'p', TELEBOOK::clssetPPerm},
};

unsigned char bit_of(char letter, const std::string& letters) {
    for (const right& one : rights) {
        if (one.letter == letter)
            return static_cast<unsigned char>(one.bit());
    }
    throw failure(exit_usage, "\"" + letters + "\" aren't rights: letters of ruacdp are expected " +
                                  "(read, use, add, change, delete, rights), or none");
}

} // namespace

std::string rights_letters(unsigned char bits) {
    std::string letters;
    for (const right& one : rights)
        letters += (bits & static_cast<unsigned char>(one.bit())) != 0 ? one.letter : '-';
    return letters;
}

std::string rights_text(const rights_bytes& perms) {
    std::string text;
    for (const unsigned char byte : perms.bytes)
        text += (text.empty() ? "" : " ") + rights_letters(byte);
    return text;
}

unsigned char rights_bits(const std::string& letters) {
    unsigned char bits = 0;
    if (letters == "none")
        return bits;
    for (const char letter : letters) {
        if (letter != '-')
            bits = static_cast<unsigned char>(bits | bit_of(letter, letters));
    }
    return bits;
}

} // namespace zerdix::app
