// SPDX-License-Identifier: MIT
// SQLite with values in and out: a connection, a statement, a transaction. All text is bound and
// read as bytes, so that it compares as unsigned bytes, whatever its encoding.
#ifndef ZERDIX_ALPHAD_STORE_DATABASE_H
#define ZERDIX_ALPHAD_STORE_DATABASE_H

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>

#include <zerdix/text.h>

struct sqlite3;
struct sqlite3_stmt;

namespace zerdix::alphad {

class database_error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class database {
  public:
    enum class access { read_write, read_only };

    // A file, or ":memory:". A missing file is made unless access is read_only.
    explicit database(const std::string& path, access mode = access::read_write);
    ~database();
    database(const database&) = delete;
    database& operator=(const database&) = delete;

    // Runs statements that give no rows.
    void run(const char* sql);

    // Of the last statement that was an insert, an update or a delete.
    std::int64_t last_id() const;
    std::int64_t changed() const;

    sqlite3* handle() const { return handle_; }

  private:
    friend class statement;

    // Compiled statements that nobody runs at the moment, by their text.
    sqlite3_stmt* take_compiled(const char* sql) const;
    void keep_compiled(const char* sql, sqlite3_stmt* compiled) const noexcept;

    sqlite3* handle_ = nullptr;
    mutable std::unordered_map<std::string_view, sqlite3_stmt*> compiled_;
};

// One run of one statement. Rows come by step(); the columns are read by index. The text must
// outlive the database, as a literal does: what was compiled of it is kept for the next run.
class statement {
  public:
    statement(const database& db, const char* sql);
    template <class... Value>
    statement(const database& db, const char* sql, const Value&... values) : statement(db, sql) {
        int index = 0;
        (bind(++index, values), ...);
    }
    ~statement();
    statement(const statement&) = delete;
    statement& operator=(const statement&) = delete;

    // True while there is a row.
    bool step();

    std::int64_t integer(int column) const;
    std::int32_t number(int column) const { return static_cast<std::int32_t>(integer(column)); }
    std::int16_t small(int column) const { return static_cast<std::int16_t>(integer(column)); }
    bool flag(int column) const { return integer(column) != 0; }

    // Good until the next step, or until the same column is read in another form.
    std::string_view bytes(int column) const;
    std::string text(int column) const { return std::string{bytes(column)}; }

  private:
    void bind(int index, std::int64_t value);
    void bind(int index, std::int32_t value) { bind(index, std::int64_t{value}); }
    void bind(int index, std::int16_t value) { bind(index, std::int64_t{value}); }
    void bind(int index, bool value) { bind(index, std::int64_t{value ? 1 : 0}); }
    void bind(int index, std::string_view value);
    void bind(int index, const std::string& value) { bind(index, std::string_view{value}); }
    template <std::size_t N>
    void bind(int index, const zerdix::text<N>& value) {
        bind(index, value.view());
    }

    const database& owner_;
    sqlite3* db_;
    const char* sql_;
    sqlite3_stmt* handle_;
};

// For statements without rows: runs it and says how many rows it changed.
template <class... Value>
std::int64_t execute(const database& db, const char* sql, const Value&... values) {
    statement(db, sql, values...).step();
    return db.changed();
}

// Undone unless committed.
class transaction {
  public:
    explicit transaction(database& db);
    ~transaction();
    transaction(const transaction&) = delete;
    transaction& operator=(const transaction&) = delete;

    void commit();

  private:
    database& db_;
    bool open_ = true;
};

} // namespace zerdix::alphad

#endif
