/* A fax printer driver in plain C, built as its author would: against the installed library. Prints
 * one page, half black, to two receivers. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <zerdix/sendfax.h>
#include <zerdix/timetext.h>

enum { width = 1728, height = 200, header = 8, row = width / 8 };

static void put_big_endian(unsigned char* at, unsigned long value) {
    at[0] = (unsigned char)(value >> 24);
    at[1] = (unsigned char)(value >> 16);
    at[2] = (unsigned char)(value >> 8);
    at[3] = (unsigned char)value;
}

static unsigned char* half_black_page(void) {
    unsigned char* block = malloc(header + (size_t)row * height);
    if (block == NULL)
        exit(1);
    put_big_endian(block, width);
    put_big_endian(block + 4, height);
    memset(block + header, 0x00, (size_t)row * (height / 2)); /* the lower half comes first */
    memset(block + header + (size_t)row * (height / 2), 0xFF, (size_t)row * (height / 2));
    return block;
}

int main(void) {
    const char* merge = "#PHONE 030 11##PHONE 030 22#";
    unsigned char* block = half_black_page();
    if (TransmissionDlg(NULL, "From a C driver", 1) != 0)
        return 1;
    if (SetFaxMergeData(merge, (int32_t)strlen(merge)) != 0 || lPDCountReceiver != 2)
        return 2;
    if (StoreFaxPage(block, header + row * height, 0, 0) != 0)
        return 3;
    free(block);
    if (SendFaxDoc() != 0)
        return 4;
    return pzerdix == NULL && str2time_t("25:00") == 0 ? 0 : 5;
}
