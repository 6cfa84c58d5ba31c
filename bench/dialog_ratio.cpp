// SPDX-License-Identifier: MIT
// The send dialog in its window, on a phone book of 100,000 entries.
//
//   opening: from the call to the first picture on the screen, beside a window of the same controls
//            made by hand
//   paging:  what a block of 200 rows costs the window's thread beside the remote call
//   search:  a text that the last row alone has, beside the same compiled expression on the bare
//            texts of the rows
//
// The windows are those of the build, or those that ZERDIX_DIALOGS names. Without a screen Qt draws
// into memory.
#include <regex.h>

#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QTreeWidget>
#include <chrono>
#include <cstring>
#include <vector>

#include <zerdix/zerdix.h>

#include "bench/instant_server.h"
#include "bench/sample_replies.h"
#include "dialogs/application.h"
#include "dialogs/dialog_resources.h"
#include "dialogs/search_pattern.h"
#include "dialogs/send_select.h"
#include "support/test_server.h"

using namespace zerdix;
using bench::bytes_on_wire;
using bench::encoded;
using bench::require;
namespace proc = wire::proc;

namespace {

constexpr std::int32_t entries = 100000;
constexpr std::int32_t block = 200;
constexpr int rounds = 10;
constexpr double most_opening = 150;
constexpr double most_paging = 16;
constexpr double most_search = 200;

constexpr std::int32_t send_list = 2331;
constexpr std::int32_t recipient_side = 2324;
constexpr std::int32_t search_command = 30021;

using clock_type = std::chrono::steady_clock;

double milliseconds_since(clock_type::time_point begin) {
    return std::chrono::duration<double, std::milli>(clock_type::now() - begin).count();
}

bytes_on_wire books() {
    std::vector<o_tebu_node> nodes(1);
    nodes[0].book.tbookid.assign("common");
    return bench::list_of<o_get_tbooks_o>(nodes, sizeof(o_tebu) * 4);
}

// Whether a window was painted while it lives.
class first_picture final : public QObject {
  public:
    first_picture() { qApp->installEventFilter(this); }
    bool painted() const { return painted_; }

  private:
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(object);
        painted_ = painted_ || (event->type() == QEvent::Paint && widget != nullptr);
        return false;
    }

    bool painted_ = false;
};

// Runs the dialog with something to do once it is on the screen.
class running_dialog {
  public:
    running_dialog() { receivers_[0] = receiver_; }

    template <class Work>
    void run(Work work) {
        QTimer::singleShot(0, qApp, [&] {
            QApplication::processEvents();
            work(dialog_);
            dialog_.user_closes();
        });
        dialog_.DoModal();
    }

  private:
    forms::window_handle parent_ = nullptr;
    a_s_rec record_{};
    char receiver_[31] = {};
    char* receivers_[1000] = {};
    std::int32_t cover_ = 0;
    dialogs::CDialogSendSelect dialog_{parent_, &record_, receivers_, &cover_};
};

// Until all that the window has to do for its first picture is done.
double open_once() {
    const auto begin = clock_type::now();
    const first_picture picture;
    double elapsed = 0;
    running_dialog{}.run([&](auto&) { elapsed = milliseconds_since(begin); });
    require(picture.painted(), "a picture of the dialog");
    return elapsed;
}

// As many controls of each kind as the dialog has, in one column.
double open_peer_once() {
    const auto begin = clock_type::now();
    double elapsed = 0;
    QDialog dialog;
    QVBoxLayout column(&dialog);
    for (int i = 0; i < 6; ++i)
        column.addWidget(new QLineEdit(&dialog));
    for (int i = 0; i < 9; ++i)
        column.addWidget(new QRadioButton("radio", &dialog));
    for (int i = 0; i < 9; ++i)
        column.addWidget(new QPushButton("button", &dialog));
    for (int i = 0; i < 2; ++i)
        column.addWidget(new QTreeWidget(&dialog));
    column.addWidget(new QComboBox(&dialog));
    QTimer::singleShot(0, &dialog, [&] {
        QApplication::processEvents();
        elapsed = milliseconds_since(begin);
        dialog.reject();
    });
    dialog.exec();
    return elapsed;
}

bool measure_opening() {
    const double first = open_once(); // fonts are looked for, styles made
    double ours = first, peer = 1e9;
    for (int round = 0; round < rounds; ++round) {
        ours = std::min(ours, open_once());
        peer = std::min(peer, open_peer_once());
    }
    std::printf("opening the send dialog, the first time, then the best of %d runs each\n", rounds);
    std::printf("  the first %18.1f ms\n  the dialog %17.1f ms\n", first, ours);
    std::printf("  a window of as many controls %.1f ms, ratio %.2f\n", peer, ours / peer);
    return bench::bar("opening, the first time", first, most_opening, "ms");
}

