// SPDX-License-Identifier: MIT
// Makes sample.pdf: a letter, a table and a picture.
// Usage: make_sample OUTPUT.pdf

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <vector>

#include <cairo-pdf.h>
#include <cairo.h>

#include "drawn_photograph.h"

namespace {

constexpr double page_width = 595.28; // A4, in points
constexpr double page_height = 841.89;
constexpr double margin = 70;

void font(cairo_t* cr, const char* family, double size, bool bold = false) {
    cairo_select_font_face(cr, family, CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, size);
}

void text(cairo_t* cr, double x, double y, const char* line) {
    cairo_move_to(cr, x, y);
    cairo_show_text(cr, line);
}

void text_to_the_left_of(cairo_t* cr, double x, double y, const char* line) {
    cairo_text_extents_t extents;
    cairo_text_extents(cr, line, &extents);
    text(cr, x - extents.x_advance, y, line);
}

void rule(cairo_t* cr, double y, double width) {
    cairo_set_line_width(cr, width);
    cairo_move_to(cr, margin, y);
    cairo_line_to(cr, page_width - margin, y);
    cairo_stroke(cr);
}

// Above that of the letterhead.
void foot(cairo_t* cr, const char* line) {
    font(cr, "Liberation Sans", 8);
    rule(cr, page_height - 82, 0.5);
    text(cr, margin, page_height - 68, line);
}

constexpr std::array letter = {
    "Sehr geehrte Damen und Herren,",
    "",
    "vielen Dank für Ihre Anfrage vom 12. dieses Monats. Gern liefern wir Ihnen die",
    "gewünschten Öfen und das Zubehör zu den umseitigen Preisen. Die Maße und das",
    "Gewicht der Geräte entnehmen Sie bitte der Tabelle auf Seite 2; wie ein gedeckter",
    "Tisch mit unserem Geschirr aussieht, zeigt das Bild auf Seite 3.",
    "",
    "Die Lieferung erfolgt frei Haus innerhalb von zehn Werktagen. Größere Stückzahlen",
    "fertigen wir auf Anfrage. Wenn Sie bis zum Monatsende bestellen, gewähren wir",
    "Ihnen 3 % Skonto auf alle Beträge über 500 €.",
    "",
    "Für Rückfragen erreichen Sie uns werktags von 8 bis 17 Uhr.",
    "",
    "Mit freundlichen Grüßen",
};

void draw_letter(cairo_t* cr) {
    font(cr, "Liberation Serif", 22, true);
    text(cr, margin, 96, "Angebot für Öfen und Krüge");
    font(cr, "Liberation Sans", 8);
    text(cr, margin, 112,
         "Beispiel & Sohn · Musterweg 7 · 12345 Musterstadt · Telefax 030 23125 900");
    rule(cr, 120, 1);
    font(cr, "Liberation Serif", 11.5);
    text(cr, margin, 170, "Haushaltswaren Krämer KG");
    text(cr, margin, 186, "Lange Straße 21");
    text(cr, margin, 202, "54321 Probehausen");
    font(cr, "Liberation Serif", 12.5, true);
    text(cr, margin, 268, "Unser Angebot 2217: Öfen, Krüge und Zubehör");
    font(cr, "Liberation Serif", 11.5);
    double y = 300;
    for (const char* line : letter) {
        text(cr, margin, y, line);
        y += 17;
    }
    // A signature: thin strokes are what a coarse raster loses first.
    cairo_set_line_width(cr, 1.1);
    cairo_move_to(cr, margin, y + 34);
    cairo_curve_to(cr, margin + 20, y - 20, margin + 24, y + 60, margin + 42, y + 20);
    cairo_curve_to(cr, margin + 56, y - 6, margin + 52, y + 52, margin + 76, y + 22);
    cairo_curve_to(cr, margin + 90, y + 8, margin + 96, y + 40, margin + 140, y + 18);
    cairo_stroke(cr);
    text(cr, margin, y + 66, "Clara Beispiel");
    font(cr, "Liberation Sans", 6);
    text(cr, margin, y + 110,
         "Kleingedrucktes (6 Punkt): Es gelten unsere Geschäftsbedingungen. "
         "Irrtum und Änderungen vorbehalten. Preise in € ohne USt.");
    foot(cr, "Seite 1 von 3");
}

struct row {
    const char *number, *name, *size, *weight, *price;
};

constexpr std::array<row, 12> rows = {{
    {"1001", "Brennofen, 60 l, für Töpferkurse", "58 × 72 cm", "94,0 kg", "2.190,00 €"},
    {"1002", "Brennofen, 100 l, mit Meßfühler", "66 × 85 cm", "131,5 kg", "2.890,00 €"},
    {"1010", "Einlegeplatte, ø 45 cm", "45 × 2 cm", "6,2 kg", "39,50 €"},
    {"1011", "Stützen, Satz zu 12 Stück", "5 – 20 cm", "3,4 kg", "24,80 €"},
    {"2001", "Krug „Überlingen“, weiß", "22 × 28 cm", "1,6 kg", "48,00 €"},
    {"2002", "Krug „Überlingen“, blaugrün", "22 × 28 cm", "1,6 kg", "52,00 €"},
    {"2010", "Schüssel, groß, mit Ährenmuster", "36 × 14 cm", "2,3 kg", "64,00 €"},
    {"2011", "Schälchen, Satz zu 6 Stück", "12 × 6 cm", "1,9 kg", "45,00 €"},
    {"2020", "Käseglocke, außen glasiert", "26 × 18 cm", "2,7 kg", "71,50 €"},
    {"3001", "Glasurpulver „Bernstein“, 5 kg", "–", "5,0 kg", "33,20 €"},
    {"3002", "Glasurpulver „Schneeweiß“, 5 kg", "–", "5,0 kg", "29,90 €"},
    {"9000", "Frachtpauschale für Öfen", "–", "–", "120,00 €"},
}};

void draw_row(cairo_t* cr, double y, const row& r) {
    text(cr, margin + 4, y, r.number);
    text(cr, margin + 46, y, r.name);
    text_to_the_left_of(cr, margin + 312, y, r.size);
    text_to_the_left_of(cr, margin + 378, y, r.weight);
    text_to_the_left_of(cr, page_width - margin - 4, y, r.price);
}

void draw_table(cairo_t* cr) {
    font(cr, "Liberation Sans", 16, true);
    text(cr, margin, 96, "Preisübersicht");
    const double top = 120, step = 26;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i % 2 == 1)
            continue;
        cairo_set_source_rgb(cr, 0.87, 0.87, 0.87);
        cairo_rectangle(cr, margin, top + step * static_cast<double>(i + 1),
                        page_width - 2 * margin, step);
        cairo_fill(cr);
    }
    cairo_set_source_rgb(cr, 0, 0, 0);
    font(cr, "Liberation Sans", 9.5, true);
    draw_row(cr, top + 17, {"Nr.", "Gegenstand", "Maße", "Gewicht", "Stückpreis"});
    font(cr, "Liberation Sans", 9.5);
    for (std::size_t i = 0; i <= rows.size() + 1; ++i)
        rule(cr, top + step * static_cast<double>(i), i < 2 ? 1.2 : 0.4);
    for (std::size_t i = 0; i < rows.size(); ++i)
        draw_row(cr, top + step * static_cast<double>(i + 1) + 17, rows[i]);
    font(cr, "Liberation Mono", 10);
    text(cr, margin, top + step * 14 + 24,
         "äöü ÄÖÜ ß é à ç ñ å ø æ § € £ ½ „Anführung“ – «guillemets»");
    foot(cr, "Seite 2 von 3 · alle Preise in € ohne Umsatzsteuer");
}

