// SPDX-License-Identifier: MIT
#include "dialogs/application.h"

#include <string>

#include <zerdix/zerdix.h>

#include "common/settings.h"
#include "common/show_message.h"
#include "common/string_table.h"
#include "forms/tree_list.h"
#include "trace/traced.h"

namespace zerdix::dialogs {

constinit platform::library_handle hResourceLib = 0;
constinit template_ids chosen_templates;

namespace {

constexpr trace::tracer trace_lines{"dialogs"};
constexpr std::int32_t text_no_font = 1213;

constinit CZerdixApp* the_application = nullptr;

struct language_name {
    const char* name;
    char letter;
};

constexpr language_name languages[] = {
    {"Deutsch", 'G'}, {"English", 'U'}, {"Francais", 'F'}, {"US", 'A'}};

void choose_templates(const std::string& size) {
    if (size == "1")
        chosen_templates = {1000, 2000, 2300};
    else if (size == "2")
        chosen_templates = {1050, 1999, 2299};
}

// Whoever wrote the file learns which line to mend.
void tell_fault(const char* library) {
    const platform::library_fault fault = platform::find_library_fault(library);
    if (!fault.path.empty())
        trace_lines.error("CZerdixApp(): %s: line %ld can't be read", fault.path.c_str(),
                          fault.line);
}

forms::font_description described(const common::font_setting& setting) {
    return {.height = setting.height == 0 ? 20 : setting.height,
            .weight = setting.weight == 0 ? 400 : setting.weight,
            .face = setting.face.empty() ? "Times New Roman" : setting.face};
}

} // namespace

CZerdixApp::CZerdixApp() {
    the_application = this;
    const common::language_setting line = common::setting_language();
    pszLanguage = line.language;
    set_language();
    choose_templates(common::setting_dialog_size());
    load_resources(line.library.bytes);
    forms::SftTree_RegisterApp2(this);
    list_font_.description = described(common::setting_list_font());
}

CZerdixApp::~CZerdixApp() {
    common::set_application_name(nullptr);
    common::set_resource_source(0);
    platform::FreeLibrary(hResourceLib);
    hResourceLib = 0;
    the_application = nullptr;
}

CZerdixApp* CZerdixApp::current() {
    return the_application;
}

// A name that isn't known leaves the session's language as it is.
void CZerdixApp::set_language() {
    for (const language_name& each : languages) {
        if (pszLanguage == each.name)
            ZERDIX::clsSetLanguage(each.letter);
    }
    if (pszLanguage == "US")
        common::set_application_name("Tarvin");
}

void CZerdixApp::load_resources(const char* name) {
    const platform::library_handle library = platform::LoadLibraryA(name);
    if (library < platform::first_good_handle) {
        common::show_plain_message(common::text_no_resource_library);
        tell_fault(name);
        return;
    }
    hResourceLib = library;
    common::set_resource_source(library);
}

const forms::font_description* CZerdixApp::listFont() {
    const bool usable = list_font_.made != nullptr || list_font_.make();
    return usable ? &list_font_.description : nullptr;
}

bool CZerdixApp::OnCommand(std::int32_t command) {
    if (command == choose_list_font)
        list_font_.choose(false);
    else if (command == choose_text_font)
        choose_new_text_font();
    else
        return false;
    return true;
}

void CZerdixApp::read_text_font() {
    if (text_font_is_read_)
        return;
    text_font_is_read_ = true;
    text_font_.description = described(common::setting_text_font());
    if (!text_font_.make())
        common::show_plain_message(text_no_font);
}

void CZerdixApp::choose_new_text_font() {
    read_text_font();
    if (text_font_.choose(true) && text_font_.made == nullptr)
        common::show_plain_message(text_no_font);
}

bool CZerdixApp::font_object::make() {
    made = platform::fonts().find(
        {.face = description.face, .height = description.height, .weight = description.weight});
    return made != nullptr;
}

// True when the user has chosen one. It isn't written to the settings.
bool CZerdixApp::font_object::choose(bool scalable_only) {
    forms::ensure_presenter();
    if (!forms::current_presenter().choose_font(nullptr, description, scalable_only))
        return false;
    make();
    return true;
}

} // namespace zerdix::dialogs
