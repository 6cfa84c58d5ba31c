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

    // The file appears whole under its name, or not at all. Throws spool_error.
    void write(const std::string& name, const spooled_picture& picture) const;

    void write_text(const std::string& name, std::string_view text) const;

    void remove(const std::string& name) const;

    // "000017-4930123456.tif": the id and what of the text can stand in a file name.
    static std::string file_name(std::int32_t id, std::string_view text,
                                 std::string_view ending = ".tif");

  private:
    std::filesystem::path part_of(const std::string& name) const;
    void finish(const std::string& name, bool written) const;

    std::filesystem::path folder_;
};

} // namespace zerdix::alphad

#endif
