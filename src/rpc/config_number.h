// SPDX-License-Identifier: MIT
// A number out of a configuration value of the server.
#ifndef ZERDIX_RPC_CONFIG_NUMBER_H
#define ZERDIX_RPC_CONFIG_NUMBER_H

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

#include <zerdix/text.h>

namespace zerdix::rpc {

// The number at the front of the text, 0 without one. One beyond 32 bits is the nearest that they
// hold, so that it can't wrap around to a plausible number.
inline std::int32_t config_number(const str80& value) {
    using limits = std::numeric_limits<std::int32_t>;
    const long long number = std::strtoll(std::string{value.view()}.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long long>(number, limits::min(), limits::max()));
}

} // namespace zerdix::rpc

#endif
