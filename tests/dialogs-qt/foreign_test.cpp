// SPDX-License-Identifier: MIT
// Dialogs over windows of others.

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <thread>

#include <QLineEdit>

#include "dialogs-qt/windows.h"

namespace zerdix::test {
namespace {

using dialogs::find_form;
using forms::window_handle;
using ::testing::ElementsAre;

// The host's own window by the same toolkit, whose application is there before the dialogs.
TEST(Host, KeepsItsApplicationAndItsWindowWaits) {
    static int count = 1;
    static char name[] = "host";
    static char* arguments[] = {name, nullptr};
    QApplication host(count, arguments);
    forms::presenter* shown = zerdix_presenter(forms::presenter_interface);
    ASSERT_NE(shown, nullptr);
    forms::presenter* of_another_thread = shown;
    std::thread([&] { of_another_thread = zerdix_presenter(forms::presenter_interface); }).join();
    EXPECT_EQ(of_another_thread, nullptr);
    forms::replace_presenter(shown);
    dialogs::install_dialog_resources();

    QLineEdit own;
    own.show();
    QTest::qWait(50);
    const auto handle = reinterpret_cast<window_handle>(own.winId());
    EXPECT_TRUE(shown->is_enabled(handle));
    shown->enable(handle, false);
    EXPECT_FALSE(shown->is_enabled(handle));
    noting_dialog dialog(find_form, handle);
    QTimer::singleShot(100, &host, [&] {
        QTest::keyClick(own.windowHandle(), Qt::Key_7);
        for (QWidget* one : QApplication::topLevelWidgets())
            if (one->objectName() == "1400") {
                EXPECT_EQ(one->windowHandle()->transientParent(), own.windowHandle());
                one->close();
            }
    });
    EXPECT_EQ(dialog.DoModal(), 0);
    shown->enable(handle, true);
    QTest::keyClick(own.windowHandle(), Qt::Key_8);
    EXPECT_EQ(own.text(), "8");
    forms::replace_presenter(nullptr);
}

// A window of X by a program that knows nothing of the toolkit.
TEST_F(Windows, StandInFrontOfAWindowOfAnotherToolkit) {
    if (QGuiApplication::platformName() != "xcb")
        GTEST_SKIP() << "needs X";
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> link(
        xcb_connect(nullptr, nullptr), &xcb_disconnect);
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(link.get())).data;
    const xcb_window_t other = xcb_generate_id(link.get());
    xcb_create_window(link.get(), XCB_COPY_FROM_PARENT, other, screen->root, 10, 10, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
    xcb_map_window(link.get(), other);
    std::free(xcb_get_input_focus_reply(link.get(), xcb_get_input_focus(link.get()), nullptr));

    const auto handle = reinterpret_cast<window_handle>(std::uintptr_t{other});
    EXPECT_TRUE(shown->is_enabled(handle));
    shown->enable(handle, false);
    EXPECT_FALSE(shown->is_enabled(handle));
    noting_dialog dialog(find_form, handle);
    script({[&] {
        const auto asked =
            xcb_get_property(link.get(), 0, static_cast<xcb_window_t>(window(find_form)->winId()),
                             XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 0, 1);
        const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> owner(
            xcb_get_property_reply(link.get(), asked, nullptr), &std::free);
        ASSERT_EQ(xcb_get_property_value_length(owner.get()), 4);
        EXPECT_EQ(*static_cast<xcb_window_t*>(xcb_get_property_value(owner.get())), other);
        window(find_form)->close();
    }});
    EXPECT_EQ(dialog.DoModal(), 0);
    shown->enable(handle, true);
    shown->activate(handle);
    EXPECT_TRUE(shown->is_enabled(handle));
    EXPECT_THAT(dialog.notes, ElementsAre("closed"));
}

} // namespace
} // namespace zerdix::test
