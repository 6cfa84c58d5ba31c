// SPDX-License-Identifier: MIT
// Decoding a record against the same record taken field by field through the RPC library's own
// filters, as a stub generator writes them: texts by xdr_vector of xdr_char, numbers by xdr_int and
// xdr_short. Both read the same bytes out of memory, in turns, and the best of each counts.
#include <cstdarg>
#include <vector>

#include <boost/pfr.hpp>

#include "bench/measure.h"
#include "rpc/wire/filter.h"
#include "rpc/wire/procedures.h"

using namespace zerdix;

namespace {

constexpr int records = 2000;
constexpr int rounds = 60;
constexpr double least = 3;

template <std::size_t N>
bool plain(XDR* stream, text<N>& field) {
    return xdr_vector(stream, field.bytes, N + 1, 1, reinterpret_cast<xdrproc_t>(&xdr_char)) != 0;
}
template <std::size_t N>
bool plain(XDR* stream, opaque<N>& field) {
    return xdr_opaque(stream, reinterpret_cast<char*>(field.bytes), N) != 0;
}
bool plain(XDR* stream, boolean& field) {
    return xdr_bool(stream, &field.value) != 0;
}
bool plain(XDR* stream, std::int32_t& field) {
    return xdr_int(stream, &field) != 0;
}
bool plain(XDR* stream, std::int16_t& field) {
    return xdr_short(stream, &field) != 0;
}
template <class T, std::size_t N>
bool plain(XDR* stream, std::array<T, N>& fields) {
    bool good = true;
    for (T& field : fields)
        good = good && plain(stream, field);
    return good;
}
template <class Record>
requires std::is_aggregate_v<Record>
bool plain_record(XDR* stream, Record& record) {
    bool good = true;
    boost::pfr::for_each_field(record, [&](auto& field) { good = good && plain(stream, field); });
    return good;
}

template <class Record>
std::vector<char> encoded(Record record) {
    std::vector<char> buffer(records * sizeof(Record) * 4);
    XDR stream;
    xdrmem_create(&stream, buffer.data(), static_cast<u_int>(buffer.size()), XDR_ENCODE);
    for (int i = 0; i < records; ++i)
        bench::require(wire::filter(&stream, record), "encoding");
    buffer.resize(xdr_getpos(&stream));
    return buffer;
}

template <class Record, class Decode>
void decode_all(std::vector<char>& bytes, std::vector<Record>& to, Decode decode) {
    XDR stream;
    xdrmem_create(&stream, bytes.data(), static_cast<u_int>(bytes.size()), XDR_DECODE);
    for (Record& record : to)
        bench::require(decode(&stream, record), "decoding");
}

template <class Record>
bool compare(const char* name, const Record& sample) {
    std::vector<char> bytes = encoded(sample);
    std::vector<Record> ours(records), theirs(records);
    bench::best_time fast, plain_time;
    for (int round = 0; round < rounds; ++round) {
        fast.run([&] { decode_all(bytes, ours, &wire::filter<Record>); });
        plain_time.run([&] { decode_all(bytes, theirs, &plain_record<Record>); });
    }
    bench::require(encoded(ours.front()) == encoded(theirs.back()), "the same record from both");
    std::printf("%-14s %5zu bytes   filter %7.1f ns   xdr_vector of xdr_char %7.1f ns\n", name,
                bytes.size() / records, fast.microseconds() * 1000 / records,
                plain_time.microseconds() * 1000 / records);
    return bench::bar_from_below("field by field : filter",
                                 plain_time.microseconds() / fast.microseconds(), least, "");
}

} // namespace

int main() {
    bench::keep_to_one_processor();
    o_tebul entry{};
    entry.teleid.assign("kanzlei");
    entry.phone.assign("+49 30 23125 101");
    entry.nettype = NETTYPE_FAX;
    o_user_rec user{};
    user.comment.assign("Clara Beispiel");
    a_s_rec job{};
    job.faxid = 17;
    job.comment.assign("Angebot");
    bool held = compare("o_tebul", entry);
    held = compare("o_user_rec", user) && held;
    held = compare("a_s_rec", job) && held;
    held = compare("o_tebu", o_tebu{}) && held;
    return held ? 0 : 1;
}
