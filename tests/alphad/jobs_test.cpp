// SPDX-License-Identifier: MIT
// Send jobs: what is refused, what is kept, and the picture that the receiver would get.
#include <gtest/gtest.h>

#include <ctime>
#include <memory>
#include <tiffio.h>

#include "desk.h"
#include "pages/codec_calls.h"

namespace zerdix {
namespace {

using namespace test;
using namespace wire::proc;
using ::testing::HasSubstr;

constexpr int page_width = 72, page_height = 7;

// A pattern in which no row, column or page equals its mirror image.
bool is_black(int x, int y, int page) {
    return (x * x + 3 * y * x + 7 * y + page) % 5 < 2;
}

// A page as it is stored: leftmost pixel in bit 0, a set bit black.
std::string page_block(int page) {
    const codec::bytes header = codec::page_header(page_width, page_height);
    std::string block{header.begin(), header.end()};
    for (int y = 0; y < page_height; ++y)
        for (int x = 0; x < page_width; x += 8) {
            int byte = 0;
            for (int bit = 0; bit < 8; ++bit)
                byte |= is_black(x + bit, y, page) ? 1 << bit : 0;
            block += static_cast<char>(byte);
        }
    return block;
}

std::string compressed(const std::string& block) {
    const codec::bytes stream = *codec::compress(codec::text_bytes(block));
    return {stream.begin(), stream.end()};
}

struct read_picture {
    std::uint32_t width = 0, height = 0;
    std::uint16_t compression = 0, photometric = 0, page = 0, pages = 0;
    float across = 0, down = 0;
    std::string title, description;
    std::vector<std::vector<bool>> black;
};

std::string text_tag(TIFF* file, std::uint32_t tag) {
    char* text = nullptr;
    return TIFFGetField(file, tag, &text) == 1 ? text : "";
}

std::vector<bool> read_row(TIFF* file, const read_picture& picture, std::uint32_t y) {
    std::vector<unsigned char> bytes(static_cast<std::size_t>(TIFFScanlineSize(file)));
    EXPECT_EQ(TIFFReadScanline(file, bytes.data(), y), 1);
    std::vector<bool> row;
    for (std::uint32_t x = 0; x < picture.width; ++x)
        row.push_back((bytes[x / 8] >> (7 - x % 8) & 1) == 1);
    return row;
}

std::vector<read_picture> read_tiff(const std::filesystem::path& path) {
    std::vector<read_picture> found;
    const std::unique_ptr<TIFF, decltype(&TIFFClose)> file{TIFFOpen(path.c_str(), "r"), TIFFClose};
    if (!file)
        return found;
    do {
        read_picture& one = found.emplace_back();
        TIFFGetField(file.get(), TIFFTAG_IMAGEWIDTH, &one.width);
        TIFFGetField(file.get(), TIFFTAG_IMAGELENGTH, &one.height);
        TIFFGetField(file.get(), TIFFTAG_COMPRESSION, &one.compression);
        TIFFGetField(file.get(), TIFFTAG_PHOTOMETRIC, &one.photometric);
        TIFFGetField(file.get(), TIFFTAG_PAGENUMBER, &one.page, &one.pages);
        TIFFGetField(file.get(), TIFFTAG_XRESOLUTION, &one.across);
        TIFFGetField(file.get(), TIFFTAG_YRESOLUTION, &one.down);
        one.title = text_tag(file.get(), TIFFTAG_DOCUMENTNAME);
        one.description = text_tag(file.get(), TIFFTAG_IMAGEDESCRIPTION);
        for (std::uint32_t y = 0; y < one.height; ++y)
            one.black.push_back(read_row(file.get(), one, y));
    } while (TIFFReadDirectory(file.get()) == 1);
    return found;
}

class Jobs : public client_test {
  protected:
    void SetUp() override {
        record.nettype = NETTYPE_FAX;
        record.comment.assign("Gr\xfc\xdf");
        record.phone.assign("+49 30/123");
        for (std::int16_t page = 1; page <= 2; ++page)
            ASSERT_TRUE(put_block(document, page, 0, compressed(page_block(page))));
    }

