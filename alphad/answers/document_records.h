// SPDX-License-Identifier: MIT
// Documents as the records of the protocol that stand for them.
#ifndef ZERDIX_ALPHAD_ANSWERS_DOCUMENT_RECORDS_H
#define ZERDIX_ALPHAD_ANSWERS_DOCUMENT_RECORDS_H

#include "alphad/store/store.h"

namespace zerdix::alphad {

// a_e_rec, a_p_rec and a_s_rec, the last one with the settings of the document's job.
template <class Record>
Record record_of(const store& store, const document& from);

} // namespace zerdix::alphad

#endif
