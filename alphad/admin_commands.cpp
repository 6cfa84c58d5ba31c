// SPDX-License-Identifier: MIT
#include "alphad/admin_commands.h"

#include <fstream>
#include <iostream>
#include <termios.h>
#include <unistd.h>

#include "platform/encoding.h"

namespace zerdix::alphad {

namespace {

// A field's text; what would be cut is refused.
template <class Field>
Field field_of(const std::string& text, const char* what) {
    const std::string bytes = platform::utf8_to_cp1252(text);
    constexpr std::size_t room = sizeof(Field) - 1;
    if (bytes.empty() || bytes.size() > room || bytes.find('\0') != bytes.npos)
        throw admin_error(std::string{what} + " must have 1 to " + std::to_string(room) +
                          " characters");
    Field field{};
    field.assign(bytes);
    return field;
}

// While one stands, the terminal doesn't show what is typed.
class echo_off {
  public:
    echo_off() {
        known_ = tcgetattr(STDIN_FILENO, &before_) == 0;
        termios quiet = before_;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        if (known_)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
    }
    ~echo_off() {
        if (known_)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
    }
    echo_off(const echo_off&) = delete;
    echo_off& operator=(const echo_off&) = delete;

  private:
    termios before_{};
    bool known_;
};

std::string prompted(const char* question) {
    const echo_off quiet;
    std::cerr << question << std::flush;
    std::string typed;
    const bool read = static_cast<bool>(std::getline(std::cin, typed));
    std::cerr << std::endl;
    if (!read)
        throw admin_error("no password was given");
    return typed;
}

} // namespace

void add_user(store& store, const std::string& userid, const std::string& name) {
    const auto id = field_of<str10>(userid, "a user id");
    const auto comment = field_of<str30>(name, "a name");
    if (id == print_user)
        throw admin_error("the user " + userid + " is the server's own");
    if (!store.users.add(id.view(), comment.view()))
        throw admin_error("there is a user " + userid + " already");
}

void set_password(store& store, const std::string& userid, const std::string& password) {
    const auto id = field_of<str10>(userid, "a user id");
    const auto secret = field_of<str20>(password, "a password");
    if (!store.users.find(id.view()))
        throw admin_error("there is no user " + userid);
    store.users.set_password(id.view(), secret.view());
}

void set_barcode(store& store, const std::string& userid, const std::string& digits) {
    auto user = store.users.find(field_of<str10>(userid, "a user id").view());
    if (!user)
        throw admin_error("there is no user " + userid);
    if (digits.find_first_not_of("0123456789") != digits.npos)
        throw admin_error("a barcode has digits only");
    user->barcode = digits.empty() ? str20{} : field_of<str20>(digits, "a barcode");
    store.users.put(*user);
}

void list_users(std::ostream& out, const store& store) {
    users::rows rows = store.users.list();
    for (o_user_rec user; rows.next(user);)
        out << platform::cp1252_to_utf8(user.userid.view()) << '\t'
            << platform::cp1252_to_utf8(user.alphaid.view()) << '\t'
            << platform::cp1252_to_utf8(user.comment.view())
            << (store.users.password_hash(user.userid.view()).empty() ? "\tno password\n" : "\n");
}

// A client that is told a negative block size sees empty lists.
void set_setting(store& store, const std::string& key, const std::string& value) {
    constexpr std::int32_t none = -1;
    const bool is_size = key == "JOURNALBLK" || key == "PHONEBOOKB";
    if (is_size && !value.empty() && whole_number(value).value_or(none) < 0)
        throw admin_error(key + " must be a whole number, 0 or more");
    transaction setting(store.database());
    store.configuration.set(key, platform::utf8_to_cp1252(value));
    setting.commit();
}

void add_message(store& store, const std::string& text) {
    store.board.add(0, administrator, field_of<str80>(text, "a message").view());
}

std::string read_password(const std::string& file) {
    if (file.empty()) {
        const std::string password = prompted("New password: ");
        if (prompted("Once more: ") != password)
            throw admin_error("the passwords differ");
        return password;
    }
    std::ifstream input(file);
    std::string password;
    if (!std::getline(input, password))
        throw admin_error("no password can be read from " + file);
    return password;
}

} // namespace zerdix::alphad