    std::int32_t send(std::string_view user = "zerdix") {
        return call(a_send_doc_1{}, {id(user), document, record});
    }
    const a_s_rec& job(std::int32_t number) { return call(a_get_s_1{}, {me, number}); }

    std::int32_t document = create();
    a_s_rec record{};
};

TEST_F(Jobs, SpoolWhatTheReceiverWouldGet) {
    const std::int32_t number = send();
    ASSERT_GT(number, document);
    const auto pages = read_tiff(server.spool() / spool_name(number, "+4930123"));
    ASSERT_EQ(pages.size(), 2u);
    for (int page = 1; page <= 2; ++page) {
        const read_picture& one = pages[static_cast<std::size_t>(page - 1)];
        EXPECT_EQ(one.compression, COMPRESSION_CCITTFAX4);
        EXPECT_EQ(one.photometric, PHOTOMETRIC_MINISWHITE);
        EXPECT_EQ(one.page, page - 1);
        EXPECT_EQ(one.pages, 2);
        EXPECT_EQ(one.across, 204);
        EXPECT_EQ(one.down, 196);
        EXPECT_EQ(one.title, "Grüß");
        EXPECT_EQ(one.description, "To +49 30/123");
        ASSERT_EQ(one.width, page_width);
        ASSERT_EQ(one.height, page_height);
        for (int y = 0; y < page_height; ++y)
            for (int x = 0; x < page_width; ++x)
                ASSERT_EQ(one.black[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)],
                          is_black(x, y, page))
                    << page << " " << x << " " << y;
    }
}

TEST_F(Jobs, HalveTheRowsAtNormalResolution) {
    record.resolution = 2;
    const std::int32_t number = send();
    const auto pages = read_tiff(server.spool() / spool_name(number, "+4930123"));
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].down, 98);
    ASSERT_EQ(pages[0].height, (page_height + 1) / 2);
    for (int y = 0; y < page_height; y += 2)
        for (int x = 0; x < page_width; ++x) {
            const bool below = y + 1 < page_height && is_black(x, y + 1, 1);
            ASSERT_EQ(pages[0].black[static_cast<std::size_t>(y / 2)][static_cast<std::size_t>(x)],
                      is_black(x, y, 1) || below);
        }
}

TEST_F(Jobs, AreTheServersOwnCopy) {
    ASSERT_TRUE(put_log(document, "a line"));
    record.phone.assign("common:druckerei");
    const std::int32_t number = send();
    ASSERT_GT(number, 0);
    EXPECT_TRUE(remove(document));
    const a_s_rec kept = job(number);
    EXPECT_EQ(kept.faxid, number);
    EXPECT_EQ(kept.userid, "zerdix");
    EXPECT_EQ(kept.pages, 2);
    EXPECT_EQ(kept.phone, "06990009212");
    EXPECT_EQ(kept.tsi, "+49 69 90009 212");
    EXPECT_EQ(kept.status, send_spooled);
    EXPECT_EQ(page_size(number, 2, "zerdix", TOPF_S),
              static_cast<std::int32_t>(compressed(page_block(2)).size()));
    const log_answer log = get_log(number, 0, "english_us", TOPF_S);
    ASSERT_EQ(log.lines.size(), 2u);
    EXPECT_EQ(log.lines[0], "a line");
    EXPECT_THAT(log.lines[1], HasSubstr("spooled for 06990009212"));
    ASSERT_EQ(server.jobs().size(), 1u);
    EXPECT_EQ(server.jobs()[0].receiver, "common:druckerei");
    EXPECT_EQ(server.jobs()[0].desk, document);
}

