// SPDX-License-Identifier: MIT
// Servers for tests: the stand-in server in a child process of the test, with calls that can be
// made to go wrong, and the real program.
//
// Both register with the port mapper of this machine under a program number of their own, so that
// tests run side by side. They throw std::runtime_error with a sentence when they can't start.
#ifndef ZERDIX_TESTS_TEST_SERVER_H
#define ZERDIX_TESTS_TEST_SERVER_H

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "alphad/answers/gate.h"
#include "alphad/store/store.h"
#include "support/child_program.h"

namespace zerdix::test {

using tests::environment_variable;
using tests::scratch_folder;

// What a client of a test server finds in its environment: ZERDIXRPCOFFSET, and ZERDIX_INI with a
// settings file (German, Host=127.0.0.1, User=zerdix, LogDir=the folder).
class client_environment {
  public:
    explicit client_environment(const std::filesystem::path& folder);

    std::int32_t offset() const { return offset_; }
    std::uint32_t program() const;
    const std::filesystem::path& settings() const { return settings_; }

  private:
    std::int32_t offset_;
    std::filesystem::path settings_;
    environment_variable offset_value_;
    environment_variable settings_value_;
};

// The procedure numbers of a call log.
std::vector<int> read_calls(const std::filesystem::path& file);

struct fault_table;

class test_server {
  public:
    // Starts it, with the demo data unless told otherwise, and sets up the environment.
    explicit test_server(bool demo_data = true);
    // Ends it, and takes the folder away.
    ~test_server();
    test_server(const test_server&) = delete;
    test_server& operator=(const test_server&) = delete;

    // The procedures called since the start or the last clear_calls, in order. A call stands here
    // before it is answered, so nothing is missing once the client has its answer.
    std::vector<int> calls() const;
    void clear_calls();

    // The n-th call of a procedure from now on goes wrong, once: it answers false, 0 or an empty
    // record; it ends in an RPC error; the connection closes without a reply; it does so when
    // the call has been served; the answer comes late, and so does everything behind it.
    void refuse(int procedure, int nth = 1) { spoil(procedure, nth, alphad::verdict::refuse); }
    void fail(int procedure, int nth = 1) { spoil(procedure, nth, alphad::verdict::fail); }
    void drop(int procedure, int nth = 1) { spoil(procedure, nth, alphad::verdict::drop); }
    void lose_reply(int procedure, int nth = 1) { spoil(procedure, nth, alphad::verdict::lose); }
    void stall(int procedure, int nth, unsigned seconds) {
        spoil(procedure, nth, alphad::verdict::serve, seconds);
    }
    void spoil(int procedure, int nth, alphad::verdict said, unsigned late_by = 0);

    // What the server has stored, fit for looking and for setting up.
    alphad::store& store();

    // Documents on a desk, and all send jobs.
    std::vector<alphad::document> desk(const std::string& user) {
        return store().documents.list(TOPF_P, user);
    }
    std::vector<alphad::send_job> jobs() { return store().jobs.all(); }

    // Setting up: a configuration value; so many users "u000000", "u000001", ... without passwords;
    // a book of zerdix with so many fax entries "e000000", ..., made when there is none.
    void set_config(const std::string& id, const std::string& value) {
        store().configuration.set(id, value);
    }
    void add_users(int count);
    void fill_book(const std::string& book, int entries);

    const scratch_folder& files() const { return folder_; }
    const std::filesystem::path& folder() const { return folder_.path(); }
    std::filesystem::path spool() const { return folder() / "spool"; }
    const std::filesystem::path& settings() const { return environment_.settings(); }
    std::uint32_t program() const { return environment_.program(); }
    std::uint16_t port() const { return port_; }

    // Ends it before its time: SIGTERM in good order, SIGKILL without.
    void stop(int signal = SIGTERM);

  private:
    void start(bool demo_data);

    scratch_folder folder_;
    client_environment environment_;
    fault_table* faults_; // shared with the child
    pid_t child_ = -1;
    std::uint16_t port_ = 0;
    std::unique_ptr<alphad::store> store_;
};

// The real program, on a data folder that can outlive it.
class alphad_program : public child_program {
  public:
    // Waits for its ready line, or for its end. More arguments can be given.
    explicit alphad_program(const std::filesystem::path& data,
                            const std::vector<std::string>& arguments = {});

    // The first line on its standard output, empty when it ended without one.
    const std::string& ready_line() const { return ready_line_; }

  private:
    std::string ready_line_;
};

// Runs the real program to its end.
program_result run_alphad(const std::vector<std::string>& arguments);

} // namespace zerdix::test

#endif
