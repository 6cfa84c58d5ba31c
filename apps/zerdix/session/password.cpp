// SPDX-License-Identifier: MIT
#include "session/password.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <zerdix/settings.h>

#include "output/failure.h"

namespace zerdix::app {

namespace {

// While it stands nothing that is typed shows, and the signals of the keyboard wait.
class no_echo {
  public:
    explicit no_echo(int fd) : fd_(fd) {
        sigemptyset(&keys_);
        for (int signal : {SIGINT, SIGQUIT, SIGTSTP})
            sigaddset(&keys_, signal);
        sigprocmask(SIG_BLOCK, &keys_, &old_signals_);
        ::tcgetattr(fd_, &old_);
        termios silent = old_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
        ::tcsetattr(fd_, TCSAFLUSH, &silent);
    }
    ~no_echo() {
        ::tcsetattr(fd_, TCSAFLUSH, &old_);
        sigprocmask(SIG_SETMASK, &old_signals_, nullptr);
    }
    no_echo(const no_echo&) = delete;
    no_echo& operator=(const no_echo&) = delete;

  private:
    int fd_;
    termios old_{};
    sigset_t keys_;
    sigset_t old_signals_;
};

class terminal {
  public:
    terminal() : fd_(::open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY)) {}
    ~terminal() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    terminal(const terminal&) = delete;
    terminal& operator=(const terminal&) = delete;

    bool there() const { return fd_ >= 0; }
    int fd() const { return fd_; }
    void write(const std::string& text) const {
        [[maybe_unused]] const auto n = ::write(fd_, text.data(), text.size());
    }

  private:
    int fd_;
};

constexpr char interrupt_key = 3; // Ctrl-C, which is a character while signals are off
constexpr char end_key = 4;       // Ctrl-D

std::string typed_line(int fd) {
    std::string line;
    for (char c = 0; ::read(fd, &c, 1) == 1 && c != '\n' && c != '\r';) {
        if (c == interrupt_key || (c == end_key && line.empty()))
            throw failure(exit_interrupted, "interrupted");
        line += c;
    }
    return line;
}

void require_private(const std::string& path) {
    struct stat found {};
    if (::stat(path.c_str(), &found) == 0 && (found.st_mode & (S_IRGRP | S_IROTH)) != 0)
        throw failure(exit_no_permission,
                      path + " holds a password and others may read it; chmod 600 helps");
}

} // namespace

std::string password_from_file(const std::string& path) {
    std::ifstream file;
    if (path != "-") {
        if (std::error_code ignored; std::filesystem::is_directory(path, ignored))
            throw failure(exit_no_input, "the password file " + path + " is a folder");
        file.open(path);
        if (!file)
            throw failure(exit_no_input, "the password file " + path +
                                             " can't be opened: " + std::strerror(errno));
    }
    std::istream& in = path == "-" ? std::cin : file;
    std::string line;
    if (!std::getline(in, line) && line.empty())
        throw failure(exit_no_input, path == "-" ? "there is no password on standard input"
                                                 : "there is no password in " + path);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

std::string ask_password(const std::string& prompt) {
    const terminal tty;
    if (!tty.there())
        throw failure(exit_usage, "a password is needed and there is no terminal to ask for it; "
                                  "name a file with --password-file");
    tty.write(prompt);
    std::string line;
    {
        const no_echo silence(tty.fd());
        try {
            line = typed_line(tty.fd());
        } catch (const failure&) {
            tty.write("\n");
            throw;
        }
    }
    tty.write("\n");
    return line;
}

std::string login_password(const std::string& file, const std::string& user) {
    if (!file.empty())
        return password_from_file(file);
    if (const zx_setting* password = FindSetting("Password")) {
        require_private(password->file);
        return password->value;
    }
    if (const zx_setting* named = FindSetting("PasswordFile"))
        return password_from_file(named->path);
    return ask_password("Password of " + user + ": ");
}

std::string settings_with_password() {
    for (const char* key : {"Password", "PasswordFile"}) {
        if (const zx_setting* entry = FindSetting(key))
            return entry->file;
    }
    return "";
}

} // namespace zerdix::app
