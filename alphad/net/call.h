// SPDX-License-Identifier: MIT
// One call of a client: its head, its argument, and the reply to it (RFC 5531, chapter 9).
#ifndef ZERDIX_ALPHAD_NET_CALL_H
#define ZERDIX_ALPHAD_NET_CALL_H

#include <array>
#include <optional>
#include <rpc/rpc.h>

#include "alphad/net/connection.h"
#include "rpc/wire/filter.h"

namespace zerdix::alphad {

class call {
  public:
    // Both must outlive the object.
    call(const std::string& record, connection& peer);
    call(const call&) = delete;
    call& operator=(const call&) = delete;

    // False when the record isn't a call, so that there is nothing to reply to.
    bool is_sound() const { return sound_; }

    std::uint32_t program() const { return static_cast<std::uint32_t>(head_.rm_call.cb_prog); }
    std::uint32_t version() const { return static_cast<std::uint32_t>(head_.rm_call.cb_vers); }
    std::uint32_t procedure() const { return static_cast<std::uint32_t>(head_.rm_call.cb_proc); }
    std::uint64_t connection_number() const { return peer_.number(); }

    // False when the bytes aren't such a record.
    template <class Record>
    bool argument(Record& record) {
        return wire::filter(&stream_, record);
    }

    template <class Record>
    void reply(Record& result) {
        accepted_reply accepted{};
        accepted.ar_stat = SUCCESS;
        accepted.ar_results.where = reinterpret_cast<caddr_t>(&result);
        accepted.ar_results.proc = &wire::xdr_record<Record>;
        send(accepted);
    }

    // One of the RPC errors that carry nothing.
    void fail(accept_stat status);
    void fail_version(std::uint32_t only_version);

    // No reply; the connection ends.
    void drop() { peer_.drop(); }

  private:
    void send(const accepted_reply& accepted);

    connection& peer_;
    rpc_msg head_{};
    std::array<std::array<char, MAX_AUTH_BYTES>, 2> credentials_;
    XDR stream_{};
    bool sound_;
};

} // namespace zerdix::alphad

#endif
