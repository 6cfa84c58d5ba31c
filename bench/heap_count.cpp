// SPDX-License-Identifier: MIT
#include "bench/heap_count.h"

#include <algorithm>
#include <cerrno>
#include <malloc.h>

// The C library's own allocator under its other names.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

zerdix::bench::heap_count heap{};

void* counted(void* block) {
    if (block == nullptr)
        return nullptr;
    heap.bytes += malloc_usable_size(block);
    heap.blocks += 1;
    heap.peak = std::max(heap.peak, heap.bytes);
    return block;
}

void given_back(std::size_t size) {
    heap.bytes -= size;
    heap.blocks -= 1;
}

} // namespace

extern "C" {

__attribute__((visibility("default"))) void* malloc(std::size_t size) noexcept {
    return counted(__libc_malloc(size));
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size) noexcept {
    return counted(__libc_calloc(count, size));
}

// A block that could not be made larger stays, and stays counted; size 0 gives it back.
__attribute__((visibility("default"))) void* realloc(void* block, std::size_t size) noexcept {
    const std::size_t before = malloc_usable_size(block);
    void* changed = __libc_realloc(block, size);
    if (block != nullptr && (changed != nullptr || size == 0))
        given_back(before);
    return counted(changed);
}

__attribute__((visibility("default"))) void* memalign(std::size_t alignment,
                                                      std::size_t size) noexcept {
    return counted(__libc_memalign(alignment, size));
}

__attribute__((visibility("default"))) void* aligned_alloc(std::size_t alignment,
                                                           std::size_t size) noexcept {
    return counted(__libc_memalign(alignment, size));
}

__attribute__((visibility("default"))) int posix_memalign(void** block, std::size_t alignment,
                                                          std::size_t size) noexcept {
    void* made = counted(__libc_memalign(alignment, size));
    if (made == nullptr)
        return ENOMEM;
    *block = made;
    return 0;
}

__attribute__((visibility("default"))) void free(void* block) noexcept {
    if (block == nullptr)
        return;
    given_back(malloc_usable_size(block));
    __libc_free(block);
}

} // extern "C"

namespace zerdix::bench {

heap_count count_heap() {
    return heap;
}

void reset_heap_peak() {
    heap.peak = heap.bytes;
}

} // namespace zerdix::bench