// The time of all blocks, with what the window does about them.
double page_through(forms::dialog_view& dialog) {
    const std::int32_t before = dialog.find(send_list)->list->row_count();
    const auto begin = clock_type::now();
    for (std::int32_t last = before; last < entries; last += block) {
        dialog.user_selects_row(send_list, last - 1);
        QApplication::processEvents();
    }
    const double elapsed = milliseconds_since(begin);
    require(dialog.find(send_list)->list->row_count() == entries, "all blocks");
    return elapsed * block / (entries - before);
}

double bare_call(std::uint32_t program, std::size_t result_bytes) {
    bench::direct_client direct{program};
    o_get_tbookl_i request{};
    bytes_on_wire argument = encoded(request, 1024);
    bytes_on_wire result(result_bytes);
    bench::best_time best;
    constexpr int calls = 50;
    for (int round = 0; round < rounds; ++round)
        best.run([&] {
            for (int i = 0; i < calls; ++i)
                direct.call(proc::o_get_tbooksb_1::number, argument, result);
        });
    return best.microseconds() / 1000 / calls;
}

// The search itself is made ready by dialogs::findInText's rules; here the expression stands whole.
double search_bare(const forms::tree_list& list, const char* expression) {
    std::vector<std::string> texts;
    for (const auto& row : list.rows) {
        std::string& text = texts.emplace_back();
        for (const std::string& cell : row)
            text.append(cell).append(" ");
    }
    dialogs::set_search_syntax();
    re_pattern_buffer compiled{};
    require(re_compile_pattern(expression, std::strlen(expression), &compiled) == nullptr,
            "re_compile_pattern");
    const auto begin = clock_type::now();
    std::size_t misses = 0;
    for (const std::string& text : texts)
        misses +=
            re_match(&compiled, text.c_str(), static_cast<regoff_t>(text.size()), 0, nullptr) < 0;
    const double elapsed = milliseconds_since(begin);
    require(misses + 1 == texts.size(), "one hit");
    regfree(&compiled);
    return elapsed;
}

double search_once(forms::dialog_view& dialog) {
    const auto begin = clock_type::now();
    dialog.on_command(dialogs::recipient_search_command);
    QApplication::processEvents();
    const double elapsed = milliseconds_since(begin);
    require(dialog.find(send_list)->list->selected_row() == entries - 1, "the last row");
    return elapsed;
}

bool measure_paging(forms::dialog_view& dialog, double call) {
    const double each = page_through(dialog);
    std::printf("a block of %d rows, mean over a book of %d\n", block, entries);
    std::printf("  with its call %17.2f ms\n  the bare call %17.2f ms, ratio %.2f\n", each, call,
                each / call);
    return bench::bar("a block beside its call", each - call, most_paging, "ms");
}

bool measure_search(forms::dialog_view& dialog) {
    dialogs::searchText() = "23125 99999";
    search_once(dialog); // finds out that no block is left
    double ours = 1e9, peer = 1e9;
    for (int round = 0; round < rounds; ++round) {
        ours = std::min(ours, search_once(dialog));
        peer = std::min(peer, search_bare(*dialog.find(send_list)->list, ".*23125 99999"));
    }
    std::printf("search over %d rows, best of %d runs each, taking turns\n", entries, rounds);
    std::printf("  the dialog %20.1f ms\n  the bare expression %11.1f ms, ratio %.2f\n", ours, peer,
                ours / peer);
    return bench::bar("search", ours, most_search, "ms");
}

bool measure_list(double call) {
    bool reached = false;
    running_dialog{}.run([&](auto& dialog) {
        dialog.user_clicks(recipient_side);
        QApplication::processEvents();
        reached = measure_paging(dialog, call);
        reached = measure_search(dialog) && reached;
    });
    return reached;
}

} // namespace

int main(int argc, char** argv) {
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr)
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("ZERDIX_DIALOGS", WINDOWS, 0);
    const test::scratch_folder folder;
    const test::client_environment environment{folder.path()};
    const bytes_on_wire first = bench::entry_block(0, block);
    const bench::instant_server server{
        {{proc::o_get_tbooks_1::number, {books()}},
         {proc::o_get_tbookl_1::number, bench::entry_blocks(entries, block)},
         {proc::o_get_tbooksb_1::number, {first}}}};
    const QApplication application(argc, argv);
    const dialogs::CZerdixApp zerdix;
    dialogs::install_dialog_resources();
    ZERDIX session;
    require(session.GetClientAddr("127.0.0.1") != nullptr, "GetClientAddr");
    require(forms::ensure_presenter(), "the windows that ZERDIX_DIALOGS names");
    const double call = bare_call(environment.program(), first.size());
    const bool opening = measure_opening();
    const bool list = measure_list(call);
    session.CleanupHostConnection();
    return opening && list ? 0 : 1;
}
