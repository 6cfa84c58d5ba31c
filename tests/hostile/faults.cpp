// SPDX-License-Identifier: MIT
#include "hostile/faults.h"

#include "hostile/shapes.h"
#include "rpc/wire/procedures.h"

namespace zerdix::testing {

namespace {

using namespace std::chrono_literals;

template <class T>
byte_vector filled(const shape& as) {
    T record{};
    fill(record, as);
    byte_vector bytes = encode(record);
    wire::release(record);
    return bytes;
}

template <class P>
answers answers_of() {
    using result = typename P::result;
    result zero{};
    shape brim, more, less;
    brim.to_the_brim = true;
    more.count = std::numeric_limits<std::int32_t>::max();
    less.count = 1;
    answers forms{filled<result>({}),
                  encode(zero),
                  filled<result>(brim),
                  filled<result>(more),
                  filled<result>(less),
                  wire::is_dynamic<result>(),
                  false};
    if constexpr (requires { zero.first; })
        forms.has_chain = true;
    return forms;
}

template <class... P>
std::map<std::uint32_t, answers> collect(wire::procedure_list<P...>) {
    std::map<std::uint32_t, answers> all{{P::number, answers_of<P>()}...};
    // Where a 5 or three letters would end an operation early.
    all[wire::proc::a_get_compat_1::number].sound = wire_bytes{}.words({1, 8}).bytes();
    all[wire::proc::a_get_login_1::number].sound = wire_bytes{}.words({5, 0}).bytes();
    all[wire::proc::a_get_config_1::number].sound = wire_bytes{}.text("40", 80).bytes();
    auto& user = all[wire::proc::a_get_user_1::number];
    user.sound = user.refusal; // without letterheads
    auto& log = all[wire::proc::a_get_logl_1::number];
    log.sound = log.more_counted = log.refusal; // the end of a log
    for (auto& [number, forms] : all)
        if (!forms.is_dynamic)
            forms.more_counted = forms.sound;
    return all;
}

fault rpc_error(const char* name, std::vector<std::uint32_t> words) {
    return {name, outcome::fails,
            [words = std::move(words)](const auto& call, const auto&, auto& client) {
                send_words(call, words, client);
            }};
}

fault other_form(const char* name, outcome expected, byte_vector answers::*form) {
    return {name, expected, [form](const auto& call, const auto& of, auto& client) {
                client.send(record_of(reply_to(call, of.*form)));
            }};
}

// Lengths, counts, truth values and characters alike.
fault words_of(const char* name, std::uint32_t word) {
    return {name, outcome::dynamic, [word](const auto& call, const auto& of, auto& client) {
                wire_bytes result;
                while (result.size() < of.sound.size())
                    result.word(word);
                client.send(record_of(reply_to(call, result.bytes())));
            }};
}

void send_ten_million_nodes(const incoming_call& call, const answers& of, peer& client) {
    constexpr std::uint32_t words = 10'000'000, piece = 10'000;
    if (!of.has_chain)
        return client.close();
    wire_bytes beginning, ones;
    client.send(beginning.word(0x80000000u | (24 + 4 * words)).append(reply_to(call, {})).bytes());
    for (std::uint32_t i = 0; i < piece; ++i)
        ones.word(1);
    for (std::uint32_t sent = 0; sent < words && client.send(ones.bytes()); sent += piece)
        ;
}

} // namespace

const std::map<std::uint32_t, answers>& all_answers() {
    static const auto all = collect(wire::all_procedures{});
    return all;
}

const std::vector<fault>& quick_faults() {
    static const std::vector<fault> all = {
        other_form("a refusal", outcome::refused, &answers::refusal),
        rpc_error("no such program", {1, 0, 0, 0, 1}),
        rpc_error("other versions", {1, 0, 0, 0, 2, 3, 4}),
        rpc_error("no such procedure", {1, 0, 0, 0, 3}),
        rpc_error("arguments not understood", {1, 0, 0, 0, 4}),
        rpc_error("an error of the server's system", {1, 0, 0, 0, 5}),
        rpc_error("another RPC version", {1, 1, 0, 2, 2}),
        rpc_error("a rejected caller", {1, 1, 1, 5}),
        {"closed before the reply", outcome::lost,
         [](const auto&, const auto&, auto& client) { client.close(); }},
        {"closed behind the reply", outcome::ends_later,
         [](const auto& call, const auto& of, auto& client) {
             client.send(record_of(reply_to(call, of.sound)));
             client.close();
         }},
        {"empty fragments", outcome::fails,
         [](const auto&, const auto&, auto& client) {
             client.send(wire_bytes{}.words({0, 0x80000000}).bytes());
         }},
        {"two empty records", outcome::lost,
         [](const auto&, const auto&, auto& client) {
             client.send(wire_bytes{}.words({0x80000000, 0x80000000}).bytes());
             client.close();
         }},
        {"a reply to another call first", outcome::goes_well,
         [](const auto& call, const auto& of, auto& client) {
             client.send(record_of(reply_to({call.id + 7, 0}, of.refusal)));
             client.send(record_of(reply_to(call, of.sound)));
         }},
        {"nothing but a reply to another call", outcome::lost,
         [](const auto& call, const auto& of, auto& client) {
             client.send(record_of(reply_to({call.id - 1, 0}, of.sound)));
             client.close();
         }},
        other_form("texts filled to the brim", outcome::anything, &answers::to_the_brim),
        other_form("a count larger than the chain", outcome::goes_well, &answers::more_counted),
        other_form("a count smaller than the chain", outcome::anything, &answers::less_counted),
        words_of("2^31 everywhere", 0x80000000u),
        words_of("2^32 - 1 everywhere", 0xFFFFFFFFu),
        words_of("2^31 - 1 everywhere", 0x7FFFFFFFu),
        words_of("64 MiB everywhere", wire::max_field_bytes),
    };
    return all;
}

fault connection_cut_at(std::size_t k) {
    return {"a connection that ends", outcome::lost,
            [k](const auto& call, const auto& of, auto& client) {
                const byte_vector reply = record_of(reply_to(call, of.sound));
                client.send(reply.data(), std::min(k, reply.size()));
                client.close();
            }};
}

const std::vector<fault>& slow_faults() {
    static const std::vector<fault> all = {
        {"ten million nodes", outcome::lost, send_ten_million_nodes},
        {"a drip from the first byte on", outcome::lost,
         [](const auto& call, const auto& of, auto& client) {
             client.drip(record_of(reply_to(call, of.sound)), 20ms);
         }},
        {"a drip from the header's end on", outcome::lost,
         [](const auto& call, const auto&, auto& client) {
             const byte_vector header =
                 wire_bytes{}.word(0xF0000000u).append(reply_to(call, {})).bytes();
             client.send(header.data(), header.size() - 4);
             client.drip(byte_vector(1000, 0), 20ms);
         }},
    };
    return all;
}

troubled_server::troubled_server() {
    server.on_call([this](const auto& call, auto& client) { answer(call, client); });
}

void troubled_server::begin(int n, const fault* met) {
    calls_ = 0;
    troubled_call_ = n;
    trouble_ = met;
}

// In the server's thread, while the client waits.
void troubled_server::answer(const incoming_call& call, peer& client) {
    const answers& of = all_answers().at(call.procedure);
    procedures_.at(static_cast<std::size_t>(calls_)) = call.procedure;
    if (calls_++ != troubled_call_)
        client.send(record_of(reply_to(call, of.sound)));
    else
        trouble_->answer(call, of, client);
}

} // namespace zerdix::testing
