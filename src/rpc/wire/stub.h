// SPDX-License-Identifier: MIT
// The client stub: one blocking remote call of one procedure.
//
// Each procedure has one static result record, process-wide. A stub releases what the record still
// holds, zeroes it, makes the call, and returns its address, or null when the call failed; then the
// record is zero again. So a result stays good until the next call of the same procedure, whoever
// makes it. Calls must not overlap.
#ifndef ZERDIX_WIRE_STUB_H
#define ZERDIX_WIRE_STUB_H

#include "rpc/wire/filter.h"
#include "rpc/wire/procedures.h"

namespace zerdix::wire {

// A procedure's result record, and who made the last call of the procedure.
template <class Record>
struct result_place {
    Record record{};
    const void* holder = nullptr;
};

// The place of one procedure's result, process-wide.
template <class P>
struct result_slot {
    static inline result_place<typename P::result> place{};
    static constexpr typename P::result& record = place.record;
};

// One call with everything type-less, over a handle that wire::connect made.
bool remote_call(CLIENT* handle, std::uint32_t number, xdrproc_t argument_filter, void* argument,
                 xdrproc_t result_filter, void* result);

// The error of the handle's last failed call.
rpc_err last_error(CLIENT* handle);

template <class P>
typename P::result* stub(typename P::argument& argument, CLIENT* handle) {
    using argument_t = typename P::argument;
    using result_t = typename P::result;
    result_t& record = result_slot<P>::record;
    release(record);
    const bool good = remote_call(handle, P::number, &xdr_record<argument_t>, &argument,
                                  &xdr_record<result_t>, &record);
    if (good)
        return &record;
    release(record);
    return nullptr;
}

// Each is made once, in stubs.cpp.
#define ZERDIX_PROCEDURE(procedure_number, procedure_name, argument_type, result_type)             \
    extern template proc::procedure_name::result* stub<proc::procedure_name>(                      \
        proc::procedure_name::argument&, CLIENT*);
#include "rpc/wire/procedures.def"
#undef ZERDIX_PROCEDURE

} // namespace zerdix::wire

#endif
