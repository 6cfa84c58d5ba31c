// The spool folder: what would go over the line or to a printer, as files.
#ifndef ZERDIX_ALPHAD_SPOOL_H
#define ZERDIX_ALPHAD_SPOOL_H

#include <filesystem>
#include <stdexcept>
#include <string>

#include "alphad/fax_tiff.h"

namespace zerdix::alphad {

class spool_error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class spool {
  public:
    // Makes the folder. Throws spool_error.
    explicit spool(std::filesystem::path folder);

    const std::filesystem::path& folder() const { return folder_; }

    // Writes the file beside its place; it appears under its name when it is published. Throw
    // spool_error.
    void write(const std::string& name, const spooled_picture& picture);
    void write_text(const std::string& name, std::string_view text);

    // The file appears whole, in the place of an older one. Nothing happens when it has appeared
    // already. Throws spool_error.
    void publish(const std::string& name);

    // Takes away what was written since the last of these calls, and not published.
    void discard() noexcept;

    void remove(const std::string& name) const;

    // Takes away what a server that was killed has begun to write.
    void sweep() const;

    // "000017-4930123456.tif": the id and what of the text can stand in a file name.
    static std::string file_name(std::int32_t id, std::string_view text,
                                 std::string_view ending = ".tif");

  private:
    std::filesystem::path part_of(const std::string& name) const;
    void require(bool done, const std::string& name, const std::string& reason = {}) const;

    std::filesystem::path folder_;
    std::vector<std::string> parts_; // not published yet
};

} // namespace zerdix::alphad

#endif
