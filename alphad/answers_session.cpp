#include "alphad/answers.h"

namespace zerdix::alphad {

// Every value has the index 1.
str80 answers::answer(proc::a_get_config_1, const a_get_config_i& in) {
    str80 value{};
    if (in.cfgindex == 1)
        value.assign(store_.directory.config(in.cfgid.view()));
    return value;
}

a_get_tz_o answers::answer(proc::a_get_tz_1, const wire::none&) {
    a_get_tz_o out{};
    out.tztexts[2].assign(store_.directory.config("TZ"));
    return out;
}

} // namespace zerdix::alphad