void draw_picture(cairo_t* cr) {
    const auto picture = zerdix::sample::draw_photograph(620, 780);
    std::vector<std::uint32_t> pixels;
    pixels.reserve(picture.pixels.size());
    for (const std::uint32_t grey : picture.pixels)
        pixels.push_back(grey << 16 | grey << 8 | grey);
    cairo_surface_t* image = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(pixels.data()), CAIRO_FORMAT_RGB24, picture.width,
        picture.height, picture.width * 4);
    font(cr, "Liberation Sans", 16, true);
    text(cr, margin, 96, "Krug, Orange, Tuch");
    cairo_save(cr);
    cairo_translate(cr, margin, 120);
    const double scale = (page_width - 2 * margin) / picture.width;
    cairo_scale(cr, scale, scale);
    cairo_set_source_surface(cr, image, 0, 0);
    cairo_paint(cr);
    cairo_restore(cr);
    cairo_surface_finish(image);
    cairo_surface_destroy(image);
    foot(cr, "Seite 3 von 3 · das Bild ist gerechnet");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_sample OUTPUT.pdf\n", stderr);
        return 64;
    }
    cairo_surface_t* pdf = cairo_pdf_surface_create(argv[1], page_width, page_height);
    cairo_pdf_surface_set_metadata(pdf, CAIRO_PDF_METADATA_TITLE, "Angebot 2217");
    cairo_t* cr = cairo_create(pdf);
    for (const auto draw : {draw_letter, draw_table, draw_picture}) {
        cairo_set_source_rgb(cr, 0, 0, 0);
        draw(cr);
        cairo_show_page(cr);
    }
    cairo_destroy(cr);
    cairo_surface_finish(pdf);
    const bool good = cairo_surface_status(pdf) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(pdf);
    return good ? 0 : 74;
}
