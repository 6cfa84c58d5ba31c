// SPDX-License-Identifier: MIT
#include "documents/document_name.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zerdix::app {

namespace {

struct pool_words {
    topftype pool;
    const char* word;
    const char* prefix;
};

constexpr std::array<pool_words, 3> pools{{
    {TOPF_E, "incoming", "in"},
    {TOPF_S, "outgoing", "out"},
    {TOPF_P, "desk", "desk"},
}};

const pool_words& words_of(topftype pool) {
    return *std::find_if(pools.begin(), pools.end(),
                         [pool](const pool_words& words) { return words.pool == pool; });
}

std::int32_t read_id(const std::string& typed, std::string_view digits) {
    std::int32_t id = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), id);
    if (error != std::errc() || end != digits.end() || id <= 0)
        throw failure(exit_usage, '"' + typed +
                                      "\" is no document: a number is expected, or in:, out: or "
                                      "desk: and a number");
    return id;
}

template <class Record>
bool is_there(const Record& record) {
    return record.faxid != 0;
}

bool exists(user_session& user, const document& which) {
    const std::string doing = "looking up " + name_of(which);
    JOURNAL& journal = user.journal();
    switch (which.pool) {
    case TOPF_E:
        return is_there(user.fetch(doing, [&] { return journal.getEDoc(which.id); }));
    case TOPF_S:
        return is_there(user.fetch(doing, [&] { return journal.getSDoc(which.id); }));
    default:
        return is_there(user.fetch(doing, [&] { return journal.getPDoc(which.id); }));
    }
}

std::vector<document> all_of_number(user_session& user, std::int32_t id) {
    std::vector<document> found;
    for (const pool_words& words : pools) {
        if (exists(user, {words.pool, id}))
            found.push_back({words.pool, id});
    }
    return found;
}

failure clash(const std::vector<document>& found) {
    std::string names;
    for (const document& each : found)
        names += (names.empty() ? "" : " or ") + std::string(words_of(each.pool).prefix) + ':' +
                 std::to_string(each.id);
    return {exit_usage,
            "there are several documents " + std::to_string(found[0].id) + "; say " + names};
}

failure none(const std::string& name) {
    return {exit_no_input, "there is no " + name};
}

} // namespace

const char* pool_word(topftype pool) {
    return words_of(pool).word;
}

std::optional<topftype> pool_of_word(std::string_view word) {
    for (const pool_words& words : pools) {
        if (word == words.word || word == words.prefix)
            return words.pool;
    }
    return std::nullopt;
}

std::string name_of(const document& which) {
    return pool_word(which.pool) + std::string(" document ") + std::to_string(which.id);
}

document_name read_document_name(const std::string& typed) {
    const std::size_t colon = typed.find(':');
    if (colon == std::string::npos)
        return {std::nullopt, read_id(typed, typed)};
    const auto pool = pool_of_word(std::string_view(typed).substr(0, colon));
    if (!pool)
        throw failure(exit_usage, '"' + typed + "\": the pools are in, out and desk");
    return {pool, read_id(typed, std::string_view(typed).substr(colon + 1))};
}

void check_document_names(const std::vector<std::string>& typed) {
    for (const std::string& name : typed)
        read_document_name(name);
}

document find_document(user_session& user, const std::string& typed) {
    const document_name name = read_document_name(typed);
    if (name.pool) {
        const document named{*name.pool, name.id};
        if (!exists(user, named))
            throw none(name_of(named));
        return named;
    }
    const std::vector<document> found = all_of_number(user, name.id);
    if (found.empty())
        throw none("document " + typed);
    if (found.size() > 1)
        throw clash(found);
    return found.front();
}

document find_document(user_session& user, const std::string& typed, topftype pool,
                       const char* rule) {
    const document_name name = read_document_name(typed);
    const document wanted{pool, name.id};
    if (name.pool.value_or(pool) == pool && exists(user, wanted))
        return wanted;
    const document other = find_document(user, typed);
    throw failure(exit_usage, name_of(other) + ": " + rule);
}

} // namespace zerdix::app
