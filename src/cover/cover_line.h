// SPDX-License-Identifier: MIT
// Parsing a command line of a cover template.
#ifndef ZERDIX_COVER_COVER_LINE_H
#define ZERDIX_COVER_COVER_LINE_H

namespace zerdix::cover {

// The fields stand behind the first "=", each closed by ";"; the last one may do without. A
// destination is filled as by strncpy with its size, so that a zeroed one of size + 1 bytes is
// always closed; a null one ends the reading. Where a field was closed the line has a NUL from now
// on. Always 1.
int ParseCoverLine(char* line, char* field1, int size1, char* field2, int size2, char* field3,
                   int size3);

// The fields of a command: empty where the line has none, and cut where it has too much.
struct cover_fields {
    char first[201] = "";
    char second[81] = "";
    char third[81] = "";

    explicit cover_fields(char* line) { ParseCoverLine(line, first, 200, second, 80, third, 80); }
};

} // namespace zerdix::cover

#endif
