// SPDX-License-Identifier: MIT
#include "rpc/wire/transport.h"

#include <cerrno>
#include <netinet/tcp.h>
#include <new>
#include <optional>

#include "rpc/wire/filter.h"
#include "rpc/wire/procedures.h"
#include "rpc/wire/timed_socket.h"

namespace zerdix::wire {

namespace {

// Large enough that a list of some hundred records crosses in a few reads.
constexpr u_int buffer_size = 64u << 10;

struct record {
    xdrproc_t filter;
    void* data;
};

class transport {
  public:
    // Takes over the handle that the RPC library made.
    explicit transport(CLIENT* connected);
    ~transport();
    transport(const transport&) = delete;
    transport& operator=(const transport&) = delete;

    CLIENT* handle() { return &handle_; }

    clnt_stat call(std::uint32_t procedure, record argument, record result, timeval time);
    const rpc_err& error() const { return error_; }
    bool control(u_int request, void* info);

  private:
    bool send(std::uint32_t procedure, record argument);
    bool go_to_next_record();
    bool await_reply(rpc_msg& reply);
    void receive(record result);
    void fail(clnt_stat failure);
    bool waits_for_record() const;

    CLIENT handle_{};
    CLIENT* connected_;
    XDR stream_{};
    timed_socket socket_;
    rpc_err error_{};
    std::optional<timeval> fixed_time_;
    std::uint32_t program_ = 0;
    std::uint32_t version_ = 0;
    std::uint32_t call_id_ = 0;
    // Set while the stream stands in front of a record with nothing in its buffer: how many bytes
    // had been received by then.
    std::optional<std::uint64_t> in_front_;
    char verifier_[MAX_AUTH_BYTES]; // of the reply; nobody reads it
};

transport& of(CLIENT* handle) {
    return *static_cast<transport*>(handle->cl_private);
}

clnt_stat op_call(CLIENT* handle, rpcproc_t procedure, xdrproc_t argument_filter, void* argument,
                  xdrproc_t result_filter, void* result, timeval time) {
    return of(handle).call(procedure, {argument_filter, argument}, {result_filter, result}, time);
}
void op_abort(CLIENT*) {}
void op_geterr(CLIENT* handle, rpc_err* error) {
    *error = of(handle).error();
}
bool_t op_freeres(CLIENT*, xdrproc_t filter, void* result) {
    xdr_free(filter, result);
    return TRUE;
}
void op_destroy(CLIENT* handle) {
    delete &of(handle);
}
bool_t op_control(CLIENT* handle, u_int request, void* info) {
    return of(handle).control(request, info) ? TRUE : FALSE;
}

CLIENT::clnt_ops operations{op_call, op_abort, op_geterr, op_freeres, op_destroy, op_control};

int file_of(CLIENT* connected) {
    int file = -1;
    clnt_control(connected, CLGET_FD, reinterpret_cast<char*>(&file));
    return file;
}

std::uint32_t number_of(CLIENT* connected, u_int request) {
    std::uint32_t number = 0;
    clnt_control(connected, request, reinterpret_cast<char*>(&number));
    return number;
}

transport::transport(CLIENT* connected) : connected_(connected), socket_(file_of(connected)) {
    handle_.cl_auth = connected->cl_auth;
    handle_.cl_ops = &operations;
    handle_.cl_private = this;
    program_ = number_of(connected, CLGET_PROG);
    version_ = number_of(connected, CLGET_VERS);
    call_id_ = number_of(connected, CLGET_XID);
    // A record goes out in one piece, or in pieces that shouldn't wait for each other's receipt.
    const int on = 1;
    setsockopt(file_of(connected), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    xdrrec_create(
        &stream_, buffer_size, buffer_size, &socket_,
        [](void* socket, void* to, int room) {
            return static_cast<timed_socket*>(socket)->read(static_cast<char*>(to), room);
        },
        [](void* socket, void* from, int length) {
            return static_cast<timed_socket*>(socket)->write(static_cast<char*>(from), length);
        });
}

transport::~transport() {
    XDR_DESTROY(&stream_);
    clnt_destroy(connected_);
}

std::chrono::microseconds duration_of(timeval time) {
    return std::chrono::seconds{time.tv_sec} + std::chrono::microseconds{time.tv_usec};
}

clnt_stat transport::call(std::uint32_t procedure, record argument, record result, timeval time) {
    const int errno_before = errno;
    error_ = {};
    socket_.begin(duration_of(fixed_time_.value_or(time)));
    const bool sent = send(procedure, argument);
    if (sent)
        receive(result);
    else
        fail(RPC_CANTENCODEARGS);
    // After a time-out without a byte of the next record the stream can go on. After any other
    // failure it isn't known where the next record begins.
    if (!sent || (socket_.failure() != RPC_SUCCESS && !waits_for_record()))
        socket_.shut();
    // Callers report errno with a failure: it is the socket's error, or stays as it was.
    errno = socket_.failure() != RPC_SUCCESS ? socket_.error() : errno_before;
    return error_.re_status;
}

bool transport::send(std::uint32_t procedure, record argument) {
    rpc_msg message{};
    message.rm_xid = ++call_id_;
    message.rm_direction = CALL;
    message.rm_call.cb_rpcvers = RPC_MSG_VERSION;
    message.rm_call.cb_prog = program_;
    message.rm_call.cb_vers = version_;
    message.rm_call.cb_proc = procedure;
    message.rm_call.cb_cred = handle_.cl_auth->ah_cred;
    message.rm_call.cb_verf = handle_.cl_auth->ah_verf;
    stream_.x_op = XDR_ENCODE;
    return xdr_callmsg(&stream_, &message) && argument.filter(&stream_, argument.data) &&
           xdrrec_endofrecord(&stream_, TRUE);
}

// Whether the call has timed out without a byte of a next record.
bool transport::waits_for_record() const {
    return socket_.failure() == RPC_TIMEDOUT && in_front_ == socket_.received();
}

// Skips the rest of the record before. After a call that got no reply there is nothing to skip: the
// record stream would take the next reply for the rest of an old one.
bool transport::go_to_next_record() {
    if (in_front_)
        return true;
    const bool buffer_is_empty = xdrrec_eof(&stream_);
    if (!xdrrec_skiprecord(&stream_))
        return false;
    if (buffer_is_empty)
        in_front_ = socket_.received();
    return true;
}

// The header of this call's reply, with the stream at its result.
bool transport::await_reply(rpc_msg& reply) {
    static none no_result; // what follows the header is taken later; the reply keeps its address
    stream_.x_op = XDR_DECODE;
    do {
        reply = {};
        reply.acpted_rply.ar_verf.oa_base = verifier_;
        reply.acpted_rply.ar_results.where = reinterpret_cast<char*>(&no_result);
        reply.acpted_rply.ar_results.proc = &xdr_record<none>;
        const bool came = go_to_next_record() && xdr_replymsg(&stream_, &reply);
        if (!waits_for_record())
            in_front_.reset();
        if (!came)
            return false;
    } while (reply.rm_xid != call_id_);
    return true;
}

void transport::receive(record result) {
    rpc_msg reply;
    if (!await_reply(reply))
        return fail(RPC_CANTDECODERES);
    _seterr_reply(&reply, &error_);
    if (error_.re_status == RPC_SUCCESS && !result.filter(&stream_, result.data))
        fail(RPC_CANTDECODERES);
}

// An error of the socket counts more than the failure that it caused.
void transport::fail(clnt_stat failure) {
    const bool by_socket = socket_.failure() != RPC_SUCCESS;
    error_.re_status = by_socket ? socket_.failure() : failure;
    error_.re_errno = by_socket ? socket_.error() : 0;
}

bool transport::control(u_int request, void* info) {
    const auto number = static_cast<std::uint32_t*>(info);
    switch (request) {
    case CLSET_TIMEOUT:
        fixed_time_ = *static_cast<timeval*>(info);
        return true;
    case CLGET_TIMEOUT:
        *static_cast<timeval*>(info) = fixed_time_.value_or(timeval{});
        return true;
    case CLGET_XID:
        *number = call_id_;
        return true;
    case CLSET_XID: // of the next call
        call_id_ = *number - 1;
        return true;
    case CLGET_PROG:
        *number = program_;
        return true;
    case CLSET_PROG:
        program_ = *number;
        return true;
    case CLGET_VERS:
        *number = version_;
        return true;
    case CLSET_VERS:
        version_ = *number;
        return true;
    default:
        return clnt_control(connected_, request, static_cast<char*>(info)) != 0;
    }
}

} // namespace

CLIENT* connect(sockaddr_in address, std::uint32_t program) {
    int socket = RPC_ANYSOCK;
    CLIENT* connected = clnttcp_create(&address, program, ZERDIX_VERS, &socket, 0, 0);
    if (connected == nullptr)
        return nullptr;
    auto* made = new (std::nothrow) transport(connected);
    if (made != nullptr)
        return made->handle();
    clnt_destroy(connected);
    rpc_createerr.cf_stat = RPC_SYSTEMERROR;
    rpc_createerr.cf_error.re_errno = ENOMEM;
    return nullptr;
}

} // namespace zerdix::wire
