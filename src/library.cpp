// The shared library is the rooms, whole, and the one application object. Of the objects that are
// made when the library is loaded it is the last but for those made here: the tracer goes first.
#include "dialogs/application.h"

namespace {

zerdix::dialogs::CZerdixApp application;

} // namespace
