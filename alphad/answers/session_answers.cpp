// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"
#include "alphad/store/password.h"

namespace zerdix::alphad {

// Every value has the index 1.
str80 answers::answer(proc::a_get_config_1, const a_get_config_i& in) {
    str80 value{};
    if (in.cfgindex == 1)
        value.assign(store_.configuration.value(in.cfgid.view()));
    return value;
}

a_get_tz_o answers::answer(proc::a_get_tz_1, const wire::none&) {
    a_get_tz_o out{};
    out.tztexts[2].assign(store_.configuration.value("TZ"));
    return out;
}

a_get_compat_o answers::answer(proc::a_get_compat_1, const wire::none&) {
    return {store_.configuration.number("COMPATLOW", 1),
            store_.configuration.number("COMPATHIGH", 8)};
}

// The password of a user who isn't there is looked at all the same, so that the time doesn't tell.
std::int32_t answers::password_status(const str10& user, const str20& password) const {
    const bool fits = fits_password(password.view(), store_.users.password_hash(user.view()));
    if (!store_.users.find(user.view()))
        return login_unknown_user;
    return fits ? login_accepted : login_wrong_password;
}

a_get_login_o answers::answer(proc::a_get_login_1, const a_get_login_i& in) {
    const std::int32_t status = password_status(in.userid, in.password);
    if (status != login_accepted)
        return {0, status};
    if (store_.configuration.number("SINGLELOGIN", 0) == 1 &&
        sessions_.is_present(in.userid.view()))
        return {0, login_present_already};
    return {sessions_.open(in.userid.view(), connection_), login_accepted};
}

wire::none answers::answer(proc::a_logout_1, const a_logout_i& in) {
    sessions_.close(in.userid.view(), in.loginid);
    return {};
}

boolean answers::answer(proc::a_check_login_1, const std::int32_t& login) {
    return yes(sessions_.user_of(login).has_value());
}

std::int32_t answers::answer(proc::a_chg_pw_1, const a_chg_pw_i& in) {
    const std::int32_t status = password_status(in.userid, in.oldpassword);
    if (status == login_accepted)
        store_.users.set_password(in.userid.view(), in.newpassword.view());
    return status;
}

} // namespace zerdix::alphad
