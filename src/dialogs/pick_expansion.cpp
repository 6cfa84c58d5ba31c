// SPDX-License-Identifier: MIT
#include "dialogs/pick_expansion.h"

#include "dialogs/message.h"
#include "dialogs/send_controls.h"
#include "sending/group_members.h"

namespace zerdix::dialogs {

namespace {

class expansion {
  public:
    expansion(TELEBOOK& telebook, bool telexOnly, forms::window_handle window)
        : telebook_(telebook), telexOnly_(telexOnly), window_(window) {}

    void add(const recipient_pick& pick) {
        if (pick.isGroup != 0)
            add_group(pick);
        else if (!pick.text.empty())
            receivers.push_back({pick.text, pick.isGroup, pick.nettype});
    }

    std::vector<final_receiver> receivers;

  private:
    void add_group(const recipient_pick& pick) {
        const auto add = [&](const o_tgroupl& member, const o_tebul* entry) {
            if (entry != nullptr && (!telexOnly_ || entry->nettype == NETTYPE_TELEX))
                receivers.push_back({sending::receiver_string(member.tbookid, member.teleid),
                                     pick.isGroup, pick.nettype});
        };
        const sending::group_end end = sending::read_group(telebook_, pick.text, add);
        if (end == sending::group_end::no_group)
            showMessage(window_, send::no_group);
        if (end == sending::group_end::no_members)
            showMessage(window_, send::no_members);
    }

    TELEBOOK& telebook_;
    bool telexOnly_;
    forms::window_handle window_;
};

} // namespace

std::vector<final_receiver> expand_picks(const std::vector<recipient_pick>& picks,
                                         TELEBOOK& telebook, bool telexOnly,
                                         forms::window_handle window) {
    expansion run(telebook, telexOnly, window);
    for (const recipient_pick& pick : picks)
        run.add(pick);
    return std::move(run.receivers);
}

} // namespace zerdix::dialogs
