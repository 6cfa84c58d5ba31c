/* A fax printer driver: prints one page, black below and white above, to the receivers named on
 * the command line. A real driver has its pages from the printing system. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <zerdix/sendfax.h>

enum { width = 1728, height = 2286, header = 8, row = width / 8, size = header + row * height };

static void put_number(unsigned char* at, unsigned value) {
    for (int i = 0; i < 4; ++i)
        at[i] = (unsigned char)(value >> (24 - 8 * i));
}

/* Width, height, then the rows from the bottom up; a set bit is white. */
static void draw(unsigned char* block) {
    put_number(block, width);
    put_number(block + 4, height);
    memset(block + header, 0x00, row * (height / 2));
    memset(block + header + row * (height / 2), 0xFF, row * (height / 2));
}

int main(int argc, char** argv) {
    unsigned char* block = malloc(size);
    char pair[64];
    if (block == NULL || TransmissionDlg(NULL, "Half a page of black", 1) != 0)
        return 1; /* FAXERROR.LOG says why */
    draw(block);
    int failed = StoreFaxPage(block, size, 0, 0) != 0;
    for (int i = 1; i < argc && !failed; ++i) {
        snprintf(pair, sizeof pair, "#PHONE %s#", argv[i]);
        failed = SetFaxMergeData(pair, (int32_t)strlen(pair)) != 0;
    }
    free(block);
    if (failed)
        DeleteFaxDoc(); /* takes the page off the server again */
    return failed || SendFaxDoc() != 0;
}
