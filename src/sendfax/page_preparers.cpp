#include "sendfax/page_preparers.h"

#include "sendfax/job.h"

namespace zerdix::sendfax {

std::int32_t MergeBackPaper(unsigned char*, std::int32_t, std::int16_t, page_dat*) {
    return declined;
}

std::int32_t RotateBitmap(unsigned char*, std::int32_t, page_dat*) {
    return declined;
}

} // namespace zerdix::sendfax
