// SPDX-License-Identifier: MIT
#ifndef ZERDIX_GALLERY_CLIPPED_H
#define ZERDIX_GALLERY_CLIPPED_H

#include <QStringList>

class QWidget;

namespace zerdix::gallery {

// The words in the window that don't fit into their place, with what is missing, and controls that
// lie over each other.
QStringList misplaced(const QWidget& window);

} // namespace zerdix::gallery

#endif
