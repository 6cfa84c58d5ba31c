// SPDX-License-Identifier: MIT
// How ZERDIX, JOURNAL and TELEBOOK own what their operations return. A caller has no use for these
// types: they stand here since the classes have members of them. Each is as large as the pointer or
// the record that it owns.
#ifndef ZERDIX_HELD_RESULT_H
#define ZERDIX_HELD_RESULT_H

#include <cstdint>
#include <cstdlib>
#include <memory>

#include <zerdix/records.h>

namespace zerdix {

namespace wire {
template <class Record>
struct result_place; // a procedure's result record, and who made the last call of the procedure
}

namespace rpc {
template <class Record>
class record_list; // a PTRLIST whose elements may be copies of its own
}

// The result of a remote call. The record is the procedure's: when another holder has called the
// procedure since, what is in it is that one's. So a result that goes releases the record only when
// it made the procedure's last call.
template <class Record>
class held_result {
  public:
    held_result() = default;
    ~held_result() { reset(); }

    held_result(const held_result&) = delete;
    held_result& operator=(const held_result&) = delete;

    Record* get() const;
    Record* operator->() const { return get(); }
    Record& operator*() const { return *get(); }

    // Whether the record still holds what this one's own call brought.
    bool is_own() const;

    // Releases the record if it is its own, and holds nothing from then on.
    void reset();

    // Notes that this one has just called the procedure, and holds the result of a call that
    // succeeded.
    void take_call(wire::result_place<Record>& place, bool succeeded);

    // Holds nothing from then on and releases nothing. What is returned can be put back.
    wire::result_place<Record>* detach();
    void attach(wire::result_place<Record>* place) { place_ = place; }

  private:
    wire::result_place<Record>* place_ = nullptr;
};

struct free_memory {
    void operator()(void* memory) const { std::free(memory); }
};

// Text in memory of malloc.
using held_text = std::unique_ptr<char, free_memory>;

// Bytes in memory of malloc, empty at first.
struct held_page : page_dat {
    held_page() : page_dat{0, nullptr} {}
    ~held_page() { std::free(data); }

    held_page(const held_page&) = delete;
    held_page& operator=(const held_page&) = delete;

    // Frees the bytes and makes room for others, with the size 0. False when memory runs out.
    bool make_room(std::uint32_t bytes) {
        std::free(data);
        size = 0;
        data = static_cast<unsigned char*>(std::malloc(bytes));
        return data != nullptr;
    }
};

} // namespace zerdix

#endif
