// SPDX-License-Identifier: MIT
// Carries out the commands of a cover template on a page. A command is a keyword anywhere in a line
// and up to three fields behind the line's first "=":
//
//     setfontinfo=FACE;POINTS;       the font of all text from here on, at 200 pixels to the inch
//     setdate=X;Y;                   today's date in the session's language
//     setfaxstring=TEXT;X;Y;         the text; so do setuseraddress0 to setuseraddress3
//     setfaxsign=X;Y;                the user's signature
//     setfaxbarcode=X;Y;             the label with the user's barcode
//     setusercomment=X;Y;            the user's name
//     setfaxnr=X;Y;                  the number of the document
//     setfaxcomment=X;Y;             the document's comment
//     settbookentrycomment=X;Y;      the receiver's name in the phone book
//     settbookentryphone=X;Y;        the receiver's number: the phone book's, or the one typed
//
// A line can hold a setfontinfo, a setdate and one of the others; they are looked for in this order
// (setuseraddress behind setfaxcomment), each in what the one before has left of the line: fields
// that were read end it. X and Y are pixels from the top left corner of the page to that of the
// text or picture. What has nothing to show draws nothing.
#ifndef ZERDIX_COVER_PAGE_PAINTER_H
#define ZERDIX_COVER_PAGE_PAINTER_H

#include <memory>
#include <optional>
#include <string_view>

#include <zerdix/records.h>

#include "cover/cover_line.h"
#include "cover/kept_picture.h"
#include "imaging/drawing.h"

namespace zerdix::cover {

// The data that commands draw. The two operations ask the server, when a command needs them.
class page_content {
  public:
    const a_s_rec* record = nullptr;  // the send record: receiver and comment
    const o_user_rec* user = nullptr; // the sender
    std::int32_t document = 0;        // its id, 0 for none
    char language = 'G';

    // Null or of size 0 for none.
    virtual const page_dat* signature() = 0;

    // The receiver's phone book entry, with an empty tbookid when the book has none. Null when the
    // call failed. Good until the page is drawn.
    virtual const o_tebul* find_entry() = 0;

  protected:
    ~page_content() = default;
};

class page_painter {
  public:
    // Begins a page with the default font. Empty on failure, of which the user was told. The bitmap
    // must outlive the painter.
    static std::optional<page_painter> open(imaging::LeadBitmap& page);

    // Draws what the text says. False when there is no font for it: the page can't be used then,
    // and the user was told. A signature that stays the same is taken from `signature`.
    bool draw(std::string_view text, page_content& content, kept_picture& signature);

  private:
    using context = std::unique_ptr<imaging::drawing_context>;

    enum class outcome { next_line, end_of_walk, no_page };

    struct command {
        const char* keyword;
        outcome (page_painter::*carry_out)(const cover_fields&);
    };
    static const command commands[];

    explicit page_painter(context page) : page_(std::move(page)) {}

    bool select_font(std::string_view face, std::int32_t height);
    outcome carry_out(char* line);
    outcome draw_at(const char* x, const char* y, std::string_view text);
    void draw_date(const cover_fields& fields);
    void draw_picture(const cover_fields& fields, imaging::LeadBitmap& picture);
    bool look_up_receiver();

    outcome draw_field(const cover_fields& fields);
    outcome draw_signature(const cover_fields& fields);
    outcome draw_barcode(const cover_fields& fields);
    outcome draw_user_comment(const cover_fields& fields);
    outcome draw_document(const cover_fields& fields);
    outcome draw_comment(const cover_fields& fields);
    outcome draw_entry_comment(const cover_fields& fields);
    outcome draw_entry_phone(const cover_fields& fields);

    context page_;
    page_content* content_ = nullptr;
    kept_picture* signature_ = nullptr;
    const o_tebul* entry_ = nullptr; // the receiver's, once it was looked up
};

} // namespace zerdix::cover

#endif
