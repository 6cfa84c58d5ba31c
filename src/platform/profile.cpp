// SPDX-License-Identifier: MIT
#include "platform/profile.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/home.h"
#include "platform/own_folder.h"
#include "platform/profile_text.h"

namespace zerdix::platform {
namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::optional<fs::path> user_profile() {
    const std::string config = environment("XDG_CONFIG_HOME");
    // A relative XDG_CONFIG_HOME is to be ignored.
    if (config.starts_with('/'))
        return fs::path(config) / "zerdix/zerdix.ini";
    const std::string home = home_folder();
    if (home.empty())
        return std::nullopt;
    return fs::path(home) / ".config/zerdix/zerdix.ini";
}

// The one file that is written.
std::optional<fs::path> own_profile() {
    if (const std::string named = environment("ZERDIX_INI"); !named.empty())
        return named;
    return user_profile();
}

// The second is for folders of libraries that lie a level deeper, and for programs in a build tree.
std::string installed_profile() {
    const fs::path here = own_folder();
    std::error_code error;
    for (const fs::path& folder : {here / "../etc", here / "../../etc"}) {
        const fs::path file = (folder / "zerdix/zerdix.ini").lexically_normal();
        if (!here.empty() && fs::exists(file, error))
            return file.string();
    }
    return ZERDIX_SETTINGS_FOLDER "/zerdix/zerdix.ini";
}

// Nothing when the file can't be read to its end. A pipe in its place isn't waited for.
std::optional<std::string> read_file(const fs::path& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return std::nullopt;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(::fdopen(descriptor, "rb"),
                                                               std::fclose);
    if (file == nullptr)
        return std::nullopt;
    std::string text;
    std::array<char, 4096> piece;
    while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), file.get()))
        text.append(piece.data(), count);
    if (std::ferror(file.get()) != 0)
        return std::nullopt;
    return text;
}

// A file under a name of its own beside its target. Goes again unless it is moved into place.
class new_file {
  public:
    explicit new_file(const fs::path& target)
        : target_(target), name_(target.string() + ".XXXXXX") {
        descriptor_ = ::mkostemp(name_.data(), O_CLOEXEC);
    }
    ~new_file() {
        if (descriptor_ < 0)
            return;
        ::close(descriptor_);
        if (!placed_)
            ::unlink(name_.c_str());
    }
    new_file(const new_file&) = delete;
    new_file& operator=(const new_file&) = delete;

    bool write(std::string_view text) const {
        while (descriptor_ >= 0 && !text.empty()) {
            const ssize_t written = ::write(descriptor_, text.data(), text.size());
            if (written < 0 && errno != EINTR)
                return false;
            text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
        }
        return descriptor_ >= 0;
    }

    // The target's permissions and, where this process may, its owner; those of a plain new file
    // when there is no target yet.
    bool take_permissions() const {
        struct stat old = {};
        if (::stat(target_.c_str(), &old) != 0)
            return ::fchmod(descriptor_, 0644) == 0;
        [[maybe_unused]] const int owner = ::fchown(descriptor_, old.st_uid, old.st_gid);
        return ::fchmod(descriptor_, old.st_mode & 07777) == 0;
    }

    bool place() {
        placed_ = ::fsync(descriptor_) == 0 && ::rename(name_.c_str(), target_.c_str()) == 0;
        return placed_;
    }

  private:
    fs::path target_;
    std::string name_;
    int descriptor_ = -1;
    bool placed_ = false;
};

// Without it the rename itself may be lost with the machine. A file system that can't do it has
// nothing better to offer.
void sync_folder(const fs::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

bool replace_file(const fs::path& path, std::string_view text) {
    new_file file(path);
    if (!file.write(text) || !file.take_permissions() || !file.place())
        return false;
    sync_folder(path.parent_path().empty() ? "." : path.parent_path());
    return true;
}

bool has_line_break(std::string_view text) {
    return text.find_first_of("\r\n") != std::string_view::npos;
}

} // namespace

std::vector<std::string> profile_files() {
    if (const std::string named = environment("ZERDIX_INI"); !named.empty())
        return {named};
    std::vector<std::string> files;
    if (const auto user = user_profile())
        files.push_back(user->string());
    files.emplace_back("/etc/zerdix/zerdix.ini");
    files.push_back(installed_profile());
    return files;
}

std::optional<profile_entry> find_profile_entry(std::string_view section, std::string_view key) {
    const std::vector<std::string> files = profile_files();
    for (std::size_t place = 0; place < files.size(); ++place) {
        const auto text = read_file(files[place]);
        if (const auto value = text ? find_value(*text, section, key) : std::nullopt)
            return profile_entry{std::string(*value), files[place], place};
    }
    return std::nullopt;
}

std::string profile_string(std::string_view section, std::string_view key,
                           std::string_view fallback, std::size_t buffer_size) {
    const std::size_t limit = buffer_size == 0 ? 0 : buffer_size - 1;
    const auto entry = find_profile_entry(section, key);
    return entry ? entry->value.substr(0, limit) : std::string(fallback.substr(0, limit));
}

bool write_profile_string(std::string_view section, std::string_view key, std::string_view value) {
    if (has_line_break(section) || has_line_break(key) || has_line_break(value))
        return false;
    const auto own = own_profile();
    if (!own)
        return false;
    std::error_code error;
    if (!fs::exists(*own, error)) {
        if (own->has_parent_path())
            fs::create_directories(own->parent_path(), error);
        return replace_file(*own, with_value("", section, key, value));
    }
    // Behind a symbolic link the file is replaced, not the link.
    const fs::path path = fs::canonical(*own, error);
    // Devices and pipes stay what they are.
    const auto text = fs::is_regular_file(path, error) ? read_file(path) : std::nullopt;
    return text && replace_file(path, with_value(*text, section, key, value));
}

} // namespace zerdix::platform
