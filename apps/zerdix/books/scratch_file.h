// SPDX-License-Identifier: MIT
// A temporary file that nobody else may read.
#ifndef ZERDIX_APP_BOOKS_SCRATCH_FILE_H
#define ZERDIX_APP_BOOKS_SCRATCH_FILE_H

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "output/failure.h"

namespace zerdix::app {

class scratch_file {
  public:
    // Throws failure when there is no place for one.
    scratch_file() : path_(std::filesystem::temp_directory_path() / "zerdix-XXXXXX") {
        const int fd = ::mkstemp(path_.data());
        if (fd < 0)
            fail();
        ::close(fd);
    }
    ~scratch_file() { ::unlink(path_.c_str()); }
    scratch_file(const scratch_file&) = delete;
    scratch_file& operator=(const scratch_file&) = delete;

    const char* path() const { return path_.c_str(); }

    void write(const std::string& content) const {
        std::ofstream file(path_, std::ios::binary | std::ios::trunc);
        if (!(file << content) || !file.flush())
            fail();
    }

  private:
    [[noreturn]] void fail() const {
        throw failure(exit_no_output, path_ + " can't be written: " + std::strerror(errno));
    }

    std::string path_;
};

} // namespace zerdix::app

#endif
