// SPDX-License-Identifier: MIT
// zerdix book import: the lines of a text file as entries of a phone book.
//
// The file is looked at first, so that a bad line is told before anything is stored. Then the
// entries go to the server in batches, which tell how far it has come.

#include <algorithm>
#include <cstdio>
#include <memory>

#include "arguments/commands.h"
#include "books/book_file.h"
#include "books/kinds.h"
#include "books/known_entry.h"
#include "books/scratch_file.h"
#include "output/interrupt.h"
#include "output/progress.h"
#include "output/value_text.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

constexpr std::size_t batch_lines = 50;
constexpr std::size_t most_told = 20;

struct import_line {
    std::string typed, id, file;
    std::string encoding = "auto";
    bool keep_going = false;
};

class book_import {
  public:
    book_import(user_session& user, const import_line& line, const book_file& file)
        : user_(user), line_(line), lines_(file.lines),
          shown_(stdout,
                 user.out().is_json() ? progress::style::none
                                      : progress::fitting(user.out().is_quiet()),
                 static_cast<int>(lines_.size())) {}

    // Stores the lines one after the other. Throws failure when it has to stop.
    void run() {
        watch_for_interrupts();
        while (at_ < lines_.size()) {
            if (interrupted())
                throw failure(exit_interrupted, "interrupted; " + standing());
            store_batch(std::min(at_ + batch_lines, lines_.size()));
            tell_progress();
        }
    }

    std::size_t stored() const { return stored_; }
    const std::vector<line_remark>& refused() const { return refused_; }

  private:
    // A batch that was refused is stored once more, line by line: what stands in the book
    // afterwards doesn't tell which line it was, since an entry may have stood there before.
    void store_batch(std::size_t end) {
        if (store(end, end))
            return advance(end - at_);
        while (at_ < end) {
            if (store(at_ + 1, end))
                advance(1);
            else
                refuse();
        }
    }

    // Whether the server took the lines from the one at hand up to `end`. After a failed call
    // nobody can say which lines of the batch arrived.
    bool store(std::size_t end, std::size_t batch_end) {
        std::string text;
        for (std::size_t i = at_; i < end; ++i)
            text += file_line(lines_[i].entry);
        scratch_.write(text);
        const call_probe watch;
        const std::int32_t result = user_.books().importTBook(line_.id.c_str(), scratch_.path());
        if (result != call_succeeded && result != call_refused)
            user_.lost("importing " + line_.file + " (" + uncertain(batch_end) + ')', watch);
        return result == 0;
    }

    void advance(std::size_t lines) {
        at_ += lines;
        stored_ += lines;
    }

    // The line at hand wasn't stored.
    void refuse() {
        const book_line& line = lines_[at_];
        const book_entry name{line_.id, std::string(line.entry.teleid.view())};
        const bool there = find_entry(user_, name).has_value();
        const std::string why = why_refused<book_kind>(
            user_, line_.id, there ? TELEBOOK::clssetPModify() : TELEBOOK::clssetPAdd(),
            there ? "change entries" : "add entries");
        const std::string what = "the entry " + shown(line.entry.teleid) + " wasn't stored: " + why;
        if (!line_.keep_going)
            throw failure(exit_refused, line_.file + ':' + std::to_string(line.number) + ": " +
                                            what + "; " + standing());
        refused_.push_back({line.number, what});
        ++at_;
    }

    std::string standing() const {
        const std::size_t left = lines_.size() - stored_;
        return count_of_entries(stored_) + (stored_ == 1 ? " is" : " are") + " stored, " +
               std::to_string(left) + (left == 1 ? " isn't" : " aren't") +
               (at_ < lines_.size() ? ", from line " + std::to_string(lines_[at_].number) + " on"
                                    : "");
    }

    std::string uncertain(std::size_t end) const {
        return count_of_entries(stored_) + " stored; of the lines " +
               std::to_string(lines_[at_].number) + " to " +
               std::to_string(lines_[end - 1].number) + " some may be";
    }

    // Not a line for every batch where nobody watches it grow.
    void tell_progress() {
        const bool tenth = at_ * 10 / lines_.size() > told_ * 10 / lines_.size();
        if (lines_.size() <= batch_lines || (!tenth && !on_terminal_))
            return;
        told_ = at_;
        shown_.step(static_cast<int>(at_),
                    of(static_cast<int>(at_), static_cast<int>(lines_.size())) + " entries");
    }

