// Phone books to a text file, and from one.

#include <filesystem>
#include <fstream>
#include <new>
#include <optional>
#include <set>
#include <string>

#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "rpc/list.h"
#include "telebook/entry_request.h"
#include "telebook/transfer_file.h"

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

const o_tebul& entry_at(const PTRLIST& block, std::uint32_t i) {
    return *static_cast<const o_tebul*>(block[i]);
}

// The key directly behind an id: the byte behind the tenth character, where an id has its NUL, is
// the highest there is. So no id lies between the two.
str10 key_behind(const str10& id) {
    str10 key{};
    key.assign_field(id.view());
    key.bytes[sizeof key.bytes - 1] = '\xff';
    return key;
}

// The ids that an export has written. While they ascend the last one is enough to tell a new one;
// from the first that doesn't they are all looked up, and the file is read back for those before.
class written_ids {
  public:
    explicit written_ids(const char* path) : path_(path) {}

    const str10& last() const { return last_; }
    bool empty() const { return last_.empty(); }

    // Takes the ids of a block from `first` on. False when one comes again, or when that can't be
    // told.
    bool add(std::FILE* file, const PTRLIST& block, std::uint32_t first) {
        for (std::uint32_t i = first; i < block.getSize(); ++i) {
            const str10& id = entry_at(block, i).teleid;
            if (!all_ && !empty() && id.view() <= last_.view() && !look_back(file, block, first, i))
                return false;
            if (all_ && !all_->emplace(id.view()).second)
                return false;
            last_ = id;
        }
        return true;
    }

  private:
    bool look_back(std::FILE* file, const PTRLIST& block, std::uint32_t from, std::uint32_t to) {
        std::error_code error;
        if (std::fflush(file) != 0 || !std::filesystem::is_regular_file(path_, error))
            return false;
        std::ifstream lines(path_);
        all_.emplace();
        for (std::string line; std::getline(lines, line);)
            all_->insert(line.substr(0, line.find(';')));
        for (std::uint32_t i = from; i < to; ++i)
            all_->emplace(entry_at(block, i).teleid.view());
        return true;
    }

    const char* path_;
    str10 last_{};
    std::optional<std::set<std::string>> all_;
};

// The index of a block's first entry that isn't written yet: a server that reads keys as texts
// begins again with the last one. Nothing when the book can't be gone through: an entry comes
// again, or the block had room for the repeated entry only. In which order ids come is the server's
// business.
std::optional<std::uint32_t> first_fresh(const PTRLIST& block, written_ids& written,
                                         std::FILE* file, std::int32_t blocksize) {
    const std::uint32_t end = block.getSize();
    const bool repeats = end > 0 && !written.empty() && entry_at(block, 0).teleid == written.last();
    const std::uint32_t first = repeats ? 1 : 0;
    if ((repeats && end == 1 && blocksize == 1) || !written.add(file, block, first))
        return std::nullopt;
    return first;
}

bool write_entries(std::FILE* file, const PTRLIST& block, std::uint32_t first) {
    std::string lines;
    for (std::uint32_t i = first; i < block.getSize(); ++i)
        telebook::append_line(lines, entry_at(block, i));
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
    written_ids written(file);
    for (;;) {
        const PTRLIST* block = rpc::fetch_list<proc::o_get_tbookl_1>(by_object{pClient}, request,
                                                                     pEntriesResult, pEntryList);
        if (block == nullptr)
            return rpc::refused;
        const std::uint32_t count = block->getSize();
        const auto first = first_fresh(*block, written, out.get(), blocksize);
        if (!first)
            return rpc::refused;
        if (*first == count)
            return finish(std::move(out));
        if (!write_entries(out.get(), *block, *first))
            return file_failed;
        request.start = key_behind(written.last());
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
