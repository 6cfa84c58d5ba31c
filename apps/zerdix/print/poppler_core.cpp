// SPDX-License-Identifier: MIT
#include "print/poppler_core.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include <ErrorCodes.h>
#include <GlobalParams.h>
#include <PDFDoc.h>
#include <Page.h>
#include <UTF.h>
#include <goo/gfile.h>
#include <splash/SplashBitmap.h>

#include "print/bilevel_device.h"
#include "print/dithering.h"

namespace zerdix::app {

namespace {

// Poppler tells its messages to one function for all threads, in the thread that they come from.
thread_local std::string* message_place = nullptr;

void keep_first(ErrorCategory, Goffset position, const char* text) {
    if (message_place == nullptr || !message_place->empty())
        return;
    std::string message = text;
    message.erase(message.find_last_not_of(' ') + 1);
    if (position >= 0)
        message = "error (" + std::to_string(position) + "): " + message;
    *message_place = message;
}

// What this thread hears from Poppler goes to `place` as long as the object is there.
class listener {
  public:
    explicit listener(std::string& place) : before_(message_place) { message_place = &place; }
    ~listener() { message_place = before_; }
    listener(const listener&) = delete;
    listener& operator=(const listener&) = delete;

  private:
    std::string* before_;
};

// Poppler's settings for all documents, there until the program ends.
void set_up_poppler() {
    static const GlobalParamsIniter settings(keep_first);
}

SplashColor white = {255, 255, 255, 255};

void render_without_smoothing(SplashOutputDev& device, PDFDoc& document) {
    device.setFontAntialias(false);
    device.setVectorAntialias(false);
    device.setFreeTypeHinting(false, false);
    device.startDoc(&document);
}

// Without a colour of its own the device leaves it to us to put the paper behind the page.
std::unique_ptr<SplashOutputDev> make_grey_device(PDFDoc& document) {
    auto device = std::make_unique<SplashOutputDev>(splashModeMono8, 4, false, nullptr);
    device->setPaperColor(white);
    render_without_smoothing(*device, document);
    return device;
}

std::unique_ptr<bilevel_device> make_bilevel_device(PDFDoc& document) {
    auto device = std::make_unique<bilevel_device>(white);
    render_without_smoothing(*device, document);
    return device;
}

std::string utf8_of(const GooString& text) {
    const auto byte = [&text](int at) {
        return static_cast<unsigned char>(text.getChar(static_cast<std::size_t>(at)));
    };
    const bool big = text.hasUnicodeMarker();
    const bool wide = big || text.hasUnicodeMarkerLE();
    std::vector<std::uint16_t> units;
    if (wide)
        for (int i = 2; i + 1 < text.getLength(); i += 2)
            units.push_back(
                static_cast<std::uint16_t>(byte(i + (big ? 0 : 1)) << 8 | byte(i + (big ? 1 : 0))));
    else
        for (int i = 0; i < text.getLength(); ++i)
            units.push_back(byte(i));
    units.push_back(0);
    const std::unique_ptr<char, decltype(&std::free)> utf8(utf16ToUtf8(units.data()), std::free);
    return utf8.get();
}

bool is_on_its_side(const Page& page) {
    return page.getRotate() == 90 || page.getRotate() == 270;
}

struct stop_signs {
    const std::atomic<bool>& stop;
    const bilevel_device* device; // null for the grey one, which has no reason of its own
};

bool is_to_stop(void* data) {
    const auto& signs = *static_cast<const stop_signs*>(data);
    return signs.stop || (signs.device != nullptr && signs.device->asks_for_grey());
}

} // namespace

struct poppler_core::parts {
    explicit parts(std::shared_ptr<GooFile> opened);

    void display(SplashOutputDev& device, int page, const page_placement& place, stop_signs signs);
    std::optional<std::vector<unsigned char>> render_bilevel(int page, const page_placement& place,
                                                             const std::atomic<bool>& stop);
    std::vector<unsigned char> render_grey(int page, const page_placement& place,
                                           const std::atomic<bool>& stop);

