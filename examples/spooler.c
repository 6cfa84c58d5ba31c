/* SPDX-License-Identifier: MIT */
/* A driver that lives long: takes print jobs from its standard input, one after the other, answers
 * each line with a line, and goes on when a job fails. The lines of a job:
 *
 *     job TITLE            opens it
 *     page                 stores a page, black below and white above
 *     cover                gives each receiver a cover page
 *     #PHONE 030 11#       merge data: receivers, and settings such as #SENDTIME DELAYED#
 *     end                  sends it, or gives it up if one of its lines failed */
#include <stdio.h>
#include <string.h>

#include <zerdix/outcome.h>
#include <zerdix/page.h>
#include <zerdix/sendfax.h>

enum { height = 2286, header = 8, row = ZX_PAGE_WIDTH / 8, size = header + row * height };

static unsigned char block[size];
static int failed; /* a line of the present job did; the error log says why */

/* A job that can't be ended with the server is forgotten without it: as long as it is there, every
 * TransmissionDlg gives 4. The document that then stays behind is the user's to delete. */
static void give_up(void) {
    const int32_t left = DeleteFaxDoc() == 0 ? 0 : AbandonFaxDoc();
    if (left == 0)
        puts("given up");
    else
        printf("given up, document %d stays on the desk\n", (int)left);
}

/* SendFaxDoc ends the job whatever comes of it. What came of it stands in the outcome: a receiver
 * whose reply was lost is neither served nor not served, and sending to it again might fax twice.
 */
static void send_job(void) {
    int count[ZX_UNKNOWN + 1] = {0};
    SendFaxDoc();
    const struct zx_outcome* outcome = LastJobOutcome();
    for (int32_t i = 0; i < outcome->receiver_count; ++i)
        ++count[outcome->receivers[i].delivery];
    printf("%d of %d handed over, %d unknown\n", count[ZX_HANDED_OVER],
           (int)outcome->receiver_count, count[ZX_UNKNOWN]);
}

/* 0: well. */
static int take(const char* line) {
    if (strncmp(line, "job ", 4) == 0)
        return TransmissionDlg(NULL, line + 4, 1);
    if (strcmp(line, "page") == 0)
        return StoreFaxPage(block, size, 0, 0);
    if (line[0] == '#')
        return SetFaxMergeData(line, (int32_t)strlen(line)) == 8; /* 4 is a success, too */
    if (strcmp(line, "cover") != 0)
        return 1;
    fCoverpage = 1;
    return 0;
}

int main(void) {
    char line[1024];
    WritePageHeader(block, ZX_PAGE_WIDTH, height);
    memset(block + header + row * (height / 2), 0xFF, row * (height / 2));
    setvbuf(stdout, NULL, _IOLBF, BUFSIZ);
    while (fgets(line, sizeof line, stdin) != NULL) {
        line[strcspn(line, "\n")] = '\0';
        if (strcmp(line, "end") != 0) {
            failed = failed || take(line) != 0;
            puts(failed ? "failed" : "ok");
            continue;
        }
        if (failed)
            give_up();
        else
            send_job();
        failed = 0;
    }
    if (pzerdix != NULL) /* the input ended within a job */
        give_up();
    return 0;
}
