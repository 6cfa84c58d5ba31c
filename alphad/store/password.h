// SPDX-License-Identifier: MIT
// Passwords, which are kept as salted hashes only.
#ifndef ZERDIX_ALPHAD_STORE_PASSWORD_H
#define ZERDIX_ALPHAD_STORE_PASSWORD_H

#include <string>
#include <string_view>

namespace zerdix::alphad {

// A hash with a salt of its own. Throws std::runtime_error when the system can't make one.
std::string hash_password(std::string_view password);

// Takes as long for an empty hash, to which no password fits, as for any other.
bool fits_password(std::string_view password, const std::string& hash);

} // namespace zerdix::alphad

#endif