TEST_F(Jobs, ToANumberOfTheOtherNetAreTakenAndEnd) {
    record.phone.assign("common:hansen");
    const std::int32_t number = send();
    ASSERT_EQ(server.jobs().size(), 1U);
    const alphad::send_job job = server.jobs().front();
    EXPECT_EQ(job.record.faxid, number);
    EXPECT_EQ(job.state(), send_cancelled);
    EXPECT_EQ(job.record.errorstatus, 1);
    EXPECT_FALSE(call(a_restart_job_1{}, {me, number}));
    EXPECT_TRUE(std::filesystem::is_empty(server.spool()));
}

TEST_F(Jobs, AreRefusedAsAWhole) {
    EXPECT_EQ(send("meier"), 0);
    for (const char* phone : {"", "common:nobody", "nobook:lager", ":"}) {
        record.phone.assign(phone);
        EXPECT_EQ(send(), 0) << phone;
    }
    record.phone.assign("123");
    record.nettype = NETTYPE_TELEX;
    EXPECT_EQ(send(), 0);
    record.nettype = NETTYPE_FAX;

    const std::string good = page_block(1);
    std::string wide = good, endless = good, odd = good;
    wide[0] = endless[4] = '\x7f';
    odd[3] = page_width + 1;
    for (const std::string& block :
         {good.substr(0, 7), good.substr(0, good.size() - 1), wide, endless, odd, std::string{}}) {
        EXPECT_FALSE(put_block(document, 2, 0, compressed(block)));
        EXPECT_FALSE(call(a_put_page_1{}, {me, document, 2, 0, lent(compressed(block))}));
    }
    EXPECT_EQ(page_part(document, 2, 0, 1000), compressed(page_block(2))) << "stays";
    // What isn't even a stream is kept, and not sent.
    for (const char* stored : {"", "no stream"}) {
        ASSERT_TRUE(put_block(document, 2, 0, stored));
        EXPECT_EQ(send(), 0);
    }
    ASSERT_TRUE(put_block(document, 2, 0, compressed(good + "spare")));
    ASSERT_TRUE(call(a_insert_page_1{}, {me, document, 1}));
    EXPECT_EQ(send(), 0);
    document = create();
    EXPECT_EQ(send(), 0);

    EXPECT_TRUE(server.jobs().empty());
    EXPECT_TRUE(server.store().documents.list(TOPF_S, "zerdix").empty());
    EXPECT_TRUE(std::filesystem::is_empty(server.spool()));
}

