// SPDX-License-Identifier: MIT
// Exporting a phone book to a text file, and importing one.

#include <filesystem>
#include <fstream>
#include <new>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <zerdix/pager.h>
#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "rpc/list.h"
#include "telebook/entry_request.h"
#include "telebook/phone_book_line.h"

using namespace zerdix;
using rpc::by_object;
using telebook::line_buffer;
using telebook::text_file;
namespace proc = rpc::proc;

namespace {

// Beside those of every operation.
enum transfer_result : std::int32_t {
    file_failed = 5,
    no_file = 6,
    no_memory = 7,
};

// The key directly behind an id: the byte behind the tenth character, where an id has its NUL, is
// the highest there is. So no id lies between the two.
str10 key_behind(const str10& id) {
    str10 key{};
    key.assign_field(id.view());
    key.bytes[sizeof key.bytes - 1] = '\xff';
    return key;
}

// The policy of an export: an entry that comes again ends it, but for the last one at the head of
// the next block, since a server that reads keys as texts begins again with it. In which order ids
// come is the server's business. While they ascend the last one is enough to tell a new one; from
// the first that doesn't they are all looked up, and the file is read back for those before.
class written_ids {
  public:
    // `path` names the file that the entries are written to, block by block.
    written_ids(const char* path, std::FILE* file, std::int32_t blocksize)
        : path_(path), file_(file), blocksize_(blocksize) {}

    // False when an entry comes again, when that can't be told, or when the block had room for the
    // repeated entry only.
    bool operator()(const PTRLIST& block, const o_tebul*, std::vector<const o_tebul*>& fresh) {
        const std::uint32_t end = block.getSize();
        const bool repeats =
            end > 0 && !last_.empty() && record_at<o_tebul>(block, 0).teleid == last_;
        if (repeats && end == 1 && blocksize_ == 1)
            return false;
        for (std::uint32_t i = repeats ? 1 : 0; i < end; ++i)
            fresh.push_back(&record_at<o_tebul>(block, i));
        return add(fresh);
    }

  private:
    bool add(const std::vector<const o_tebul*>& entries) {
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            const str10& id = (*entry)->teleid;
            const bool ascends = last_.empty() || id.view() > last_.view();
            if (!all_ && !ascends && !look_back({entries.begin(), entry}))
                return false;
            if (all_ && !all_->emplace(id.view()).second)
                return false;
            last_ = id;
        }
        return true;
    }

    // Fills `all_` with what the file holds and the entries of this block before the present one.
    bool look_back(const std::vector<const o_tebul*>& before) {
        std::error_code error;
        if (std::fflush(file_) != 0 || !std::filesystem::is_regular_file(path_, error))
            return false;
        std::ifstream lines(path_);
        all_.emplace();
        for (std::string line; std::getline(lines, line);)
            all_->insert(line.substr(0, line.find(';')));
        for (const o_tebul* entry : before)
            all_->emplace(entry->teleid.view());
        return true;
    }

    const char* path_;
    std::FILE* file_;
    std::int32_t blocksize_;
    str10 last_{};
    std::optional<std::set<std::string>> all_;
};

bool write_entries(std::FILE* file, const std::vector<const o_tebul*>& entries) {
    std::string lines;
    for (const o_tebul* entry : entries)
        telebook::append_line(lines, *entry);
    return std::fwrite(lines.data(), 1, lines.size(), file) == lines.size();
}

// What the last bytes say when they leave the buffer counts too.
std::int32_t finish(text_file file) {
    return std::fclose(file.release()) == 0 ? std::int32_t{rpc::success} : file_failed;
}

} // namespace

std::int32_t TELEBOOK::exportTBook(const char* tbookid, nettypetype nettype, const char* file) {
    text_file out = telebook::open_file(file, "we");
    if (out == nullptr)
        return no_file;
    const std::int32_t blocksize = ZERDIX::clsGetTelebookBlockSize();
    if (blocksize < 1)
        return rpc::refused;
    o_get_tbookl_i request = telebook::entry_request(tbookid, nettype, {}, blocksize);
    const auto next_block = [&](const o_tebul* last) {
        if (last != nullptr)
            request.start = key_behind(last->teleid);
        return rpc::fetch_list<proc::o_get_tbookl_1>(by_object{pClient}, request, pEntriesResult,
                                                     pEntryList);
    };
    pager<o_tebul, written_ids> pages{written_ids{file, out.get(), blocksize}};
    for (;;) {
        const paging step = pages.next(next_block);
        if (step == paging::ended)
            return finish(std::move(out));
        if (step != paging::goes_on)
            return rpc::refused;
        if (!write_entries(out.get(), pages.fresh()))
            return file_failed;
    }
}

std::int32_t TELEBOOK::importTBook(const char* tbookid, const char* file) {
    if (by_object{pClient}.handle() == nullptr)
        return rpc::no_client;
    const text_file in = telebook::open_file(file, "re");
    if (in == nullptr)
        return no_file;
    const std::unique_ptr<line_buffer> line{new (std::nothrow) line_buffer};
    if (line == nullptr)
        return no_memory;
    while (std::feof(in.get()) == 0) {
        const std::size_t length = telebook::read_line(in.get(), *line);
        if (length == 0 && std::ferror(in.get()) != 0)
            return file_failed;
        if (length == 0)
            continue;
        const o_tebul entry = telebook::parse_line(line->data(), tbookid);
        const std::int32_t rc = putTBookEntry(&entry);
        if (rc != rpc::success)
            return rc;
    }
    return rpc::success;
}
