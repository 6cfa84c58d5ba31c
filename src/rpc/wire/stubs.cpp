// SPDX-License-Identifier: MIT
// The stubs of all procedures, those without a caller in the library too: they complete the
// protocol.
#include "rpc/wire/stub.h"

namespace zerdix::wire {

#define ZERDIX_PROCEDURE(procedure_number, procedure_name, argument_type, result_type)             \
    template proc::procedure_name::result* stub<proc::procedure_name>(                             \
        proc::procedure_name::argument&, CLIENT*);
#include "rpc/wire/procedures.def"
#undef ZERDIX_PROCEDURE

} // namespace zerdix::wire
