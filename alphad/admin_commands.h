// SPDX-License-Identifier: MIT
// The administrator's operations on a store. They work while the server runs on it, too. Texts are
// UTF-8. An operation that can't be carried out throws admin_error with a sentence.
#ifndef ZERDIX_ALPHAD_ADMIN_COMMANDS_H
#define ZERDIX_ALPHAD_ADMIN_COMMANDS_H

#include <ostream>
#include <stdexcept>
#include <string>

#include "alphad/store/store.h"

namespace zerdix::alphad {

class admin_error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The user can't log in before a password is set.
void add_user(store& store, const std::string& userid, const std::string& name);
void set_password(store& store, const std::string& userid, const std::string& password);
// The digits that the user's cover pages show as a barcode; none takes it away.
void set_barcode(store& store, const std::string& userid, const std::string& digits);
void list_users(std::ostream& out, const store& store);

// The block sizes must be numbers from 0 on.
void set_setting(store& store, const std::string& key, const std::string& value);

void add_message(store& store, const std::string& text);

// The first line of a file, or, when it has no name, what is typed twice without echo.
std::string read_password(const std::string& file);

} // namespace zerdix::alphad

#endif
