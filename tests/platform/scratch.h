// SPDX-License-Identifier: MIT
// A folder, environment variables and replaced ports that last as long as a test.
#ifndef ZERDIX_TESTS_PLATFORM_SCRATCH_H
#define ZERDIX_TESTS_PLATFORM_SCRATCH_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/font.h"
#include "platform/message_box.h"
#include "platform/quit.h"

namespace zerdix::tests {

class scratch_folder {
  public:
    scratch_folder() {
        std::string name = (std::filesystem::temp_directory_path() / "zerdix-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder can be made");
        path_ = name;
    }
    ~scratch_folder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    scratch_folder(const scratch_folder&) = delete;
    scratch_folder& operator=(const scratch_folder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::string path(std::string_view name) const { return path_ / name; }

    std::string write(std::string_view name, std::string_view text) const {
        const std::string full = path(name);
        std::filesystem::create_directories(std::filesystem::path(full).parent_path());
        std::ofstream(full, std::ios::binary) << text;
        return full;
    }

    std::string read(std::string_view name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    bool exists(std::string_view name) const { return std::filesystem::exists(path(name)); }

  private:
    std::filesystem::path path_;
};

// Null unsets the variable.
class environment_variable {
  public:
    environment_variable(const char* name, const char* value) : name_(name) {
        if (const char* before = std::getenv(name))
            before_ = before;
        set(value);
    }
    environment_variable(const char* name, const std::string& value)
        : environment_variable(name, value.c_str()) {}
    ~environment_variable() { set(before_ ? before_->c_str() : nullptr); }
    environment_variable(const environment_variable&) = delete;
    environment_variable& operator=(const environment_variable&) = delete;

  private:
    void set(const char* value) const {
        if (value == nullptr)
            ::unsetenv(name_);
        else
            ::setenv(name_, value, 1);
    }

    const char* name_;
    std::optional<std::string> before_;
};

// Takes note of message boxes instead of showing them: text and caption.
class recorded_boxes final : public platform::message_box_port {
  public:
    recorded_boxes() : before_(platform::replace_message_box(this)) {}
    ~recorded_boxes() { platform::replace_message_box(before_); }
    recorded_boxes(const recorded_boxes&) = delete;
    recorded_boxes& operator=(const recorded_boxes&) = delete;

    void show(std::string_view text, std::string_view caption) override {
        shown.emplace_back(text, caption);
    }

    std::vector<std::pair<std::string, std::string>> shown;

  private:
    platform::message_box_port* before_;
};

// Takes note of the codes with which the program is asked to end.
class recorded_quits final : public platform::quit_port {
  public:
    recorded_quits() { platform::replace_quit_request(this); }
    ~recorded_quits() { platform::replace_quit_request(nullptr); }
    void post(int code) override { codes.push_back(code); }

    std::vector<int> codes;
};

// A machine without fonts.
class no_fonts final : public platform::font_port {
  public:
    no_fonts() : before_(platform::replace_fonts(this)) {}
    ~no_fonts() { platform::replace_fonts(before_); }
    std::shared_ptr<platform::font> find(const platform::font_request&) override { return nullptr; }

  private:
    platform::font_port* before_;
};

} // namespace zerdix::tests

#endif
