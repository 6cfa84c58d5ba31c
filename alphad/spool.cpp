#include "alphad/spool.h"

#include <cctype>
#include <cstdio>
#include <fstream>

namespace zerdix::alphad {

spool::spool(std::filesystem::path folder) : folder_(std::move(folder)) {
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (error)
        throw spool_error("the spool folder " + folder_.string() +
                          " can't be made: " + error.message());
}

std::filesystem::path spool::part_of(const std::string& name) const {
    return folder_ / ("." + name + ".part");
}

void spool::finish(const std::string& name, bool written) const {
    std::error_code error;
    if (written)
        std::filesystem::rename(part_of(name), folder_ / name, error);
    if (written && !error)
        return;
    const std::string reason = error ? ": " + error.message() : "";
    std::filesystem::remove(part_of(name), error);
    throw spool_error("the file " + (folder_ / name).string() + " can't be written" + reason);
}

void spool::write(const std::string& name, const spooled_picture& picture) const {
    finish(name, write_fax_tiff(part_of(name), picture));
}

void spool::write_text(const std::string& name, std::string_view text) const {
    std::ofstream file{part_of(name), std::ios::binary};
    file << text;
    file.close();
    finish(name, !file.fail());
}

void spool::remove(const std::string& name) const {
    std::error_code error;
    if (!name.empty())
        std::filesystem::remove(folder_ / name, error);
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
