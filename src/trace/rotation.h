// SPDX-License-Identifier: MIT
// Opening the trace file, which each process makes anew: the file that is there becomes the older
// generation first.
#ifndef ZERDIX_TRACE_ROTATION_H
#define ZERDIX_TRACE_ROTATION_H

namespace zerdix::trace {

// Opens the file of the_trace_file.path into the_trace_file.handle. A file that couldn't be moved
// out of the way is continued. The user is told when no file can be opened.
void open_trace_file();

} // namespace zerdix::trace

#endif
