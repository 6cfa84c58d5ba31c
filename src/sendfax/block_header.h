// SPDX-License-Identifier: MIT
// The header of the work buffer while a page preparer has it.
#ifndef ZERDIX_SENDFAX_BLOCK_HEADER_H
#define ZERDIX_SENDFAX_BLOCK_HEADER_H

#include "pages/page_block.h"

namespace zerdix::sendfax {

// Turns the header into the machine's byte order, and back at the end of the scope.
class header_in_machine_order {
  public:
    explicit header_in_machine_order(unsigned char* block)
        : block_(block), size_(pages::read_header(block, pages::header_form::stored)) {
        pages::write_header(block_, size_, pages::header_form::machine);
    }
    ~header_in_machine_order() { pages::write_header(block_, size_, pages::header_form::stored); }
    header_in_machine_order(const header_in_machine_order&) = delete;
    header_in_machine_order& operator=(const header_in_machine_order&) = delete;

    pages::page_size size() const { return size_; }

  private:
    unsigned char* block_;
    pages::page_size size_;
};

} // namespace zerdix::sendfax

#endif
