// SPDX-License-Identifier: MIT
#include "alphad/net/call.h"

namespace zerdix::alphad {

namespace {

// A reply on its way into a connection, in fragments of at most this size.
class reply_stream {
  public:
    explicit reply_stream(connection& to) {
        xdrrec_create(&stream_, fragment_bytes, 0, &to, nullptr, write);
        stream_.x_op = XDR_ENCODE;
    }
    ~reply_stream() { XDR_DESTROY(&stream_); }
    reply_stream(const reply_stream&) = delete;
    reply_stream& operator=(const reply_stream&) = delete;

    bool send(rpc_msg& message) {
        return xdr_replymsg(&stream_, &message) && xdrrec_endofrecord(&stream_, TRUE);
    }

  private:
    static constexpr u_int fragment_bytes = 64u << 10;

    static int write(void* to, void* bytes, int size) {
        static_cast<connection*>(to)->send(
            {static_cast<const char*>(bytes), static_cast<std::size_t>(size)});
        return size;
    }

    XDR stream_{};
};

} // namespace

call::call(const std::string& record, connection& peer) : peer_(peer) {
    head_.rm_call.cb_cred.oa_base = credentials_[0].data();
    head_.rm_call.cb_verf.oa_base = credentials_[1].data();
    // The stream only reads.
    xdrmem_create(&stream_, const_cast<char*>(record.data()), static_cast<u_int>(record.size()),
                  XDR_DECODE);
    sound_ = xdr_callmsg(&stream_, &head_);
}

void call::fail(accept_stat status) {
    accepted_reply accepted{};
    accepted.ar_stat = status;
    send(accepted);
}

void call::fail_version(std::uint32_t only_version) {
    accepted_reply accepted{};
    accepted.ar_stat = PROG_MISMATCH;
    accepted.ar_vers.low = accepted.ar_vers.high = only_version;
    send(accepted);
}

// A reply that can't be written whole leaves a connection that nobody can use any more.
void call::send(const accepted_reply& accepted) {
    rpc_msg message{};
    message.rm_xid = head_.rm_xid;
    message.rm_direction = REPLY;
    message.rm_reply.rp_stat = MSG_ACCEPTED;
    message.acpted_rply = accepted;
    message.acpted_rply.ar_verf = _null_auth;
    if (!reply_stream(peer_).send(message))
        peer_.drop();
}

} // namespace zerdix::alphad
