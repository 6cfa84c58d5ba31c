// SPDX-License-Identifier: MIT
// Any bytes as the result of any procedure: the first byte chooses the procedure, the second how
// the bytes are cut up on their way, the rest is the result's body.
//
// Whether it comes from memory or in small pieces through a record stream, it decodes alike. What
// decoded is read, takes as many bytes as were taken, and comes back the same when it is encoded
// and decoded again. It is released, whole or half, and once more.
#include <algorithm>
#include <memory>

#include "hostile/shapes.h"
#include "require.h"
#include "rpc/wire/procedures.h"

namespace {

using namespace zerdix;
using byte_vector = std::vector<unsigned char>;

constexpr u_int stream_buffer = 100; // the smallest that a record stream takes

struct decoded {
    bool good;
    byte_vector again; // encoded, when good
};

// A body on its way through a record stream: fragments of a few bytes, reads of fewer.
class pieces {
  public:
    pieces(const byte_vector& body, unsigned cut) : step_(static_cast<int>(cut / 16) + 1) {
        const std::size_t fragment = cut % 16 + 1;
        for (std::size_t at = 0; at < body.size(); at += fragment)
            add(body, at, std::min(body.size(), at + fragment));
        if (body.empty())
            bytes_ = {0x80, 0, 0, 0};
        xdrrec_create(&stream_, stream_buffer, stream_buffer, this, &pieces::read, nullptr);
        stream_.x_op = XDR_DECODE;
        xdrrec_skiprecord(&stream_);
    }
    ~pieces() { XDR_DESTROY(&stream_); }
    pieces(const pieces&) = delete;
    pieces& operator=(const pieces&) = delete;

    XDR* stream() { return &stream_; }

  private:
    void add(const byte_vector& body, std::size_t from, std::size_t to) {
        const auto last = static_cast<unsigned char>(to == body.size() ? 0x80 : 0);
        bytes_.insert(bytes_.end(), {last, 0, 0, static_cast<unsigned char>(to - from)});
        bytes_.insert(bytes_.end(), body.begin() + static_cast<std::ptrdiff_t>(from),
                      body.begin() + static_cast<std::ptrdiff_t>(to));
    }
    static int read(void* self, void* to, int room) {
        auto& from = *static_cast<pieces*>(self);
        const auto left = static_cast<int>(from.bytes_.size() - from.taken_);
        const int size = std::min({from.step_, room, left});
        std::memcpy(to, from.bytes_.data() + from.taken_, static_cast<std::size_t>(size));
        from.taken_ += static_cast<std::size_t>(size);
        return size > 0 ? size : -1;
    }

    byte_vector bytes_;
    std::size_t taken_ = 0;
    int step_;
    XDR stream_{};
};

template <class T>
byte_vector encode(T& record, std::size_t room) {
    byte_vector bytes(room + 4);
    XDR stream;
    xdrmem_create(&stream, reinterpret_cast<char*>(bytes.data()), static_cast<u_int>(bytes.size()),
                  XDR_ENCODE);
    require(wire::filter(&stream, record));
    bytes.resize(xdr_getpos(&stream));
    return bytes;
}

template <class T>
void read(const T& record) {
    [[maybe_unused]] static volatile std::size_t sink;
    sink = testing::walk(record);
    if constexpr (requires { record.count; }) {
        const std::unique_ptr<PTRLIST> list(rpc::list_of(record));
        require(list->getSize() <= static_cast<std::uint32_t>(std::max(record.count, 0)));
    }
}

template <class T>
decoded decode(XDR* stream, std::size_t size) {
    T record{};
    decoded result{wire::filter(stream, record), {}};
    if (result.good) {
        read(record);
        result.again = encode(record, size);
    }
    wire::release(record);
    wire::release(record);
    return result;
}

template <class T>
decoded decode_from_memory(byte_vector body, std::size_t& taken) {
    XDR stream;
    xdrmem_create(&stream, reinterpret_cast<char*>(body.data()), static_cast<u_int>(body.size()),
                  XDR_DECODE);
    const decoded result = decode<T>(&stream, body.size());
    taken = xdr_getpos(&stream);
    return result;
}

template <class T>
void check(const byte_vector& body, unsigned cut) {
    std::size_t taken = 0, taken_again = 0;
    const decoded whole = decode_from_memory<T>(body, taken);
    pieces small(body, cut);
    const decoded cut_up = decode<T>(small.stream(), body.size());
    require(whole.good == cut_up.good && whole.again == cut_up.again);
    if (!whole.good)
        return;
    require(whole.again.size() == taken);
    require(decode_from_memory<T>(whole.again, taken_again).again == whole.again);
}

template <class... P>
void check_procedure(wire::procedure_list<P...>, unsigned choice, const byte_vector& body,
                     unsigned cut) {
    unsigned at = 0;
    (void)((at++ == choice && (check<typename P::result>(body, cut), true)) || ...);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    using all = wire::all_procedures;
    check_procedure(all{}, data[0] % all::size, byte_vector(data + 2, data + size), data[1]);
    return 0;
}