// In blocks of 512 bytes, of which the last one is refused.
TEST_F(Jobs, TakeNoPageThatIsNoPicture) {
    const auto block_refused = [&](const std::string& page) {
        for (std::size_t at = 0, block = 1; at <= page.size(); at += 512, ++block)
            if (!put_block(document, 3, static_cast<std::int32_t>(at), page.substr(at, 512)))
                return at + 512 > page.size() ? "the last" : block == 1 ? "the first" : "another";
        return "none";
    };
    std::string long_page{"\0\0\0\x48\0\0\x08\0", 8}; // 72 by 2,048
    for (unsigned i = 0, value = 1; i < 9 * 2048; ++i)
        long_page += static_cast<char>((value = value * 69069 + 1) >> 24);
    EXPECT_STREQ(block_refused(compressed(long_page.substr(0, long_page.size() - 1))), "the last");
    EXPECT_EQ(page_size(document, 3), 0);
    EXPECT_STREQ(block_refused(compressed(long_page)), "none");
    EXPECT_EQ(page_size(document, 3), static_cast<std::int32_t>(compressed(long_page).size()));
    const std::string high{"\0\0\0\x08\0\x01\x11\x70", 8}; // 8 by 70,000
    EXPECT_STREQ(block_refused(compressed(high + std::string(70'000, '\0'))), "the last");
    EXPECT_STREQ(block_refused(compressed(high + long_page + std::string(70'000, '\0'))),
                 "the first");
    EXPECT_GT(send(), 0) << "the page before it stays";
}

TEST_F(Jobs, CanBeChangedAndCancelledWhileTheyWait) {
    const std::int32_t done = send();
    EXPECT_FALSE(call(a_cancel_job_1{}, {me, done}));
    EXPECT_FALSE(call(a_restart_job_1{}, {me, done}));

    record.sendtime = static_cast<std::int32_t>(std::time(nullptr) + 3600);
    const std::int32_t number = send();
    const auto picture = server.spool() / spool_name(number, "+4930123");
    const auto log_of = [&](std::int32_t sent) {
        return get_log(sent, 0, "english_us", TOPF_S).lines.back();
    };
    EXPECT_THAT(log_of(done), HasSubstr("spooled for"));
    EXPECT_THAT(log_of(number), HasSubstr("job for +49 30/123 waits until 20"));
    EXPECT_EQ(job(number).status, send_waiting);
    EXPECT_FALSE(call(a_cancel_job_1{}, {id("meier"), number}));
    EXPECT_TRUE(call(a_cancel_job_1{}, {me, number}));
    EXPECT_FALSE(call(a_cancel_job_1{}, {me, number}));
    EXPECT_FALSE(std::filesystem::exists(picture));
    EXPECT_EQ(job(number).status, send_cancelled);

    a_chg_s_rec_i change{number, me, 5, field<str30>("new"), 0, {0}, 3, 2};
    EXPECT_TRUE(call(a_chg_s_rec_1{}, change));
    EXPECT_TRUE(call(a_restart_job_1{}, {me, number}));
    EXPECT_FALSE(call(a_chg_s_rec_1{}, change));
    const a_s_rec& changed = job(number);
    EXPECT_EQ(changed.status, send_spooled);
    EXPECT_EQ(changed.comment, "new");
    EXPECT_EQ(changed.maxretries, 3);
    ASSERT_EQ(read_tiff(picture).size(), 2u);
    EXPECT_EQ(read_tiff(picture)[0].down, 98);

    record.nighttariff = true;
    const std::int32_t night = send();
    EXPECT_EQ(job(night).status, send_waiting);
    EXPECT_THAT(log_of(night), HasSubstr("waits for the night tariff: 0000"));
}

// The log's line is the last thing that a job writes; here the store has no room for it.
TEST_F(Jobs, LeaveTheSpoolFolderAsItWasWhenTheStoreFails) {
    record.sendtime = static_cast<std::int32_t>(std::time(nullptr) + 3600);
    const std::int32_t number = send();
    const auto picture = server.spool() / spool_name(number, "+4930123");
    ASSERT_EQ(read_tiff(picture).size(), 2U);
    alphad::database& db = server.store().database();
    db.run("CREATE TRIGGER full BEFORE INSERT ON log_lines WHEN instr(NEW.line, x'2461732E') > 0 "
           "BEGIN SELECT raise(ABORT, 'database or disk is full'); END");
    EXPECT_EQ(try_call(a_send_doc_1{}, {me, document, record}), nullptr);
    EXPECT_EQ(try_call(a_print_doc_1{}, {me, TOPF_P, document, 1, 1, id("laser1"), 1}), nullptr);
    EXPECT_EQ(try_call(a_cancel_job_1{}, {me, number}), nullptr);
    a_chg_s_rec_i change{number, me, 5, {}, record.sendtime, {0}, 3, 2};
    EXPECT_EQ(try_call(a_chg_s_rec_1{}, change), nullptr);
    EXPECT_EQ(read_tiff(picture).at(0).down, 196);
    using files = std::filesystem::directory_iterator;
    EXPECT_EQ(std::distance(files{server.spool()}, files{}), 1);
    db.run("DROP TRIGGER full");
    EXPECT_TRUE(call(a_cancel_job_1{}, {me, number}));
    EXPECT_TRUE(std::filesystem::is_empty(server.spool()));
}

} // namespace
} // namespace zerdix
