#include <cstdlib>
#include <new>

#include "trace/tracing.h"

namespace {

bool failing = false;

} // namespace

// Replaced for the whole program; nothing but the tracer asks for arrays in this way here.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return failing ? nullptr : std::malloc(size);
}
void* operator new[](std::size_t size) {
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

zerdix::tests::no_memory::no_memory() {
    failing = true;
}
zerdix::tests::no_memory::~no_memory() {
    failing = false;
}
