// SPDX-License-Identifier: MIT
#include <fstream>
#include <unistd.h>

#include "rpc/wire/procedures.h"
#include "support/test_server.h"

namespace zerdix::test {

namespace {

// Program numbers of their own for every process, and for several servers in one.
constexpr std::int32_t first_offset = 1000000;
constexpr std::int32_t servers_per_process = 16;

std::int32_t next_offset() {
    static std::int32_t started = 0;
    return first_offset + getpid() * servers_per_process + started++ % servers_per_process;
}

std::filesystem::path write_settings(const std::filesystem::path& folder) {
    const std::filesystem::path path = folder / "zerdix.ini";
    std::ofstream{path} << "[Zerdix]\nLanguage32=Deutsch,zerdix.hlp,deutsch.lng\n"
                        << "Host=127.0.0.1\nUser=zerdix\nLogDir=" << folder.string() << "\n";
    return path;
}

} // namespace

client_environment::client_environment(const std::filesystem::path& folder)
    : offset_(next_offset()), settings_(write_settings(folder)),
      offset_value_("ZERDIXRPCOFFSET", std::to_string(offset_)),
      settings_value_("ZERDIX_INI", settings_.string()) {}

std::uint32_t client_environment::program() const {
    return ZERDIX_PROG + static_cast<std::uint32_t>(offset_);
}

std::vector<int> read_calls(const std::filesystem::path& file) {
    std::vector<int> calls;
    std::ifstream lines(file);
    int number = 0;
    for (std::string name; lines >> number >> name;)
        calls.push_back(number);
    return calls;
}

} // namespace zerdix::test
