// zerdix page: a stored page as a picture.

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include <zerdix/journal.h>

#include "commands.h"
#include "failure.h"
#include "link_probe.h"
#include "png_file.h"
#include "server_session.h"
#include "settings_choice.h"
#include "shell/one_of.h"
#include "stored_page.h"

namespace zerdix::app {

namespace {

constexpr std::int16_t compressed_bitmap = 0; // the picture type of fax pages

struct page_line {
    std::int32_t document = 0;
    int page = 0;
    std::string output;
    std::string pool = "desk";
    std::string settings;
};

struct pool_name {
    topftype pool;
    const char* place;
};

pool_name pool_of(const std::string& name) {
    if (name == "in")
        return {TOPF_E, "among the incoming documents"};
    if (name == "out")
        return {TOPF_S, "among the outgoing documents"};
    return {TOPF_P, "on the desk"};
}

failure no_such_page(JOURNAL& journal, const page_line& line) {
    const pool_name pool = pool_of(line.pool);
    const std::string document = "document " + std::to_string(line.document);
    const a_get_inf_o* info = journal.getDocInf(pool.pool, line.document, 0);
    if (info == nullptr || info->pagecount <= 0)
        return {exit_no_input, "there is no " + document + " with pages " + pool.place};
    if (line.page > info->pagecount)
        return {exit_no_input, document + " has no page " + std::to_string(line.page) + ", only " +
                                   std::to_string(info->pagecount)};
    return {exit_no_input,
            "page " + std::to_string(line.page) + " of " + document + " has no picture"};
}

page_picture fetch(const page_line& line) {
    const server_session session;
    const std::string name =
        "page " + std::to_string(line.page) + " of document " + std::to_string(line.document);
    JOURNAL journal;
    const call_watch watch;
    const page_dat* page =
        journal.getDocPage(pool_of(line.pool).pool, line.document,
                           static_cast<std::int16_t>(line.page), compressed_bitmap);
    if (page == nullptr) {
        const trouble why = watch.explain(session.host());
        throw failure(why.code, "fetching " + name + " failed: " + why.cause);
    }
    if (page->size == 0)
        throw no_such_page(journal, line);
    try {
        return expand_page(page->data, page->size);
    } catch (const failure& error) {
        throw failure(error.code(), name + ' ' + error.what());
    }
}

void run(const page_line& line, char** arguments) {
    use_settings(line.settings, arguments);
    write_png(line.output, fetch(line));
}

} // namespace

void add_page_command(CLI::App& app, char** arguments) {
    auto line = std::make_shared<page_line>();
    CLI::App* command = app.add_subcommand("page", "Fetch a page of a document as a picture");
    command->add_option("ID", line->document, "Number of the document")
        ->required()
        ->check(CLI::Range(1, 2147483647).description(""))
        ->option_text(" ");
    command->add_option("N", line->page, "Number of the page, from 1")
        ->required()
        ->check(CLI::Range(1, 32767).description(""))
        ->option_text(" ");
    command->add_option("-o,--output", line->output, "PNG file to write; - for standard output")
        ->required()
        ->option_text("FILE");
    command
        ->add_option("--pool", line->pool,
                     "Where the document lies: desk, out or in "
                     "(default: desk)")
        ->check(one_of({"desk", "out", "in"}))
        ->option_text("POOL");
    command->add_option("--settings", line->settings, "Settings file to use")->option_text("FILE");
    command->footer("Example: zerdix page 17 1 -o page.png --pool out");
    command->callback([line, arguments] { run(*line, arguments); });
}

} // namespace zerdix::app