    std::string message;
    std::shared_ptr<GooFile> file; // null when it can't be opened; read without a position
    std::unique_ptr<PDFDoc> document;
    std::unique_ptr<bilevel_device> bilevel; // made when the first page needs it, as the next one
    std::unique_ptr<SplashOutputDev> grey;
};

poppler_core::parts::parts(std::shared_ptr<GooFile> opened) : file(std::move(opened)) {
    set_up_poppler();
    if (file == nullptr)
        return;
    const listener listening(message);
    document = std::make_unique<PDFDoc>(
        new FileStream(file.get(), 0, false, file->size(), Object(objNull))); // takes it over
}

// The document keeps what it has read of the file, so that it isn't copied for each page.
void poppler_core::parts::display(SplashOutputDev& device, int page, const page_placement& place,
                                  stop_signs signs) {
    constexpr int quarter_turn_left = 270;
    document->displayPageSlice(&device, page, place.dpi_across, place.dpi_down,
                               place.turned ? quarter_turn_left : 0, false, true, false,
                               -place.left, 0, fax_width, place.rows, is_to_stop, &signs);
}

// Nothing when the page has shades. Its messages come again then.
std::optional<std::vector<unsigned char>>
poppler_core::parts::render_bilevel(int page, const page_placement& place,
                                    const std::atomic<bool>& stop) {
    if (bilevel == nullptr)
        bilevel = make_bilevel_device(*document);
    const std::string before = message;
    display(*bilevel, page, place, {stop, bilevel.get()});
    if (bilevel->asks_for_grey()) {
        message = before;
        return std::nullopt;
    }
    SplashBitmap& bitmap = *bilevel->getBitmap();
    if (bitmap.getWidth() != fax_width || bitmap.getHeight() != place.rows)
        return std::vector<unsigned char>();
    return driver_block(bilevel_page{bitmap.getDataPtr(),
                                     static_cast<std::size_t>(bitmap.getRowSize()),
                                     bitmap.getWidth(), bitmap.getHeight()});
}

std::vector<unsigned char> poppler_core::parts::render_grey(int page, const page_placement& place,
                                                            const std::atomic<bool>& stop) {
    if (grey == nullptr)
        grey = make_grey_device(*document);
    display(*grey, page, place, {stop, nullptr});
    SplashBitmap& bitmap = *grey->getBitmap();
    if (bitmap.getWidth() != fax_width || bitmap.getHeight() != place.rows)
        return {};
    return driver_block(grey_page{bitmap.getDataPtr(), bitmap.getAlphaPtr(),
                                  static_cast<std::size_t>(bitmap.getRowSize()), bitmap.getWidth(),
                                  bitmap.getHeight()});
}

poppler_core::poppler_core(const std::string& path)
    : parts_(std::make_unique<parts>(GooFile::open(path))) {}

poppler_core::poppler_core(const poppler_core& other)
    : parts_(std::make_unique<parts>(other.parts_->file)) {}

poppler_core::~poppler_core() = default;

bool poppler_core::is_open() const {
    return parts_->document != nullptr && parts_->document->isOk();
}

bool poppler_core::is_locked() const {
    return parts_->document != nullptr && parts_->document->getErrorCode() == errEncrypted;
}

int poppler_core::pages() const {
    const listener listening(parts_->message);
    return parts_->document->getNumPages();
}

std::string poppler_core::title() const {
    const listener listening(parts_->message);
    const std::unique_ptr<GooString> given = parts_->document->getDocInfoTitle();
    return given == nullptr ? "" : utf8_of(*given);
}

std::optional<pdf_page_size> poppler_core::page_size(int number) {
    const listener listening(parts_->message);
    const Page* page = parts_->document->getPage(number);
    if (page == nullptr)
        return std::nullopt;
    const PDFRectangle& box = *page->getCropBox();
    const pdf_page_size upright{box.x2 - box.x1, box.y2 - box.y1};
    return is_on_its_side(*page) ? pdf_page_size{upright.height, upright.width} : upright;
}

std::vector<unsigned char> poppler_core::render(int page, const page_placement& place,
                                                const std::atomic<bool>& stop) {
    const listener listening(parts_->message);
    auto block = parts_->render_bilevel(page, place, stop);
    return block ? std::move(*block) : parts_->render_grey(page, place, stop);
}

std::string poppler_core::take_message() {
    return std::exchange(parts_->message, {});
}

} // namespace zerdix::app
