// SPDX-License-Identifier: MIT
#include <zerdix/ptrlist.h>

#include <algorithm>

PTRLIST::PTRLIST() : size(0), slots(nullptr) {}

PTRLIST::PTRLIST(std::uint32_t n) : size(n), slots(n == 0 ? nullptr : new void*[n]) {}

PTRLIST::~PTRLIST() {
    delete[] slots;
}

void* PTRLIST::operator[](std::uint32_t i) const {
    return i < size ? slots[i] : nullptr;
}

std::int32_t PTRLIST::setPtr(std::uint32_t i, void* p) {
    if (i >= size)
        return 4;
    slots[i] = p;
    return 0;
}

std::uint32_t PTRLIST::getSize() const {
    return size;
}

// A shrinking list keeps its array. One that grows gets exactly n slots.
void PTRLIST::setSize(std::uint32_t n) {
    if (n > size) {
        void** grown = new void*[n];
        std::copy_n(slots, size, grown);
        delete[] slots;
        slots = grown;
    }
    size = n;
}
