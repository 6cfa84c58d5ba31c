// SPDX-License-Identifier: MIT
// The application object, one in a process. It comes up when the library is loaded, before any
// caller's code, and sets up what the dialogs need: language, resource library, template ids,
// fonts.
#ifndef ZERDIX_DIALOGS_APPLICATION_H
#define ZERDIX_DIALOGS_APPLICATION_H

#include <cstdint>
#include <memory>

#include <zerdix/text.h>

#include "forms/presenter.h"
#include "platform/font.h"
#include "platform/resource_library.h"

namespace zerdix::dialogs {

// The resource library that the settings name; 0 when there is none.
extern platform::library_handle hResourceLib;

// As the setting DialogSize has them.
struct template_ids {
    std::int32_t documents = 1000;
    std::int32_t phone_book = 2000;
    std::int32_t send = 2300;
};
extern template_ids chosen_templates;

// Commands of a program that shows windows.
constexpr std::int32_t choose_text_font = 31032;
constexpr std::int32_t choose_list_font = 31036;

class CZerdixApp {
  public:
    CZerdixApp();
    ~CZerdixApp();
    CZerdixApp(const CZerdixApp&) = delete;
    CZerdixApp& operator=(const CZerdixApp&) = delete;

    // Null while there is none.
    static CZerdixApp* current();

    // For lists. Null when it can't be made. Made when it is first asked for, since opening fonts
    // takes longer than loading the library should.
    const forms::font_description* listFont();

    // False for a command that isn't the application's.
    bool OnCommand(std::int32_t command);

  private:
    struct font_object {
        forms::font_description description;
        std::shared_ptr<platform::font> made;

        bool make();
        bool choose(bool scalable_only);
    };

    void set_language();
    void load_resources(const char* name);
    void read_text_font();
    void choose_new_text_font();

    str20 pszLanguage{};
    font_object list_font_;
    font_object text_font_;
    bool text_font_is_read_ = false;
};

} // namespace zerdix::dialogs

#endif
