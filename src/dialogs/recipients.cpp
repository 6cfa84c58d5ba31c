#include "dialogs/recipients.h"

#include "dialogs/message.h"
#include "dialogs/send_controls.h"

namespace zerdix::dialogs {

namespace {

std::string text_of(const str10& field) {
    return std::string{field.view()};
}

class expansion {
  public:
    expansion(TELEBOOK& telebook, bool telexOnly, platform::window_handle window)
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
        const o_tgroup* group = telebook_.getTGroup(pick.text.c_str());
        if (group == nullptr) {
            showMessage(window_, send::no_group);
            return;
        }
        if (group->groupid.empty())
            return;
        PTRLIST* members = telebook_.getTGroupEntries(pick.text.c_str(), 1);
        if (members == nullptr) {
            showMessage(window_, send::no_members);
            return;
        }
        for (std::uint32_t i = 0; i < members->getSize(); ++i)
            add_member(*static_cast<const o_tgroupl*>((*members)[i]), pick);
    }

    void add_member(const o_tgroupl& member, const recipient_pick& pick) {
        const std::string book = text_of(member.tbookid);
        const std::string name = text_of(member.teleid);
        const o_tebul* entry = telebook_.getTBookEntry(book.c_str(), name.c_str(), 1);
        if (entry == nullptr || (telexOnly_ && entry->nettype != NETTYPE_TELEX))
            return;
        receivers.push_back({book + ':' + name, pick.isGroup, pick.nettype});
    }

    TELEBOOK& telebook_;
    bool telexOnly_;
    platform::window_handle window_;
};

} // namespace

std::vector<final_receiver> expand_picks(const std::vector<recipient_pick>& picks,
                                         TELEBOOK& telebook, bool telexOnly,
                                         platform::window_handle window) {
    expansion run(telebook, telexOnly, window);
    for (const recipient_pick& pick : picks)
        run.add(pick);
    return std::move(run.receivers);
}

} // namespace zerdix::dialogs
