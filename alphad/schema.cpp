#include "alphad/schema.h"

namespace zerdix::alphad {

namespace {

// Records of the protocol that the server only keeps stand in their wire form.
constexpr const char* tables = R"sql(
CREATE TABLE users (
    userid BLOB PRIMARY KEY,
    name   BLOB NOT NULL
) WITHOUT ROWID;

CREATE TABLE config (
    id    BLOB PRIMARY KEY,
    value BLOB NOT NULL
) WITHOUT ROWID;

CREATE TABLE documents (
    id      INTEGER PRIMARY KEY AUTOINCREMENT,
    pool    INTEGER NOT NULL,
    owner   BLOB NOT NULL,
    comment BLOB NOT NULL,
    bif     INTEGER NOT NULL,
    public  INTEGER NOT NULL,
    created INTEGER NOT NULL,
    pages   INTEGER NOT NULL
);
CREATE INDEX documents_by_owner ON documents (owner, pool);

CREATE TABLE pictures (
    document INTEGER NOT NULL REFERENCES documents ON DELETE CASCADE,
    page     INTEGER NOT NULL,
    type     INTEGER NOT NULL,
    block    INTEGER NOT NULL,  -- length of the first block
    ended    INTEGER NOT NULL,  -- a shorter block has come
    data     BLOB NOT NULL,
    PRIMARY KEY (document, page, type)
);

CREATE TABLE log_lines (
    document INTEGER NOT NULL REFERENCES documents ON DELETE CASCADE,
    position INTEGER NOT NULL,  -- from 0 on
    line     BLOB NOT NULL,
    PRIMARY KEY (document, position)
) WITHOUT ROWID;

CREATE TABLE jobs (
    document INTEGER PRIMARY KEY REFERENCES documents ON DELETE CASCADE,
    desk     INTEGER NOT NULL,  -- the desk document it came from
    receiver BLOB NOT NULL,     -- as it was asked for
    record   BLOB NOT NULL,     -- a_s_rec
    cancelled INTEGER NOT NULL,
    spool    BLOB NOT NULL      -- file name in the spool folder
);

CREATE TABLE books (
    id     BLOB PRIMARY KEY,
    record BLOB NOT NULL        -- o_tebu
) WITHOUT ROWID;

CREATE TABLE entries (
    book    BLOB NOT NULL REFERENCES books ON DELETE CASCADE,
    id      BLOB NOT NULL,
    nettype INTEGER NOT NULL,
    record  BLOB NOT NULL,      -- o_tebul
    PRIMARY KEY (book, id)
) WITHOUT ROWID;

CREATE TABLE groups (
    id     BLOB PRIMARY KEY,
    record BLOB NOT NULL        -- o_tgroup
) WITHOUT ROWID;

CREATE TABLE members (
    groupid BLOB NOT NULL REFERENCES groups ON DELETE CASCADE,
    book    BLOB NOT NULL,
    id      BLOB NOT NULL,
    PRIMARY KEY (groupid, book, id)
) WITHOUT ROWID;
)sql";

std::int32_t pragma(database& db, const char* sql) {
    statement row(db, sql);
    return row.step() ? row.number(0) : 0;
}

bool is_empty(database& db) {
    return !statement(db, "SELECT 1 FROM sqlite_schema LIMIT 1").step();
}

} // namespace

void require_schema(database& db) {
    const std::int32_t found = pragma(db, "PRAGMA user_version");
    if (found > schema_version)
        throw database_error("the store was written by a newer version of alphad (tables " +
                             std::to_string(found) + ", this one knows " +
                             std::to_string(schema_version) + ")");
    if (found < schema_version)
        throw database_error("the store isn't one of alphad's, or was written by an older version");
}

bool prepare_schema(database& db) {
    db.run("PRAGMA foreign_keys = ON");
    db.run("PRAGMA journal_mode = WAL");
    db.run("PRAGMA synchronous = NORMAL");
    transaction making(db);
    if (pragma(db, "PRAGMA user_version") != 0 || !is_empty(db)) {
        require_schema(db);
        return false;
    }
    db.run(tables);
    db.run(("PRAGMA user_version = " + std::to_string(schema_version)).c_str());
    making.commit();
    return true;
}

} // namespace zerdix::alphad
