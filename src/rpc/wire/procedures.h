// SPDX-License-Identifier: MIT
// The procedure table as types: `proc::a_del_doc_1` is procedure 6, with its number, its name, its
// argument's and its result's type.
#ifndef ZERDIX_WIRE_PROCEDURES_H
#define ZERDIX_WIRE_PROCEDURES_H

#include <array>
#include <cstdint>

#include <zerdix/values.h>

#include "rpc/wire/document_records.h"
#include "rpc/wire/fixed.h"
#include "rpc/wire/session_records.h"
#include "rpc/wire/spare_records.h"
#include "rpc/wire/telebook_records.h"

namespace zerdix::wire {

namespace proc {
#define ZERDIX_PROCEDURE(procedure_number, procedure_name, argument_type, result_type)             \
    struct procedure_name {                                                                        \
        static constexpr std::uint32_t number = procedure_number;                                  \
        static constexpr const char* name = #procedure_name;                                       \
        using argument = argument_type;                                                            \
        using result = result_type;                                                                \
    };
#include "rpc/wire/procedures.def"
#undef ZERDIX_PROCEDURE
} // namespace proc

template <class... P>
struct procedure_list {
    static constexpr std::size_t size = sizeof...(P);
};

// All procedures in the order of their numbers. The leading entry only feeds the comma.
struct no_procedure;
template <class First, class... P>
procedure_list<P...> all_but_first(procedure_list<First, P...>);

using all_procedures = decltype(all_but_first(procedure_list<no_procedure
#define ZERDIX_PROCEDURE(procedure_number, procedure_name, argument_type, result_type)             \
    , proc::procedure_name
#include "rpc/wire/procedures.def"
#undef ZERDIX_PROCEDURE
                                                             >{}));

} // namespace zerdix::wire

#endif
