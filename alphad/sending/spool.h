// SPDX-License-Identifier: MIT
// The spool folder and the files in it. The writer of a file decides what it holds.
#ifndef ZERDIX_ALPHAD_SENDING_SPOOL_H
#define ZERDIX_ALPHAD_SENDING_SPOOL_H

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zerdix::alphad {

class spool_error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The spool folder in the data folder.
constexpr const char* own_spool_name = "spool";

// Where the files of a store lie. The store keeps the name of a file in its own folder and the
// whole path of any other, so that a store can move with its folder.
struct spool_places {
    std::filesystem::path own; // the folder "spool" beside the store, empty for a store in memory
    std::filesystem::path all; // where all files are now, whatever was kept; empty: as kept

    // Of a file as it is kept.
    std::filesystem::path find(const std::string& kept) const;
};

class spool {
  public:
    // Makes the folder. Files are called as they are kept in a store whose own folder is `own`.
    // Throws spool_error.
    explicit spool(const std::filesystem::path& folder, std::filesystem::path own = {});

    // Whether there is such a file in the folder, and how a file of the folder is kept.
    bool holds(const std::string& name) const;
    std::string kept(const std::string& name) const;

    // Has the file written beside its place; it appears under its name when it is published. The
    // writer throws std::runtime_error, with the reason, when it can't write the whole. Throw
    // spool_error.
    using file_writer = std::function<void(const std::filesystem::path&)>;
    void write(const std::string& kept, const file_writer& writer);
    void write_text(const std::string& kept, std::string_view text);

    // The file appears whole, in the place of an older one. Nothing happens when it has appeared
    // already. Throws spool_error.
    void publish(const std::string& kept);

    // Takes away what was written since the last of these calls, and not published.
    void discard() noexcept;

    void remove(const std::string& kept) const;

    // Takes away what a server that was killed has begun to write.
    void sweep() const;

    // "000017-4930123456.tif": the id and what of the text can stand in a file name.
    static std::string file_name(std::int32_t id, std::string_view text,
                                 std::string_view ending = ".tif");

  private:
    std::filesystem::path path_of(const std::string& kept) const { return own_ / kept; }
    std::filesystem::path part_of(const std::string& kept) const;
    [[noreturn]] void fail(const std::string& kept, const std::string& reason) const;

    std::filesystem::path folder_; // absolute, as the next one
    std::filesystem::path own_;
    std::vector<std::string> parts_; // not published yet
};

} // namespace zerdix::alphad

#endif
