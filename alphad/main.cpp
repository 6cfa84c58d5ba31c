// SPDX-License-Identifier: MIT
// alphad, the stand-in Alpha server.
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <iostream>
#include <sysexits.h>
#include <unistd.h>

#include "alphad/admin_commands.h"
#include "alphad/job_table.h"
#include "alphad/net/service.h"
#include "platform/encoding.h"

namespace {

using namespace zerdix::alphad;
namespace fs = std::filesystem;

struct command_line {
    std::string data;
    bool memory = false;
    std::string spool;
    std::string calls;
    std::string listen = "127.0.0.1";
    std::uint16_t port = 0;
    bool no_demo = false;
    bool json = false;
    std::string key;
    std::string value;
    std::string user;
    std::string name;
    std::string password_file;
    std::string text;
};

fs::path default_data() {
    if (geteuid() == 0)
        return "/var/lib/alphad";
    if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state != '\0')
        return fs::path{state} / "alphad";
    const char* home = std::getenv("HOME");
    return fs::path{home != nullptr ? home : "."} / ".local/state/alphad";
}

fs::path new_spool_folder() {
    std::string name = (fs::temp_directory_path() / "alphad-spool-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw spool_error("no spool folder can be made in " + fs::temp_directory_path().string());
    std::cerr << "alphad: spooling into " << name << std::endl;
    return name;
}

fs::path own_spool(const command_line& line) {
    return fs::path{line.data} / own_spool_name;
}

fs::path spool_folder(const command_line& line) {
    if (!line.spool.empty())
        return line.spool;
    return line.memory ? new_spool_folder() : own_spool(line);
}

int serve(const command_line& line) {
    service_options options;
    if (!line.memory) {
        fs::create_directories(line.data);
        options.store = (fs::path{line.data} / store_file).string();
    }
    options.spool = spool_folder(line);
    options.calls = line.calls;
    options.listen = line.listen;
    options.port = line.port;
    options.demo_data = options.demo_documents = !line.no_demo;
    open_gate gate;
    service service(options, gate);
    std::cout << "alphad: listening on " << line.listen << " port " << service.server().port()
              << ", program " << service.server().program() << " version 1" << std::endl;
    service.run();
    return EX_OK;
}

std::string existing_store(const command_line& line) {
    const fs::path path = fs::path{line.data} / store_file;
    if (!fs::exists(path))
        throw database_error("there is no store in " + line.data);
    return path.string();
}

int show_jobs(const command_line& line) {
    const store store(existing_store(line), database::access::read_only);
    (line.json ? print_jobs_json : print_jobs)(std::cout, store, {own_spool(line), line.spool});
    return EX_OK;
}

int show_setting(const command_line& line) {
    const store store(existing_store(line), database::access::read_only);
    std::cout << zerdix::platform::cp1252_to_utf8(store.configuration.value(line.key)) << '\n';
    return EX_OK;
}

int change_setting(const command_line& line) {
    store store(existing_store(line));
    set_setting(store, line.key, line.value);
    return EX_OK;
}

int new_user(const command_line& line) {
    store store(existing_store(line));
    add_user(store, line.user, line.name);
    return EX_OK;
}

int new_password(const command_line& line) {
    store store(existing_store(line));
    set_password(store, line.user, read_password(line.password_file));
    return EX_OK;
}

int new_barcode(const command_line& line) {
    store store(existing_store(line));
    set_barcode(store, line.user, line.text);
    return EX_OK;
}

int show_users(const command_line& line) {
    list_users(std::cout, store(existing_store(line), database::access::read_only));
    return EX_OK;
}

int new_message(const command_line& line) {
    store store(existing_store(line));
    add_message(store, line.text);
    return EX_OK;
}

void add_options(CLI::App& app, command_line& line) {
    app.fallthrough();
    auto* data = app.add_option("--data", line.data, "Folder of the store")->capture_default_str();
    app.add_flag("--memory", line.memory, "Keep the store in memory, for this run alone")
        ->excludes(data);
    app.add_option("--spool", line.spool,
                   "Folder for the pictures of send jobs (default: spool in the data folder)");
    app.add_option("--calls", line.calls, "Append number and name of each call to this file");
    app.add_option("--listen", line.listen, "IPv4 address to listen on")->capture_default_str();
    app.add_option("--port", line.port, "TCP port to listen on (default: one that is free)");
    app.add_flag("--no-demo", line.no_demo, "Leave a new store without the demo data");
}

using command = int (*)(const command_line&);

// Exit code by kind: what is missing around the server, what is wrong with its files, or what an
// administrator can't have.
int guarded(command run, const command_line& line) {
    const auto say = [](const std::exception& error, int code) {
        std::cerr << "alphad: " << error.what() << std::endl;
        return code;
    };
    try {
        return run(line);
    } catch (const registration_error& error) {
        return say(error, EX_UNAVAILABLE);
    } catch (const server_error& error) {
        return say(error, EX_OSERR);
    } catch (const admin_error& error) {
        return say(error, EX_DATAERR);
    } catch (const std::exception& error) {
        return say(error, EX_CANTCREAT);
    }
}

void add_user_commands(CLI::App& app, command_line& line, command& chosen) {
    auto* user = app.add_subcommand("user", "Add users, set passwords and barcodes, list users")
                     ->require_subcommand(1);
    auto* add = user->add_subcommand("add", "Add a user, who can log in once there is a password");
    add->add_option("ID", line.user, "Up to 10 characters")->required();
    add->add_option("--name", line.name, "The user's name")->required();
    add->callback([&chosen] { chosen = new_user; });
    auto* password = user->add_subcommand("password", "Set a password, asked for without echo");
    password->add_option("ID", line.user, "The user")->required();
    password->add_option("--password-file", line.password_file,
                         "Read it from this file's first line");
    password->callback([&chosen] { chosen = new_password; });
    auto* barcode = user->add_subcommand("barcode", "Set the barcode of a user's cover pages");
    barcode->add_option("ID", line.user, "The user")->required();
    barcode->add_option("DIGITS", line.text, "Up to 20; \"\" for none")->required();
    barcode->callback([&chosen] { chosen = new_barcode; });
    user->add_subcommand("list", "List the users")->callback([&chosen] { chosen = show_users; });
}

void add_commands(CLI::App& app, command_line& line, command& chosen) {
    auto* jobs = app.add_subcommand("jobs", "Show the send jobs of a store and their logs");
    jobs->add_flag("--json", line.json, "As JSON");
    jobs->callback([&chosen] { chosen = show_jobs; });
    auto* config = app.add_subcommand("config", "Show or set a configuration value of a store");
    config->add_option("KEY", line.key, "Its name, JOURNALBLK for one")->required();
    auto* value = config->add_option("VALUE", line.value, "What to set it to");
    config->callback(
        [&chosen, value] { chosen = value->count() > 0 ? change_setting : show_setting; });
    add_user_commands(app, line, chosen);
    auto* board =
        app.add_subcommand("board", "Put messages on the bulletin board")->require_subcommand(1);
    auto* add = board->add_subcommand("add", "Add a message");
    add->add_option("TEXT", line.text, "Up to 80 characters")->required();
    add->callback([&chosen] { chosen = new_message; });
}

} // namespace

int main(int argc, char** argv) {
    command_line line;
    line.data = default_data().string();
    CLI::App app{"alphad, a stand-in Alpha server: takes the calls of zerdix clients, keeps what "
                 "they store, and spools what they send instead of sending it."};
    command chosen = serve;
    add_options(app, line);
    add_commands(app, line, chosen);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EX_OK : EX_USAGE;
    }
    return guarded(chosen, line);
}
