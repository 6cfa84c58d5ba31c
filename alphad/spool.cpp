#include "alphad/spool.h"

#include <cctype>
#include <cstdio>
#include <fstream>

namespace zerdix::alphad {

namespace {

constexpr std::string_view part_ending = ".part";

} // namespace

spool::spool(std::filesystem::path folder) : folder_(std::move(folder)) {
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (error)
        throw spool_error("the spool folder " + folder_.string() +
                          " can't be made: " + error.message());
}

std::filesystem::path spool::part_of(const std::string& name) const {
    return folder_ / ("." + name).append(part_ending);
}

void spool::require(bool done, const std::string& name, const std::string& reason) const {
    if (!done)
        throw spool_error("the file " + (folder_ / name).string() + " can't be written" + reason);
}

void spool::write(const std::string& name, const spooled_picture& picture) {
    parts_.push_back(name);
    require(write_fax_tiff(part_of(name), picture), name);
}

void spool::write_text(const std::string& name, std::string_view text) {
    parts_.push_back(name);
    std::ofstream file{part_of(name), std::ios::binary};
    file << text;
    file.close();
    require(!file.fail(), name);
}

void spool::publish(const std::string& name) {
    std::erase(parts_, name);
    std::error_code error;
    std::filesystem::rename(part_of(name), folder_ / name, error);
    require(!error || error == std::errc::no_such_file_or_directory, name, ": " + error.message());
}

void spool::discard() noexcept {
    std::error_code error;
    for (const std::string& name : parts_)
        std::filesystem::remove(part_of(name), error);
    parts_.clear();
}

void spool::remove(const std::string& name) const {
    std::error_code error;
    std::filesystem::remove(folder_ / name, error);
}

void spool::sweep() const {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder_, error)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with('.') && name.ends_with(part_ending))
            std::filesystem::remove(entry.path(), error);
    }
}

std::string spool::file_name(std::int32_t id, std::string_view text, std::string_view ending) {
    char number[16];
    std::snprintf(number, sizeof number, "%06d", id);
    std::string name = number;
    name += '-';
    for (const char c : text)
        if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '+')
            name += c;
    return name.append(ending);
}

} // namespace zerdix::alphad
