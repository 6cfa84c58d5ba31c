// SPDX-License-Identifier: MIT
// PTRLIST: the list that the library hands out, an array of untyped pointers with a size.
//
// The list owns its array and never what the elements point to. Which record an element points to,
// and how long it is good, is said by the operation that returned the list. A list belongs to one
// thread.
#ifndef ZERDIX_PTRLIST_H
#define ZERDIX_PTRLIST_H

#include <cstdint>

#include <zerdix/export.h>

class ZX_API PTRLIST {
  public:
    PTRLIST();

    // n slots that hold nothing in particular until setPtr fills them.
    explicit PTRLIST(std::uint32_t n);

    ~PTRLIST();

    PTRLIST(const PTRLIST&) = delete;
    PTRLIST& operator=(const PTRLIST&) = delete;

    // The element at i, or null when i isn't below getSize().
    void* operator[](std::uint32_t i) const;

    // 0, or 4 when i isn't below getSize(); the list doesn't grow by itself.
    std::int32_t setPtr(std::uint32_t i, void* p);

    std::uint32_t getSize() const;

    // Keeps the first n elements when shrinking. New slots hold nothing in particular.
    void setSize(std::uint32_t n);

  private:
    std::uint32_t size;
    void** slots;
};

#endif
