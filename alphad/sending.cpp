#include "alphad/sending.h"

#include "alphad/log_text.h"
#include "platform/encoding.h"

namespace zerdix::alphad {

namespace {

constexpr std::int16_t telex_page = 6; // the picture type
constexpr std::string_view telex_printer = ".zerdixpr";

constexpr std::int16_t fax_picture = 0; // the picture type that goes over a fax line
constexpr std::int32_t resolution_normal = 2;

// A reference to a phone book: BOOK:ENTRY.
struct reference {
    str10 book{};
    str10 entry{};
};

std::optional<reference> read_reference(std::string_view phone) {
    const std::size_t colon = phone.find(':');
    if (colon == phone.npos)
        return std::nullopt;
    reference found;
    found.book.assign(phone.substr(0, colon));
    found.entry.assign(phone.substr(colon + 1));
    return found;
}

} // namespace

std::optional<sending::receiver> sending::find_receiver(const a_s_rec& wanted) const {
    const std::string_view phone = wanted.phone.view();
    const auto asked = read_reference(phone);
    if (!asked)
        return phone.empty() ? std::nullopt : std::optional{receiver{std::string{phone}, {}}};
    const auto entry = store_.phone_books.entry(asked->book, asked->entry);
    if (!entry || entry->nettype != wanted.nettype || entry->phone.empty())
        return std::nullopt;
    return receiver{std::string{entry->phone.view()}, std::string{entry->tsi.view()}};
}

std::optional<std::vector<page_picture>>
sending::pictures(std::int32_t document, std::int16_t first, std::int16_t last, bool normal) const {
    std::vector<page_picture> found;
    for (std::int16_t page = first; page <= last; ++page) {
        const auto stored = store_.pages.picture({document, page, fax_picture});
        auto picture = stored ? expand_page(*stored) : std::nullopt;
        if (!picture)
            return std::nullopt;
        found.push_back(normal ? halved(std::move(*picture)) : std::move(*picture));
    }
    return found;
}

// There is no telex line, so a telex is refused here.
std::int32_t sending::send(const document& desk, const a_s_rec& wanted) {
    const auto to = find_receiver(wanted);
    if (!to || wanted.nettype != NETTYPE_FAX || desk.pages == 0)
        return 0;
    auto pages = pictures(desk.id, 1, desk.pages, wanted.resolution == resolution_normal);
    if (!pages)
        return 0;
    const std::string_view title =
        wanted.comment.empty() ? std::string_view{desk.comment} : wanted.comment.view();
    const std::int32_t id = store_.documents.create(TOPF_S, desk.owner, title);
    store_.pages.copy_all(desk.id, id);
    store_.logs.copy(desk.id, id);

    send_job job{desk.id, std::string{wanted.phone.view()}, wanted, false, {}};
    job.record.faxid = id;
    job.record.userid.assign(desk.owner);
    job.record.pages = desk.pages;
    job.record.comment.assign(title);
    job.record.phone.assign(to->number);
    job.record.tsi.assign(to->tsi);
    job.record.errorstatus = 0;
    job.record.retries = 0;
    spool_job(job, std::move(*pages));
    return id;
}

bool sending::spool_again(send_job& job) {
    const bool normal = job.record.resolution == resolution_normal;
    auto pages = pictures(job.record.faxid, 1, job.record.pages, normal);
    if (!pages)
        return false;
    spool_job(job, std::move(*pages));
    return true;
}

void sending::spool_job(send_job& job, std::vector<page_picture> pages) {
    const a_s_rec& record = job.record;
    const std::string number = platform::cp1252_to_utf8(record.phone.view());
    job.cancelled = false;
    job.spool = spool::file_name(record.faxid, number);
    spool_.write(job.spool, {std::move(pages), platform::cp1252_to_utf8(record.comment.view()),
                             "To " + number, record.resolution == resolution_normal});
    store_.jobs.put(job);
    store_.logs.add(record.faxid, log_line("$as.job_spooled: $n:=" +
                                           std::string{record.phone.view()} + " $s:=" + job.spool));
}

bool sending::change(const a_chg_s_rec_i& wanted) {
    auto job = store_.jobs.find(wanted.faxid);
    if (!job || job->state() == job_state::spooled)
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
    if (!job || job->state() != job_state::waiting)
        return false;
    spool_.remove(job->spool);
    job->cancelled = true;
    job->spool.clear();
    store_.jobs.put(*job);
    store_.logs.add(id, log_line("$as.job_cancelled:"));
    return true;
}

bool sending::restart(std::int32_t id) {
    auto job = store_.jobs.find(id);
    return job && job->cancelled && spool_again(*job);
}

// The receiver stands in the control record, as an item of its own.
bool sending::print_telex(const document& printed) const {
    const auto text = store_.pages.picture({printed.id, 1, telex_page});
    if (!text || !text->starts_with("#TELEX#"))
        return false;
    constexpr std::string_view mark = "##PHONE ";
    const std::size_t begin = text->find(mark);
    if (begin == std::string::npos)
        return false;
    const std::size_t from = begin + mark.size();
    const std::string number = text->substr(from, text->find('#', from) - from);
    const std::string name = spool::file_name(printed.id, "telex" + number, ".txt");
    spool_.write_text(name, *text);
    store_.logs.add(printed.id, log_line("$as.printed: $p:=1-1 $d:=" + std::string{telex_printer} +
                                         " $s:=" + name));
    return true;
}

bool sending::print(const document& printed, const a_print_doc_i& wanted) {
    if (wanted.printer == telex_printer)
        return print_telex(printed);
    if (wanted.printer.empty() || wanted.frompage < 1 || wanted.topage < wanted.frompage ||
        wanted.topage > printed.pages)
        return false;
    auto pages = pictures(printed.id, wanted.frompage, wanted.topage, false);
    if (!pages)
        return false;
    const std::string printer{wanted.printer.view()};
    const std::string range = std::to_string(wanted.frompage) + "-" + std::to_string(wanted.topage);
    const std::string name = spool::file_name(printed.id, "print" + printer);
    spool_.write(name, {std::move(*pages), platform::cp1252_to_utf8(printed.comment),
                        "For printer " + platform::cp1252_to_utf8(printer), false});
    store_.logs.add(printed.id,
                    log_line("$as.printed: $p:=" + range + " $d:=" + printer + " $s:=" + name));
    return true;
}

} // namespace zerdix::alphad
