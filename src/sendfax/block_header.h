// The header of the work buffer while a page preparer has it.
#ifndef ZERDIX_SENDFAX_BLOCK_HEADER_H
#define ZERDIX_SENDFAX_BLOCK_HEADER_H

#include "imaging/page_forms.h"

namespace zerdix::sendfax {

// Turns the header into the machine's byte order, and back at the end of the scope.
class header_in_machine_order {
  public:
    explicit header_in_machine_order(unsigned char* block) : block_(block) { turn(); }
    ~header_in_machine_order() { turn(); }
    header_in_machine_order(const header_in_machine_order&) = delete;
    header_in_machine_order& operator=(const header_in_machine_order&) = delete;

    imaging::block_size size() const { return imaging::read_block_size(block_); }

  private:
    static std::int32_t turned(std::int32_t word) {
        return static_cast<std::int32_t>(imaging::SwapLong(static_cast<std::uint32_t>(word)));
    }
    void turn() {
        const imaging::block_size now = size();
        imaging::write_block_size(block_, {turned(now.width), turned(now.height)});
    }

    unsigned char* block_;
};

} // namespace zerdix::sendfax

#endif
