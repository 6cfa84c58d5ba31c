// SPDX-License-Identifier: MIT
#include "alphad/store/database.h"

#include <new>
#include <sqlite3.h>
#include <utility>

namespace zerdix::alphad {

namespace {

[[noreturn]] void fail(sqlite3* handle, const std::string& what) {
    throw database_error(what + ": " + (handle ? sqlite3_errmsg(handle) : "out of memory"));
}

// How long a call waits for another process that holds the store.
constexpr int busy_milliseconds = 5000;

} // namespace

database::database(const std::string& path, access mode) {
    const int flags = mode == access::read_only ? SQLITE_OPEN_READONLY
                                                : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    if (sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr) != SQLITE_OK) {
        const std::string reason = handle_ ? sqlite3_errmsg(handle_) : "out of memory";
        sqlite3_close(handle_);
        throw database_error(path + ": " + reason);
    }
    sqlite3_busy_timeout(handle_, busy_milliseconds);
}

database::~database() {
    for (const auto& [sql, compiled] : compiled_)
        sqlite3_finalize(compiled);
    sqlite3_close(handle_);
}

sqlite3_stmt* database::take_compiled(const char* sql) const {
    const auto found = compiled_.find(sql);
    if (found != compiled_.end() && found->second != nullptr)
        return std::exchange(found->second, nullptr);
    sqlite3_stmt* compiled = nullptr;
    if (sqlite3_prepare_v3(handle_, sql, -1, SQLITE_PREPARE_PERSISTENT, &compiled, nullptr) !=
        SQLITE_OK)
        fail(handle_, std::string{"the store doesn't take: "} + sql);
    return compiled;
}

// One of a text is kept; a statement that runs inside its own rows has a second one for a while.
void database::keep_compiled(const char* sql, sqlite3_stmt* compiled) const noexcept {
    sqlite3_reset(compiled);
    sqlite3_clear_bindings(compiled);
    try {
        sqlite3_stmt*& place = compiled_[sql];
        if (place == nullptr)
            std::swap(place, compiled);
    } catch (const std::bad_alloc&) {
    }
    sqlite3_finalize(compiled);
}

void database::run(const char* sql) {
    if (sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(handle_, "the store refused a statement");
}

std::int64_t database::last_id() const {
    return sqlite3_last_insert_rowid(handle_);
}
std::int64_t database::changed() const {
    return sqlite3_changes64(handle_);
}

statement::statement(const database& db, const char* sql)
    : owner_(db), db_(db.handle()), sql_(sql), handle_(db.take_compiled(sql)) {}

statement::~statement() {
    owner_.keep_compiled(sql_, handle_);
}

bool statement::step() {
    switch (sqlite3_step(handle_)) {
    case SQLITE_ROW:
        return true;
    case SQLITE_DONE:
        return false;
    default:
        fail(db_, "the store failed");
    }
}

std::int64_t statement::integer(int column) const {
    return sqlite3_column_int64(handle_, column);
}

std::string_view statement::bytes(int column) const {
    const auto* data = static_cast<const char*>(sqlite3_column_blob(handle_, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle_, column));
    return data == nullptr ? std::string_view{} : std::string_view{data, size};
}

void statement::bind(int index, std::int64_t value) {
    if (sqlite3_bind_int64(handle_, index, value) != SQLITE_OK)
        fail(db_, "a value wasn't taken");
}

// A null pointer would make an SQL null of an empty text.
void statement::bind(int index, std::string_view value) {
    if (sqlite3_bind_blob64(handle_, index, value.empty() ? "" : value.data(), value.size(),
                            SQLITE_TRANSIENT) != SQLITE_OK)
        fail(db_, "a value wasn't taken");
}

transaction::transaction(database& db) : db_(db) {
    db_.run("BEGIN IMMEDIATE");
}

// Rolling back can only fail when SQLite has done it already.
transaction::~transaction() {
    if (open_)
        sqlite3_exec(db_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void transaction::commit() {
    db_.run("COMMIT");
    open_ = false;
}

} // namespace zerdix::alphad
