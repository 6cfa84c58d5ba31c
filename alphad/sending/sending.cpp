// SPDX-License-Identifier: MIT
#include "alphad/sending/sending.h"

#include <algorithm>
#include <ctime>
#include <deque>
#include <future>
#include <thread>

#include <zerdix/book_entry.h>
#include <zerdix/values.h>

#include "alphad/store/log_text.h"
#include "alphad/store/stored_record.h"
#include "platform/encoding.h"

namespace zerdix::alphad {

namespace {

std::string file_name_of(const std::string& kept) {
    return std::filesystem::path{kept}.filename().string();
}

std::string time_of(std::int32_t seconds) {
    const std::time_t time = seconds;
    std::tm local{};
    localtime_r(&time, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local);
    return text;
}

// Nothing when the bytes are no page.
std::optional<tiff::coded_page> code_page(const std::optional<std::string>& stored, bool normal) {
    auto picture = stored ? read_page(*stored) : std::nullopt;
    if (!picture)
        return std::nullopt;
    if (normal)
        picture = halved(std::move(*picture));
    return tiff::coded({picture->size.width, picture->size.height, picture->rows});
}

// The log's line about a job whose file lies ready.
std::string event_of(const send_job& job) {
    const a_s_rec& record = job.record;
    std::string event = "$as.job_spooled:";
    if (record.nighttariff)
        event = "$as.job_waits_for_night:";
    else if (job.state() == send_waiting)
        event = "$as.job_waits_for_time: $t:=" + time_of(record.sendtime);
    return event + " $n:=" + std::string{record.phone.view()} + " $s:=" + file_name_of(job.spool);
}

tiff::fax_tiff_texts texts_of(std::string_view title, const char* target_kind,
                              std::string_view target) {
    return {platform::cp1252_to_utf8(title), target_kind + platform::cp1252_to_utf8(target),
            "alphad", true};
}

} // namespace

std::optional<sending::receiver> sending::find_receiver(const str10& user,
                                                        const a_s_rec& wanted) const {
    const std::string_view phone = wanted.phone.view();
    const auto asked = parse_book_entry(phone);
    if (!asked)
        return phone.empty() ? std::nullopt : std::optional{receiver{std::string{phone}, {}}};
    const str10 book_id = clean_key(asked->book);
    const auto book = store_.phone_books.book(book_id);
    const auto entry = store_.phone_books.entry(book_id, clean_key(asked->entry));
    if (!book || !rights_.may(user, right_use, *book) || !entry || entry->phone.empty())
        return std::nullopt;
    return receiver{std::string{entry->phone.view()}, std::string{entry->tsi.view()},
                    entry->nettype != wanted.nettype};
}

// A few pages at a time, each on a processor of its own: all of a long document's rows at once
// would take half a gigabyte.
std::optional<std::vector<tiff::coded_page>>
sending::pictures(std::int32_t document, std::int16_t first, std::int16_t last, bool normal) const {
    const std::size_t at_once = std::max(std::thread::hardware_concurrency(), 1U);
    std::vector<tiff::coded_page> found;
    std::deque<std::future<std::optional<tiff::coded_page>>> under_way;
    for (std::int32_t page = first; page <= last || !under_way.empty();) {
        if (page <= last && under_way.size() < at_once) {
            const auto number = static_cast<std::int16_t>(page++);
            auto stored = store_.pages.picture({document, number, picture_page});
            under_way.push_back(std::async(code_page, std::move(stored), normal));
            continue;
        }
        auto coded = under_way.front().get();
        under_way.pop_front();
        if (!coded)
            return std::nullopt;
        found.push_back(std::move(*coded));
    }
    return found;
}

// A telex is kept as such, or as the text that it was made of.
std::optional<std::string> sending::telex_text(std::int32_t document) const {
    auto text = store_.pages.picture({document, 1, picture_telex});
    return text ? text : store_.pages.picture({document, 1, picture_text});
}

std::optional<sending::message> sending::message_of(std::int32_t document,
                                                    const a_s_rec& record) const {
    if (record.nettype == NETTYPE_TELEX) {
        auto text = telex_text(document);
        return text ? std::optional{message{{}, std::move(*text)}} : std::nullopt;
    }
    auto pages = pictures(document, 1, record.pages, record.resolution == resolution_normal);
    return pages ? std::optional{message{std::move(*pages), {}}} : std::nullopt;
}

// Pages are sent as faxes only; a telex is printed on the telex printer.
std::int32_t sending::send(const str10& user, const document& desk, const a_s_rec& wanted) {
    const auto to = find_receiver(user, wanted);
    if (!to || wanted.nettype != NETTYPE_FAX || desk.pages == 0)
        return 0;
    a_s_rec record = wanted;
    record.pages = desk.pages;
    if (record.comment.empty())
        record.comment.assign(desk.comment);
    record.userid.assign(desk.owner);
    auto what = message_of(desk.id, record);
    return what ? make_job(desk, record, *to, std::move(*what)) : 0;
}

std::int32_t sending::make_job(const document& from, a_s_rec record, const receiver& to,
                               message what) {
    const std::int32_t id =
        store_.documents.create(TOPF_S, record.userid.view(), record.comment.view());
    store_.pages.copy_all(from.id, id);
    store_.logs.copy(from.id, id);

    send_job job{from.id, std::string{record.phone.view()}, record, false, {}};
    job.record.faxid = id;
    job.record.phone.assign(to.number);
    job.record.tsi.assign(to.tsi);
    job.record.errorstatus = send_error_none;
    job.record.retries = 0;
    if (to.other_net)
        end_without_line(job);
    else
        spool_job(job, std::move(what));
    return id;
}

// The job is made all the same: a client stops at the first receiver that is refused, and a group
// may hold numbers of both nets.
void sending::end_without_line(send_job& job) {
    job.record.errorstatus = send_error_other_net;
    job.cancelled = true;
    store_.jobs.put(job);
    store_.logs.add(job.record.faxid,
                    log_line("$as.other_net: $n:=" + std::string{job.record.phone.view()}));
}

bool sending::spool_again(send_job& job) {
    auto what = message_of(job.record.faxid, job.record);
    if (what)
        spool_job(job, std::move(*what));
    return what.has_value();
}

void sending::spool_job(send_job& job, message what) {
    const a_s_rec& record = job.record;
    job.cancelled = false;
    job.spool = write_file(record, std::move(what));
    change_file(job.spool, true);
    store_.jobs.put(job);
    store_.logs.add(record.faxid, log_line(event_of(job)));
}

// As it is kept.
std::string sending::write_file(const a_s_rec& record, message what) {
    const std::string number = platform::cp1252_to_utf8(record.phone.view());
    if (record.nettype == NETTYPE_TELEX) {
        const std::string name =
            spool_.kept(spool::file_name(record.faxid, "telex" + number, ".txt"));
        spool_.write_text(name, what.telex);
        return name;
    }
    const std::string name = spool_.kept(spool::file_name(record.faxid, number));
    const int dpi_down = record.resolution == resolution_normal ? ZX_DPI_NORMAL : ZX_DPI_FINE;
    write_picture(name, what.pages, dpi_down,
                  texts_of(record.comment.view(), "To ", record.phone.view()));
    return name;
}

void sending::write_picture(const std::string& name, const std::vector<tiff::coded_page>& pages,
                            int dpi_down, const tiff::fax_tiff_texts& texts) {
    spool_.write(name, [&](const std::filesystem::path& path) {
        tiff::fax_tiff file(path, static_cast<int>(pages.size()), texts);
        for (const tiff::coded_page& page : pages)
            file.add(page, dpi_down);
        file.close();
    });
}

void sending::change_file(const std::string& name, bool appears) {
    store_.file_changes.put({name, appears});
    files_to_settle_ = true;
}

void sending::settle_files() {
    if (!files_to_settle_)
        return;
    files_to_settle_ = false;
    for (const file_change& change : store_.file_changes.all())
        change.appears ? spool_.publish(change.file) : spool_.remove(change.file);
    store_.file_changes.clear();
}

void sending::adopt_files() {
    transaction work(store_.database());
    for (send_job job : store_.jobs.all())
        if (!job.spool.empty() && spool_.holds(job.spool)) {
            job.spool = spool_.kept(job.spool);
            store_.jobs.put(job);
        }
    work.commit();
}

void sending::discard_files() noexcept {
    files_to_settle_ = false;
    spool_.discard();
}

bool sending::change(const a_chg_s_rec_i& wanted) {
    auto job = store_.jobs.find(wanted.faxid);
    if (!job || job->state() == send_spooled)
        return false;
    a_s_rec& record = job->record;
    record.priority = wanted.priority;
    record.comment = wanted.comment;
    record.sendtime = wanted.sendtime;
    record.nighttariff = wanted.nighttariff;
    record.maxretries = wanted.maxretries;
    record.resolution = wanted.resolution;
    store_.documents.set_comment(wanted.faxid, wanted.comment.view());
    store_.logs.add(wanted.faxid, log_line("$as.job_changed:"));
    if (!job->cancelled)
        return spool_again(*job);
    store_.jobs.put(*job);
    return true;
}

bool sending::cancel(std::int32_t id) {
    auto job = store_.jobs.find(id);
    if (!job || job->state() != send_waiting)
        return false;
    change_file(job->spool, false);
    job->cancelled = true;
    job->spool.clear();
    store_.jobs.put(*job);
    store_.logs.add(id, log_line("$as.job_cancelled:"));
    return true;
}

bool sending::restart(std::int32_t id) {
    auto job = store_.jobs.find(id);
    return job && job->cancelled && job->record.errorstatus == send_error_none && spool_again(*job);
}

bool sending::print_telex(const document& printed) {
    auto text = telex_text(printed.id);
    const auto order = text ? read_telex_order(*text) : std::nullopt;
    if (!order || !store_.users.knows(order->userid.view()))
        return false;
    if (order->phone.empty()) {
        lay_on_desk(printed, *order);
        return true;
    }
    a_s_rec record{};
    record.userid = order->userid;
    record.nettype = NETTYPE_TELEX;
    record.pages = 1;
    record.comment = order->title;
    record.phone = order->phone;
    record.sendtime = order->sendtime;
    record.maxretries = order->retries;
    const auto to = find_receiver(order->userid, record);
    return to && make_job(printed, record, *to, {{}, std::move(*text)}) != 0;
}

void sending::lay_on_desk(const document& telex, const telex_order& order) {
    const std::int32_t id =
        store_.documents.create(TOPF_P, order.userid.view(), order.title.view());
    store_.pages.copy_all(telex.id, id);
    store_.documents.set_bif(id, true);
}

bool sending::print(const document& printed, const a_print_doc_i& wanted) {
    if (wanted.printer == telex_printer)
        return print_telex(printed);
    if (!store_.devices.printer(wanted.printer) || wanted.frompage < 1 ||
        wanted.topage < wanted.frompage || wanted.topage > printed.pages)
        return false;
    auto pages = pictures(printed.id, wanted.frompage, wanted.topage, false);
    if (!pages)
        return false;
    const std::string printer{wanted.printer.view()};
    const std::string range = std::to_string(wanted.frompage) + "-" + std::to_string(wanted.topage);
    const std::string name = spool::file_name(printed.id, "print" + printer);
    write_picture(spool_.kept(name), *pages, ZX_DPI_FINE,
                  texts_of(printed.comment, "For printer ", printer));
    change_file(spool_.kept(name), true);
    store_.logs.add(printed.id,
                    log_line("$as.printed: $p:=" + range + " $d:=" + printer + " $s:=" + name));
    return true;
}

} // namespace zerdix::alphad
