/* SPDX-License-Identifier: MIT */
/* A stored page as rows of pixels, and back. Usable from C and C++.
 *
 * The server keeps a fax page compressed, as JOURNAL::getDocPage gives it (picture types 0 and 1)
 * and JOURNAL::putDocPage takes it. A printer driver hands pages in uncompressed, see
 * zerdix/sendfax.h.
 *
 * Nothing here needs a connection, and nothing is kept: calls on different threads don't meet.
 */
#ifndef ZERDIX_PAGE_H
#define ZERDIX_PAGE_H

#include <stdint.h>

#include <zerdix/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The fax page, by ITU-T T.4: pixels a row, and pixels an inch across. Down the page there are 196
 * rows an inch, in normal resolution 98. */
enum {
    ZX_PAGE_WIDTH = 1728,
    ZX_DPI_ACROSS = 204,
    ZX_DPI_FINE = 196,
    ZX_DPI_NORMAL = 98,
};

/* Rows from the top of the page, `row_bytes` each, eight pixels a byte, leftmost pixel in bit 7, a
 * set bit black: as in a PBM file. Bits behind the last pixel of a row have no meaning. */
struct zx_page {
    uint32_t width;      /* pixels, 1 to 65,535 */
    uint32_t height;     /* rows, 1 to 65,535 */
    uint32_t row_bytes;  /* (width + 7) / 8 */
    uint32_t rows_there; /* of a damaged page: how many of its rows can be read */
    unsigned char* rows;
};

/* What can be wrong with a stored page. */
enum zx_page_fault {
    ZX_PAGE_GOOD = 0,
    ZX_PAGE_NOT_COMPRESSED = 1, /* the bytes aren't a compressed page */
    ZX_PAGE_NO_SIZE = 2,        /* it claims no rows or columns, or more than 65,535 */
    ZX_PAGE_ROWS_MISSING =
        3, /* it ends before its last row; width, height and rows_there are set */
    ZX_PAGE_NO_MEMORY = 8,
};

/* Expands a stored page of `size` bytes. A zx_page_fault; without one the caller gives `page` to
 * FreePage afterwards, and on a fault its `rows` is null. */
ZX_API int32_t ExpandPage(const void* stored, uint32_t size, struct zx_page* page);
ZX_API void FreePage(struct zx_page* page);

/* Makes a stored page. *stored becomes memory that the caller gives to FreeStoredPage, *size its
 * bytes. ZX_PAGE_GOOD, ZX_PAGE_NO_SIZE or ZX_PAGE_NO_MEMORY; on a fault *stored is null. */
ZX_API int32_t CompressPage(const struct zx_page* page, unsigned char** stored, uint32_t* size);
ZX_API void FreeStoredPage(unsigned char* stored);

/* Writes the 8 bytes with which the page block of StoreFaxPage begins. */
ZX_API void WritePageHeader(unsigned char* block, uint32_t width, uint32_t height);

#ifdef __cplusplus
}
#endif

#endif
