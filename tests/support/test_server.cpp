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

enum fault_kind { fault_refuse, fault_fail, fault_drop, fault_lose, fault_stall };

struct fault {
    std::atomic<int> left; // calls until it happens, 0: free
    int procedure;
    int kind;
    int seconds;
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
            if (each.left > 0 && each.procedure == static_cast<int>(procedure) && --each.left == 0)
                said = happen(each);
        return said;
    }

  private:
    static alphad::verdict happen(const fault& now) {
        switch (now.kind) {
        case fault_refuse:
            return alphad::verdict::refuse;
        case fault_fail:
            return alphad::verdict::fail;
        case fault_drop:
            return alphad::verdict::drop;
        case fault_lose:
            return alphad::verdict::lose;
        default:
            sleep(static_cast<unsigned>(now.seconds));
            return alphad::verdict::serve;
        }
    }

    fault_table& table_;
};

// The child's life. It tells its port, or 0 and a sentence, through the pipe.
[[noreturn]] void serve(const alphad::service_options& options, fault_table& faults, int pipe) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    int status = 0;
    try {
        faulty_gate gate(faults);
        alphad::service service(options, gate);
        const std::uint16_t port = service.server().port();
        status = write(pipe, &port, sizeof port) == sizeof port ? 0 : 1;
        close(pipe);
        service.run();
    } catch (const std::exception& error) {
        const std::string sentence = error.what();
        const std::uint16_t none = 0;
        status =
            write(pipe, &none, sizeof none) > 0 && write(pipe, sentence.data(), sentence.size()) > 0
                ? 1
                : 2;
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

void test_server::refuse(int procedure, int nth) {
    add_fault(procedure, nth, fault_refuse, 0);
}
void test_server::fail(int procedure, int nth) {
    add_fault(procedure, nth, fault_fail, 0);
}
void test_server::drop(int procedure, int nth) {
    add_fault(procedure, nth, fault_drop, 0);
}
void test_server::lose_reply(int procedure, int nth) {
    add_fault(procedure, nth, fault_lose, 0);
}
void test_server::stall(int procedure, int nth, int seconds) {
    add_fault(procedure, nth, fault_stall, seconds);
}

void test_server::add_fault(int procedure, int nth, int kind, int seconds) {
    for (fault& each : faults_->faults)
        if (each.left == 0) {
            each.procedure = procedure;
            each.kind = kind;
            each.seconds = seconds;
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

std::vector<alphad::document> test_server::desk(const std::string& user) {
    return store().documents.list(TOPF_P, user);
}

std::vector<alphad::send_job> test_server::jobs() {
    return store().jobs.all();
}

void test_server::set_config(const std::string& id, const std::string& value) {
    store().configuration.set(id, value);
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

} // namespace zerdix::test
