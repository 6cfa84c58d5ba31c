// SPDX-License-Identifier: MIT
// The send dialog with a scripted user, against the stand-in server.
#ifndef ZERDIX_TESTS_SEND_DIALOG_FIXTURE_H
#define ZERDIX_TESTS_SEND_DIALOG_FIXTURE_H

#include "common/string_table.h"
#include "dialogs/dialog_resources.h"
#include "dialogs/send_dialog_bridge.h"
#include "platform/profile.h"
#include "sendfax/job_fixture.h"
#include "support/raw_client.h"
#include "support/scripted_presenter.h"

namespace zerdix::testing {

using forms::dialog_view;
using step = test::scripted_presenter::step;
using steps = std::vector<step>;

inline step click(std::int32_t id) {
    return [id](dialog_view& shown) { shown.user_clicks(id); };
}
inline step type(std::int32_t id, std::string text) {
    return [id, text](dialog_view& shown) { shown.user_edits(id, text); };
}
inline step double_click(std::int32_t id, std::int32_t row) {
    return [id, row](dialog_view& shown) { shown.user_double_clicks(id, row); };
}
inline step select(std::int32_t id, std::int32_t row) {
    return [id, row](dialog_view& shown) { shown.user_selects_row(id, row); };
}
inline steps operator+(steps all, const steps& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
}
inline const std::string& text_in(dialog_view& shown, std::int32_t id) {
    return shown.find(id)->text;
}
// The texts of a column.
inline std::vector<std::string> column(dialog_view& shown, std::int32_t list, std::size_t at = 0) {
    std::vector<std::string> found;
    for (const auto& row : shown.find(list)->list->rows)
        found.push_back(row[at]);
    return found;
}
inline std::string told(std::int32_t number) {
    return common::string_text(number);
}
inline std::string kept(const char* key) {
    return platform::profile_string("Zerdix", key, "", 80);
}

// What the user sees.
inline step shows(std::initializer_list<std::int32_t> ids, bool expected = true) {
    return [ids = std::vector(ids), expected](dialog_view& shown) {
        for (const std::int32_t id : ids)
            EXPECT_EQ(shown.find(id)->visible, expected) << id;
    };
}
inline step enables(std::initializer_list<std::int32_t> ids, bool expected = true) {
    return [ids = std::vector(ids), expected](dialog_view& shown) {
        for (const std::int32_t id : ids)
            EXPECT_EQ(shown.find(id)->enabled, expected) << id;
    };
}
inline step reads(std::int32_t id, std::string text) {
    return [id, text](dialog_view& shown) { EXPECT_EQ(text_in(shown, id), text) << id; };
}
inline step lists(std::int32_t id, ::testing::Matcher<std::vector<std::string>> rows,
                  std::size_t at = 0) {
    return [=](dialog_view& shown) { EXPECT_THAT(column(shown, id, at), rows) << id; };
}
inline step closes() {
    return [](dialog_view& shown) { shown.user_closes(); };
}

class SendDialog : public PrintJob {
  protected:
    static constexpr std::int32_t form = 2300;

    SendDialog() {
        forms::SftTree_RegisterApp2(this);
        dialogs::install_dialog_resources();
        dialogs::install_send_select();
    }

    // The end of a job of two pages, or of a telex, for which the user does these steps.
    std::int32_t send_fax(const steps& done, std::string_view merge_data = "") {
        open_job_with_pages(merge_data);
        user.script(form, done);
        return SendFaxDoc();
    }
    std::int32_t send_telex(const steps& done) {
        EXPECT_EQ(TransmissionDlg(nullptr, "Angebot", 0), 0);
        server.clear_calls();
        user.script(form, done);
        return SendTelex("hello", 5);
    }

    // Of the send jobs, in the order in which they were made.
    std::vector<std::string> receivers() {
        std::vector<std::string> found;
        for (const auto& job : server.jobs())
            found.push_back(job.receiver);
        return found;
    }

    step expect_messages(std::vector<std::string> expected) {
        return [this, expected](dialog_view&) {
            EXPECT_EQ(user.messages, expected);
            user.messages.clear();
        };
    }

    test::scripted_presenter user;
};

} // namespace zerdix::testing

#endif
