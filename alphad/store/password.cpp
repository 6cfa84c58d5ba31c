// SPDX-License-Identifier: MIT
#include "alphad/store/password.h"

#include <crypt.h>
#include <memory>
#include <stdexcept>

namespace zerdix::alphad {

namespace {

// yescrypt at a cost that keeps a login in the range of 10 milliseconds.
constexpr const char* method = "$y$";
constexpr unsigned long cost = 3;

// A password may hold any byte but NUL, which no text field has.
std::string crypted(std::string_view password, const char* setting) {
    const auto work = std::make_unique<crypt_data>();
    const char* made = crypt_r(std::string{password}.c_str(), setting, work.get());
    return made != nullptr && *made != '*' ? made : std::string{};
}

std::string new_setting() {
    char setting[CRYPT_GENSALT_OUTPUT_SIZE];
    if (crypt_gensalt_rn(method, cost, nullptr, 0, setting, sizeof setting) == nullptr)
        throw std::runtime_error("the system makes no salt for a password");
    return setting;
}

} // namespace

std::string hash_password(std::string_view password) {
    std::string hash = crypted(password, new_setting().c_str());
    if (hash.empty())
        throw std::runtime_error("the system can't hash a password");
    return hash;
}

bool fits_password(std::string_view password, const std::string& hash) {
    if (hash.empty()) {
        hash_password(password);
        return false;
    }
    return crypted(password, hash.c_str()) == hash;
}

} // namespace zerdix::alphad
