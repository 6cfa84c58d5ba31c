#include "imaging/message_text.h"

#include "platform/message_box.h"

namespace zerdix::imaging {

namespace {

constexpr std::int32_t caption = 525;

} // namespace

const char* message_text(std::int32_t number) {
    switch (number) {
    case 494:
        return "Fehler!\nProblem mit Bitmap";
    case 506:
        return "Fehler!\nProblem mit Bitmap-Bibliothek";
    case caption:
        return "Benachrichtigung";
    case 1200:
        return "Fehler!\nProblem mit Windows";
    case 1204:
    case 1232:
    case 1459:
        return "Fehler!\nEinige Operationen konnten nicht ausgefuehrt werden!";
    case 1210:
        return "Error ConvertCompressedFaxToLead()";
    case 1213:
        return "Error CreateFontIndirect()";
    case 1246:
        return "Error L_AllocateBitmap()";
    case 1253:
        return "Error L_CreateLeadDC()";
    case 1256:
        return "Error L_InitBitmap()";
    case 1257:
        return "Error L_InvertBitmap()";
    case 1264:
        return "Kein Deckblatt eingestellt";
    case 1430:
        return "Bitte verwenden Sie bei Antworten diesen Barcode";
    case 1466:
        return "Error CreateEmptyBitmap()";
    default:
        return "";
    }
}

void show_message(std::int32_t number) {
    platform::message_box().show(message_text(number), message_text(caption));
}

} // namespace zerdix::imaging
