// A client of the exported classes, built with the CMake package of the installed library.
#include <zerdix/journal.h>
#include <zerdix/telebook.h>
#include <zerdix/trace.h>
#include <zerdix/zerdix.h>

int main() {
    TTrace.tracePrintf("client", 1, "not available", 500, "<-- main(): %ld", 1);
    ZERDIX session;
    session.setUserId("zerdix");
    session.setAlphaserver("127.0.0.1");
    if (session.GetClientAddr(ZERDIX::clsGetAlphaServer()) == nullptr)
        return 1;
    JOURNAL journal;
    TELEBOOK books;
    PTRLIST* list = books.getTBooks();
    const bool good = list != nullptr && list->getSize() > 0 && journal.makeDoc() > 0;
    session.CleanupHostConnection();
    return good ? 0 : 2;
}
