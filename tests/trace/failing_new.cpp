// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <new>

#include "trace/tracing.h"

namespace {

bool failing = false;
int arrays = 0;

} // namespace

// Replaced for the whole program; nothing but the tracer asks for arrays in this way here.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    void* memory = failing ? nullptr : std::malloc(size);
    arrays += memory != nullptr;
    return memory;
}
void* operator new[](std::size_t size) {
    if (void* memory = ::operator new[](size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}
void operator delete[](void* memory) noexcept {
    arrays -= memory != nullptr;
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    ::operator delete[](memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    ::operator delete[](memory);
}

int zerdix::tests::owned_arrays() {
    return arrays;
}

zerdix::tests::no_memory::no_memory() {
    failing = true;
}
zerdix::tests::no_memory::~no_memory() {
    failing = false;
}