    user_session& user_;
    const import_line& line_;
    const std::vector<book_line>& lines_;
    scratch_file scratch_;
    progress shown_;
    bool on_terminal_ = progress::fitting(false) == progress::style::bar;
    std::size_t at_ = 0;
    std::size_t stored_ = 0;
    std::size_t told_ = 0;
    std::vector<line_remark> refused_;
};

template <class Tell>
void tell_all(const std::string& file, const std::vector<line_remark>& remarks, Tell tell) {
    for (std::size_t i = 0; i < remarks.size() && i < most_told; ++i)
        tell(file + ':' + std::to_string(remarks[i].number) + ": " + remarks[i].what);
    if (remarks.size() > most_told)
        tell("and " + std::to_string(remarks.size() - most_told) + " more lines of " + file);
}

void tell_fault(const std::string& sentence) {
    std::fprintf(stderr, "zerdix: %s\n", sentence.c_str());
}

json remarks_json(const std::vector<line_remark>& remarks) {
    json all = json::array();
    for (const line_remark& remark : remarks)
        all.push_back({{"line", remark.number}, {"what", remark.what}});
    return all;
}

// What is wrong with the file, before anything is stored.
void tell_file(const import_line& line, const book_file& file) {
    if (file.found == encoding::utf_8 && line.encoding == "auto")
        note(line.file + " is in UTF-8 and is converted to Windows-1252");
    tell_all(line.file, file.faults, tell_fault);
    if (!file.faults.empty() && !line.keep_going)
        throw failure(exit_bad_data,
                      "nothing was stored: " + std::to_string(file.faults.size()) + " of " +
                          std::to_string(file.faults.size() + file.lines.size()) +
                          (file.faults.size() == 1 ? " lines is bad" : " lines are bad") +
                          "; --keep-going stores the others");
    tell_all(line.file, file.notes, note);
}

void report_import(user_session& user, const import_line& line, const book_file& file,
                   const book_import& done) {
    const std::size_t undone = file.faults.size() + done.refused().size();
    user.out().done(shown(line.id) + ": " + count_of_entries(done.stored()) + " stored from " +
                        line.file,
                    {{"book", shown(line.id)},
                     {"file", line.file},
                     {"encoding", file.found == encoding::utf_8 ? "utf-8" : "windows-1252"},
                     {"stored", done.stored()},
                     {"bad", remarks_json(file.faults)},
                     {"refused", remarks_json(done.refused())},
                     {"notes", remarks_json(file.notes)}});
    tell_all(line.file, done.refused(), tell_fault);
    if (undone > 0)
        throw failure(done.refused().empty() ? exit_bad_data : exit_refused,
                      std::to_string(undone) + (undone == 1 ? " line wasn't" : " lines weren't") +
                          " stored");
}

encoding told_encoding(const std::string& name) {
    if (name == "auto")
        return encoding::automatic;
    return name == "utf-8" ? encoding::utf_8 : encoding::windows_1252;
}

void run(user_session& user, const import_line& line, const book_file& file) {
    known<book_kind>(user, line.id);
    book_import import(user, line, file);
    import.run();
    report_import(user, line, file, import);
}

} // namespace

void add_book_import(cli::command group) {
    auto line = std::make_shared<import_line>();
    auto file = std::make_shared<book_file>();
    cli::command command = add_user_command(
        group, "import", "Store the lines of a text file as entries of a phone book",
        [line, file](user_session& user) { run(user, *line, *file); },
        [line, file] {
            line->id = id_text("the phone book", line->typed);
            *file = read_book_file(line->file, told_encoding(line->encoding));
            tell_file(*line, *file);
        });
    command.add_argument("ID", line->typed, "Id of the phone book");
    command.add_argument("FILE", line->file, "The file to read; - for standard input");
    command
        .add_option("--encoding", line->encoding,
                    "windows-1252, utf-8, or auto (the default), which finds it out", "NAME")
        .one_of({"auto", "windows-1252", "utf-8"});
    command.add_flag("-k,--keep-going", line->keep_going,
                     "Leave out bad lines and refused entries, and store the others");
    command.footer("A line is an entry: id;number;station;I or E;F or T;comment;\n"
                   "(in the house or external, fax or telex). An entry that is there already\n"
                   "is changed.\n\nExample: zerdix book import private telebuch.csv");
}

} // namespace zerdix::app
