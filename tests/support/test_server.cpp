// SPDX-License-Identifier: MIT
#include "support/test_server.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "alphad/net/service.h"

namespace zerdix::test {

namespace {

struct fault {
    std::atomic<int> left; // calls until it happens, 0: free
    int procedure;
    alphad::verdict said;
    unsigned late_by; // seconds
};

} // namespace

// Written by the test, counted down by the server.
struct fault_table {
    std::array<fault, 64> faults;
};

namespace {

class faulty_gate : public alphad::gate {
  public:
    explicit faulty_gate(fault_table& table) : table_(table) {}

    alphad::verdict admit(std::uint32_t procedure) override {
        alphad::verdict said = alphad::verdict::serve;
        for (fault& each : table_.faults)
            if (each.left > 0 && each.procedure == static_cast<int>(procedure) &&
                --each.left == 0) {
                sleep(each.late_by);
                said = each.said;
            }
        return said;
    }

  private:
    fault_table& table_;
};

// The child's life. It tells its port, or 0 and a sentence, through the pipe.
[[noreturn]] void serve(const alphad::service_options& options, fault_table& faults, int pipe) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    int status = 1;
    try {
        faulty_gate gate(faults);
        alphad::service service(options, gate);
        const std::uint16_t port = service.server().port();
        if (write(pipe, &port, sizeof port) == sizeof port) {
            close(pipe);
            service.run();
            status = 0;
        }
    } catch (const std::exception& error) {
        const std::string told = std::string(sizeof(std::uint16_t), '\0') + error.what();
        status = write(pipe, told.data(), told.size()) > 0 ? 1 : 2;
    }
    _exit(status);
}

std::string read_all(int file) {
    std::string text;
    char piece[512];
    for (ssize_t got; (got = read(file, piece, sizeof piece)) > 0;)
        text.append(piece, static_cast<std::size_t>(got));
    return text;
}

fault_table* shared_table() {
    void* memory = mmap(nullptr, sizeof(fault_table), PROT_READ | PROT_WRITE,
                        MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::runtime_error("no shared memory for the test server");
    return new (memory) fault_table{};
}

} // namespace

test_server::test_server(bool demo_data) : environment_(folder_.path()), faults_(shared_table()) {
    start(demo_data);
}

test_server::~test_server() {
    stop();
    munmap(faults_, sizeof *faults_);
}

void test_server::start(bool demo_data) {
    alphad::service_options options;
    options.store = (folder() / alphad::store_file).string();
    options.spool = spool();
    options.calls = (folder() / "calls").string();
    options.demo_data = demo_data;
    int ends[2];
    if (pipe(ends) != 0 || (child_ = fork()) < 0)
        throw std::runtime_error("the test server can't be started");
    if (child_ == 0) {
        close(ends[0]);
        serve(options, *faults_, ends[1]);
    }
    close(ends[1]);
    const std::string told = read_all(ends[0]);
    close(ends[0]);
    if (told.size() >= sizeof port_)
        told.copy(reinterpret_cast<char*>(&port_), sizeof port_);
    if (port_ != 0)
        return;
    stop();
    throw std::runtime_error("the test server didn't start: " +
                             (told.size() > sizeof port_ ? told.substr(sizeof port_) : "it died"));
}

void test_server::stop(int signal) {
    if (child_ <= 0)
        return;
    kill(child_, signal);
    waitpid(child_, nullptr, 0);
    child_ = -1;
}

std::vector<int> test_server::calls() const {
    return read_calls(folder() / "calls");
}

// The server appends, so it goes on at the new end.
void test_server::clear_calls() {
    std::filesystem::resize_file(folder() / "calls", 0);
}

void test_server::spoil(int procedure, int nth, alphad::verdict said, unsigned late_by) {
    for (fault& each : faults_->faults)
        if (each.left == 0) {
            each.procedure = procedure;
            each.said = said;
            each.late_by = late_by;
            each.left = nth;
            return;
        }
    throw std::runtime_error("too many faults at once");
}

alphad::store& test_server::store() {
    if (!store_)
        store_ = std::make_unique<alphad::store>((folder() / alphad::store_file).string());
    return *store_;
}

namespace {

std::string numbered(char letter, int number) {
    std::string digits = std::to_string(number);
    return letter + std::string(6 - std::min<std::size_t>(digits.size(), 6), '0') + digits;
}

} // namespace

void test_server::add_users(int count) {
    alphad::transaction adding(store().database());
    for (int i = 0; i < count; ++i)
        store().users.add(numbered('u', i), "user " + std::to_string(i));
    adding.commit();
}

void test_server::fill_book(const std::string& book, int entries) {
    alphad::transaction filling(store().database());
    o_tebu record{};
    record.tbookid.assign(book);
    record.owner.assign("zerdix");
    if (!store().phone_books.book(record.tbookid))
        store().phone_books.put_book(record);
    for (int i = 0; i < entries; ++i) {
        o_tebul entry{};
        entry.tbookid.assign(book);
        entry.teleid.assign(numbered('e', i));
        entry.comment.assign("entry " + std::to_string(i));
        entry.phone.assign("030" + std::to_string(23125000 + i));
        entry.nettype = NETTYPE_FAX;
        store().phone_books.put_entry(entry);
    }
    filling.commit();
}

namespace {

std::vector<std::string> on_folder(const std::filesystem::path& data,
                                   std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--data", data});
    return arguments;
}

} // namespace

alphad_program::alphad_program(const std::filesystem::path& data,
                               const std::vector<std::string>& arguments)
    : child_program(ALPHAD_PROGRAM, on_folder(data, arguments)) {
    for (std::string c; !(c = read_some(1)).empty() && c != "\n";)
        ready_line_ += c;
}

program_result run_alphad(const std::vector<std::string>& arguments) {
    return child_program(ALPHAD_PROGRAM, arguments).run();
}

} // namespace zerdix::test
