// SPDX-License-Identifier: MIT
#include "alphad/store/schema.h"

#include "alphad/store/configuration.h"
#include "alphad/store/picture_blocks.h"
#include "alphad/store/users.h"

namespace zerdix::alphad {

namespace {

// Records of the protocol that the server only keeps stand in their wire form.
constexpr const char* first_tables = R"sql(
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
    spool    BLOB NOT NULL      -- file, by its name or its path
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

// What came with version 2. Keys that are compared are whole fields.
constexpr const char* second_tables = R"sql(
CREATE TABLE users (
    userid  BLOB NOT NULL,
    alphaid BLOB NOT NULL,
    record  BLOB NOT NULL,      -- o_user_rec; its alphaid is the column's
    PRIMARY KEY (userid, alphaid)
) WITHOUT ROWID;

CREATE TABLE passwords (
    userid BLOB PRIMARY KEY,
    hash   BLOB NOT NULL        -- as crypt(3) makes it
) WITHOUT ROWID;

CREATE TABLE preferences (
    userid BLOB PRIMARY KEY,
    record BLOB NOT NULL        -- a_user_rec
) WITHOUT ROWID;

CREATE TABLE signatures (
    userid BLOB PRIMARY KEY,
    data   BLOB NOT NULL,
    coming BLOB NOT NULL        -- blocks of a new one, until its last has come
);

CREATE TABLE user_groups (
    id      BLOB PRIMARY KEY,
    comment BLOB NOT NULL
) WITHOUT ROWID;

CREATE TABLE user_members (
    groupid BLOB NOT NULL REFERENCES user_groups ON DELETE CASCADE,
    userid  BLOB NOT NULL,
    alphaid BLOB NOT NULL,
    comment BLOB NOT NULL,
    PRIMARY KEY (groupid, userid, alphaid)
) WITHOUT ROWID;

CREATE TABLE printers (
    id     BLOB PRIMARY KEY,
    record BLOB NOT NULL        -- a_printer_rec
) WITHOUT ROWID;

CREATE TABLE scanners (
    id     BLOB PRIMARY KEY,
    record BLOB NOT NULL        -- a_scanner_rec
) WITHOUT ROWID;

CREATE TABLE board (
    number  INTEGER PRIMARY KEY AUTOINCREMENT,
    kind    INTEGER NOT NULL,
    boardid BLOB NOT NULL,
    text    BLOB NOT NULL,
    time    INTEGER NOT NULL
);

-- How an incoming document came in.
ALTER TABLE documents ADD COLUMN nettype INTEGER NOT NULL DEFAULT 1;
ALTER TABLE documents ADD COLUMN number BLOB NOT NULL DEFAULT x'';
ALTER TABLE documents ADD COLUMN tsi BLOB NOT NULL DEFAULT x'';
ALTER TABLE documents ADD COLUMN error INTEGER NOT NULL DEFAULT 0;
ALTER TABLE documents ADD COLUMN forwarder BLOB NOT NULL DEFAULT x'';
)sql";

// What version 3 changed: the bytes of a picture stand in rows of their own, and spooled files wait
// for the work that they belong to.
constexpr const char* third_tables = R"sql(
ALTER TABLE pictures RENAME TO old_pictures;

CREATE TABLE pictures (
    id       INTEGER PRIMARY KEY,
    document INTEGER NOT NULL REFERENCES documents ON DELETE CASCADE,
    page     INTEGER NOT NULL,
    type     INTEGER NOT NULL,
    block    INTEGER NOT NULL,  -- length of the first block
    size     INTEGER NOT NULL,
    ended    INTEGER NOT NULL,  -- a shorter block has come
    UNIQUE (document, page, type)
);

CREATE TABLE picture_blocks (
    picture INTEGER NOT NULL REFERENCES pictures ON DELETE CASCADE,
    start   INTEGER NOT NULL,   -- offset in the picture
    data    BLOB NOT NULL,
    PRIMARY KEY (picture, start)
);

CREATE TABLE file_changes (
    file    BLOB PRIMARY KEY,   -- by its name or its path
    appears INTEGER NOT NULL    -- otherwise it goes
) WITHOUT ROWID;

INSERT INTO pictures (id, document, page, type, block, size, ended)
    SELECT rowid, document, page, type, block, length(data), ended FROM old_pictures;
)sql";

std::int32_t pragma(database& db, const char* sql) {
    statement row(db, sql);
    return row.step() ? row.number(0) : 0;
}

bool is_empty(database& db) {
    return !statement(db, "SELECT 1 FROM sqlite_schema LIMIT 1").step();
}

void set_version(database& db) {
    db.run(("PRAGMA user_version = " + std::to_string(schema_version)).c_str());
}

// Users of version 1 had a name alone.
void bring_to_second(database& db) {
    db.run("ALTER TABLE users RENAME TO old_users");
    db.run(second_tables);
    {
        configuration values(db);
        users known(db, values);
        statement row(db, "SELECT userid, name FROM old_users");
        while (row.step())
            known.add(row.bytes(0), row.bytes(1));
    }
    db.run("DROP TABLE old_users");
}

// Pictures of version 2 were one value each.
void bring_to_third(database& db) {
    db.run(third_tables);
    {
        statement row(db, "SELECT rowid, data FROM old_pictures");
        while (row.step())
            append_bytes(db, row.integer(0), 0, row.bytes(1));
    }
    db.run("DROP TABLE old_pictures");
}

void make(database& db) {
    db.run(first_tables);
    db.run(second_tables);
    bring_to_third(db);
}

void bring_up_to_date(database& db, std::int32_t from) {
    if (from == 1)
        bring_to_second(db);
    bring_to_third(db);
}

} // namespace

void require_schema(database& db) {
    const std::int32_t found = pragma(db, "PRAGMA user_version");
    if (found == schema_version)
        return;
    if (found > schema_version)
        throw database_error("the store was written by a newer version of alphad (tables " +
                             std::to_string(found) + ", this one knows " +
                             std::to_string(schema_version) + ")");
    if (found >= 1)
        throw database_error("the store was written by an older version of alphad; start the "
                             "server on it once to bring it up to date");
    throw database_error("the store isn't one of alphad's");
}

schema_change prepare_schema(database& db) {
    db.run("PRAGMA foreign_keys = ON");
    db.run("PRAGMA journal_mode = WAL");
    db.run("PRAGMA synchronous = NORMAL");
    transaction making(db);
    const std::int32_t found = pragma(db, "PRAGMA user_version");
    const bool is_new = found == 0 && is_empty(db);
    const bool is_older = found >= 1 && found < schema_version;
    if (is_new)
        make(db);
    else if (is_older)
        bring_up_to_date(db, found);
    else
        require_schema(db);
    if (is_new || is_older)
        set_version(db);
    making.commit();
    return {is_new, is_older ? found : 0};
}

} // namespace zerdix::alphad
