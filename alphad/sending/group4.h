// SPDX-License-Identifier: MIT
// Group 4 coding of fax pages (ITU-T T.6): each row as its difference from the one above.
#ifndef ZERDIX_ALPHAD_SENDING_GROUP4_H
#define ZERDIX_ALPHAD_SENDING_GROUP4_H

#include <string>

#include "pages/page_picture.h"

namespace zerdix::alphad {

// The rows of the picture, a set bit black, with the end-of-block code behind them; most
// significant bit first, filled up to a whole byte.
std::string group4_code(const zerdix::pages::page_picture& picture);

} // namespace zerdix::alphad

#endif
