// SPDX-License-Identifier: MIT
// A cover page beside its own compression, and memory over a thousand of them.
//
// A cover page of ten commands with signature and barcode is composed, with all its remote calls to
// a server that answers at once, and compressed; the two take turns, and the best of each counts.
// Then a job goes out to few receivers and to many, each with a cover page of their own: what the
// heap holds at its peak mustn't grow with them, beside the receivers' own strings.
#include <algorithm>
#include <string>

#include <zerdix/sendfax.h>

#include "bench/heap_count.h"
#include "bench/instant_server.h"
#include "bench/sample_replies.h"
#include "cover/composer.h"
#include "cover/state.h"
#include "imaging/owned_bitmap.h"
#include "pages/codec_calls.h"
#include "support/test_server.h"

using namespace zerdix;
using bench::encoded;
using bench::require;

namespace {

constexpr int rounds = 60;
constexpr int few = 20;
constexpr int many = 1000;
constexpr double most_bytes = 64; // for a receiver: a string of 31 bytes in a block of its own

constexpr const char* commands = "#DRUCK#\n"
                                 "setfaxstring=Telefax;150;150;\n"
                                 "setfontinfo=Arial;12;\n"
                                 "setdate=1200;170;\n"
                                 "setuseraddress0=Muster und Sohn;150;400;\n"
                                 "setusercomment=150;450;\n"
                                 "settbookentrycomment=150;600;\n"
                                 "settbookentryphone=150;650;\n"
                                 "setfaxcomment=150;800;\n"
                                 "setfaxsign=150;1200;\n"
                                 "setfaxbarcode=150;1900;\n";

codec::bytes signature_picture() {
    codec::bytes page = codec::page_like(600, 2);
    page.erase(page.begin() + 8, page.begin() + 8 + 216 * 200); // the margin
    page[6] = 400 >> 8;
    page[7] = 400 & 0xFF;
    return *codec::compress(page);
}

bench::instant_server::replies answers() {
    bench::reply_list pages;
    bench::add_picture<a_get_pageb_o>(pages, *codec::compress(codec::page_like(2286, 1)));
    bench::add_picture<a_get_pageb_o>(pages, codec::text_bytes(commands));
    bench::reply_list signature;
    bench::add_picture<a_get_sigb_o>(signature, signature_picture());
    str80 id{};
    id.assign("7");
    o_user_rec user{};
    user.userid.assign("zerdix");
    user.comment.assign("Erika Muster");
    user.barcode.assign("08154711");
    o_tebul entry{};
    entry.tbookid.assign("common");
    entry.comment.assign("Adler KG");
    entry.phone.assign("030 23125 101");
    return {{59, pages},
            {61, signature},
            {74, {encoded(id)}},
            {35, {encoded(user)}},
            {82, {encoded(entry)}}};
}

bool measure_page(const bench::instant_server& server) {
    ZERDIX session;
    session.setUserId("zerdix");
    session.setAlphaserver("127.0.0.1");
    require(session.GetClientAddr("127.0.0.1") != nullptr, "GetClientAddr");
    JOURNAL journal;
    imaging::owned_bitmap bitmap;
    L_InitBitmap(&bitmap, 0, 0, 0);
    a_s_rec record{};
    record.phone.assign("adler");
    record.comment.assign("Angebot 7");
    const auto insert = [&] {
        require(cover::InsertCoverPage(&session, &journal, &bitmap, &record, 1) == 1,
                "InsertCoverPage");
    };
    insert(); // loads the fonts
    bench::best_time composing;
    bench::best_time compressing;
    const std::uint32_t before = server.calls();
    for (int round = 0; round < rounds; ++round) {
        composing.run(insert);
        compressing.run([&] {
            page_dat page{0, nullptr};
            require(ConvertLeadToCompressedFax(&page, &bitmap, 0) == 1, "compression");
            std::free(page.data);
        });
    }
    cover::forget_session();
    session.CleanupHostConnection();
    std::printf("cover page of ten commands, best of %d runs each, taking turns\n", rounds);
    std::printf("  composed    %7.0f us, with %u remote calls\n  compressed  %7.0f us\n",
                composing.microseconds(), (server.calls() - before) / rounds,
                compressing.microseconds());
    return bench::bar("composing : compressing",
                      composing.microseconds() / compressing.microseconds(), 1, "");
}

// The most that the heap holds while a job goes out, beside what it held before.
std::size_t peak_of_job(int receivers) {
    static const codec::bytes page{0, 0, 0, 8, 0, 0, 0, 9, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    std::string text;
    for (int i = 0; i < receivers; ++i)
        text += "#PHONE adler" + std::to_string(10000 + i) + "#";
    require(TransmissionDlg(nullptr, "Cover pages", 1) == 0, "TransmissionDlg");
    require(StoreFaxPage(page.data(), static_cast<std::int32_t>(page.size()), 0, 0) == 0,
            "StoreFaxPage");
    const std::size_t before = bench::count_heap().bytes;
    require(SetFaxMergeData(text.data(), static_cast<std::int32_t>(text.size())) == 0,
            "SetFaxMergeData");
    fCoverpage = 1;
    bench::reset_heap_peak();
    require(SendFaxDoc() == 0, "SendFaxDoc");
    return bench::count_heap().peak - before;
}

bool measure_memory() {
    peak_of_job(few); // fonts stay
    const std::size_t blocks = bench::count_heap().blocks;
    const std::size_t peak_of_few = peak_of_job(few);
    const std::size_t peak_of_many = peak_of_job(many);
    peak_of_job(few); // what is kept is the outcome of the last job
    require(bench::count_heap().blocks == blocks, "what a job takes it gives back");
    std::printf("heap at its peak: %zu KiB with %d receivers, %zu KiB with %d\n",
                peak_of_few / 1024, few, peak_of_many / 1024, many);
    return bench::bar("bytes for each further receiver",
                      (static_cast<double>(peak_of_many) - static_cast<double>(peak_of_few)) /
                          (many - few),
                      most_bytes, "bytes");
}

} // namespace

int main() {
    const test::scratch_folder folder;
    const test::client_environment environment{folder.path()};
    bench::keep_to_one_processor();
    const bench::instant_server server{answers()};
    const bool fast = measure_page(server);
    const bool flat = measure_memory();
    return fast && flat ? 0 : 1;
}
