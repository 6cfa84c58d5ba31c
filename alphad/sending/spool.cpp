// SPDX-License-Identifier: MIT
#include "alphad/sending/spool.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>

namespace zerdix::alphad {

namespace {

constexpr std::string_view part_ending = ".part";

std::filesystem::path whole(const std::filesystem::path& path) {
    if (path.empty())
        return path;
    const std::filesystem::path normal = std::filesystem::absolute(path).lexically_normal();
    return normal.has_filename() ? normal : normal.parent_path();
}

} // namespace

std::filesystem::path spool_places::find(const std::string& kept) const {
    return all.empty() ? own / kept : all / std::filesystem::path{kept}.filename();
}

spool::spool(const std::filesystem::path& folder, std::filesystem::path own)
    : folder_(whole(folder)), own_(whole(own)) {
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (error)
        throw spool_error("the spool folder " + folder_.string() +
                          " can't be made: " + error.message());
}

bool spool::holds(const std::string& name) const {
    return std::filesystem::exists(folder_ / name);
}

std::string spool::kept(const std::string& name) const {
    return folder_ == own_ ? name : (folder_ / name).string();
}

std::filesystem::path spool::part_of(const std::string& kept) const {
    const std::filesystem::path path = path_of(kept);
    return path.parent_path() / ("." + path.filename().string()).append(part_ending);
}

void spool::fail(const std::string& kept, const std::string& reason) const {
    throw spool_error("the file " + path_of(kept).string() + " can't be written: " + reason);
}

void spool::write(const std::string& kept, const file_writer& writer) {
    parts_.push_back(kept);
    try {
        writer(part_of(kept));
    } catch (const std::runtime_error& error) {
        fail(kept, error.what());
    }
}

void spool::write_text(const std::string& kept, std::string_view text) {
    write(kept, [text](const std::filesystem::path& path) {
        std::ofstream file{path, std::ios::binary};
        file << text;
        file.close();
        if (file.fail())
            throw std::runtime_error(std::strerror(errno));
    });
}

void spool::publish(const std::string& kept) {
    std::erase(parts_, kept);
    std::error_code error;
    std::filesystem::rename(part_of(kept), path_of(kept), error);
    if (error && error != std::errc::no_such_file_or_directory)
        fail(kept, error.message());
}

void spool::discard() noexcept {
    std::error_code error;
    for (const std::string& kept : parts_)
        std::filesystem::remove(part_of(kept), error);
    parts_.clear();
}

void spool::remove(const std::string& kept) const {
    std::error_code error;
    std::filesystem::remove(path_of(kept), error);
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
