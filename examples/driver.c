/* SPDX-License-Identifier: MIT */
/* A fax printer driver: prints one page, black below and white above, to the receivers named on
 * the command line. A real driver has its pages from the printing system. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <zerdix/outcome.h>
#include <zerdix/page.h>
#include <zerdix/sendfax.h>

enum { height = 2286, header = 8, row = ZX_PAGE_WIDTH / 8, size = header + row * height };

/* Width, height, then the rows from the bottom up; a set bit is white. */
static void draw(unsigned char* block) {
    WritePageHeader(block, ZX_PAGE_WIDTH, height);
    memset(block + header, 0x00, row * (height / 2));
    memset(block + header + row * (height / 2), 0xFF, row * (height / 2));
}

int main(int argc, char** argv) {
    unsigned char* block = malloc(size);
    char pair[64];
    if (block == NULL || TransmissionDlg(NULL, "Half a page of black", 1) != 0)
        return 1; /* the error log says why */
    draw(block);
    int failed = StoreFaxPage(block, size, 0, 0) != 0;
    for (int i = 1; i < argc && !failed; ++i) {
        snprintf(pair, sizeof pair, "#PHONE %s#", argv[i]);
        failed = SetFaxMergeData(pair, (int32_t)strlen(pair)) != 0;
    }
    free(block);
    if (failed)
        DeleteFaxDoc(); /* takes the page off the server again */
    else
        failed = SendFaxDoc() != 0;
    puts(OutcomeText(LastJobOutcome())); /* Windows-1252, in the language of the settings */
    return failed;
}
