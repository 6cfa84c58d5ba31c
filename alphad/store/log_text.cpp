// SPDX-License-Identifier: MIT
#include "alphad/store/log_text.h"

#include <ctime>
#include <map>
#include <optional>

namespace zerdix::alphad {

namespace {

// A letter in braces stands for that value. Of several rows of an event the first one counts whose
// values the line holds.
struct sentence {
    std::string_view event;
    std::string_view german, french, english;
};

constexpr sentence sentences[] = {
    {"$ps.document_created",
     "Dokument {f} f\xfc"
     "r {u} auf {a} angelegt",
     "document {f} cr\xe9\xe9 pour {u} sur {a}", "document {f} created for {u} on {a}"},
    {"$ps.page_no_completed", "Seite {p} gespeichert",
     "page {p} enregistr\xe9"
     "e",
     "page {p} stored"},
    {"$ps.document_completed", "Dokument vollst\xe4ndig", "document complet", "document complete"},
    {"$ps.document_deleted", "Dokument {f} von {u} gel\xf6scht", "document {f} de {u} supprim\xe9",
     "document {f} of {u} deleted"},
    {"$ps.document_deleted", "Dokument gel\xf6scht", "document supprim\xe9", "document deleted"},
    {"$as.job_spooled", "f\xfcr {n} abgelegt als {s}", "d\xe9pos\xe9 pour {n} : {s}",
     "spooled for {n} as {s}"},
    {"$as.job_waits_for_time", "Auftrag f\xfcr {n} wartet bis {t}: {s}",
     "envoi pour {n} attend jusqu'au {t} : {s}", "job for {n} waits until {t}: {s}"},
    {"$as.job_waits_for_night", "Auftrag f\xfcr {n} wartet auf den Nachttarif: {s}",
     "envoi pour {n} attend le tarif de nuit : {s}", "job for {n} waits for the night tariff: {s}"},
    {"$as.demo_document",
     "Beispieldokument, nicht \xfc"
     "bertragen",
     "exemple, jamais transmis", "sample document, was never transmitted"},
    {"$as.job_changed", "Auftrag ge\xe4ndert", "envoi modifi\xe9", "job changed"},
    {"$as.job_cancelled", "Auftrag abgebrochen", "envoi annul\xe9", "job cancelled"},
    {"$as.other_net", "{n} geh\xf6rt zum anderen Netz", "{n} est de l'autre r\xe9seau",
     "{n} is of the other net"},
    {"$as.printed", "Seiten {p} f\xfcr Drucker {d} abgelegt als {s}",
     "pages {p} d\xe9pos\xe9"
     "es pour l'imprimante {d} : {s}",
     "pages {p} spooled for printer {d} as {s}"},
};

constexpr std::size_t time_length = 24;
constexpr std::size_t event_start = time_length + 2;

using values = std::map<char, std::string_view>;

values read_values(std::string_view text) {
    values found;
    for (std::size_t at = text.find(" $"); at != text.npos;) {
        const std::size_t end = text.find(" $", at + 1);
        const std::string_view pair = text.substr(at + 2, end == text.npos ? end : end - at - 2);
        if (pair.size() > 2 && pair.substr(1, 2) == ":=")
            found[pair[0]] = pair.substr(3);
        at = end;
    }
    return found;
}

std::optional<std::string> fill(std::string_view words, const values& known) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] != '{' || i + 2 >= words.size()) {
            text += words[i];
            continue;
        }
        const auto value = known.find(words[i + 1]);
        if (value == known.end())
            return std::nullopt;
        text += value->second;
        i += 2;
    }
    return text;
}

std::string_view words_in(const sentence& row, log_language language) {
    switch (language) {
    case log_language::german:
        return row.german;
    case log_language::french:
        return row.french;
    default:
        return row.english;
    }
}

} // namespace

log_language language_of(std::string_view name) {
    if (name.starts_with("german"))
        return log_language::german;
    return name.starts_with("french") ? log_language::french : log_language::english;
}

std::string in_words(std::string_view line, log_language language) {
    if (line.size() <= event_start || line.substr(time_length, 3) != "  $")
        return std::string{line};
    const std::string_view rest = line.substr(event_start);
    const std::string_view event = rest.substr(0, rest.find(':'));
    const values known = read_values(rest.substr(event.size()));
    for (const sentence& row : sentences)
        if (row.event == event)
            if (const auto text = fill(words_in(row, language), known))
                return std::string{line.substr(0, event_start)} + *text;
    return std::string{line};
}

std::string log_line(std::string_view event_and_values) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char time_text[64];
    std::strftime(time_text, sizeof time_text, "%a %b %d %H:%M:%S %Y", &local);
    return std::string{time_text} + "  " + std::string{event_and_values};
}

} // namespace zerdix::alphad
