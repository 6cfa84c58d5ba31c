// SPDX-License-Identifier: MIT
// A dialog of the library with made-up contents, which does nothing.
#ifndef ZERDIX_GALLERY_SAMPLE_DIALOG_H
#define ZERDIX_GALLERY_SAMPLE_DIALOG_H

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "forms/dialog.h"

namespace zerdix::gallery {

enum class side { none, book, groups };

class sample_dialog final : public forms::dialog {
  public:
    // `typed`: a number stands in the send dialog beside the picks and isn't one of them.
    sample_dialog(std::int32_t template_id, side chosen, bool typed);

  private:
    bool OnInitDialog() override;

    void fill_send_dialog();
    void show_book();
    void show_groups();
    void fill_entry();
    void fill_users();
    void fill_find();
    void fill_print();
    void fill_message();
    void titles(std::int32_t list_id, std::initializer_list<std::int32_t> texts);
    void row(std::int32_t list_id, std::initializer_list<std::string_view> cells);

    side side_;
    bool typed_;
};

// Makes templates and words known, of the language whose file that is (empty for the built-in one).
bool use_language(const char* file);

} // namespace zerdix::gallery

#endif
