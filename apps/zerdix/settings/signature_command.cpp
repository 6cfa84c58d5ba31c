// SPDX-License-Identifier: MIT
// zerdix signature: the picture of the user's signature on cover pages.

#include <memory>
#include <string>
#include <vector>

#include "arguments/commands.h"
#include "output/value_text.h"
#include "pictures/png_file.h"
#include "pictures/png_picture.h"
#include "pictures/stored_page.h"
#include "print/page_placement.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

constexpr std::uint32_t widest = fax_width;
// A fax page; even noise of that size is stored well within what comes back whole.
constexpr std::uint32_t longest = 2286; // rows

const page_dat& fetch_signature(user_session& user) {
    return user.fetch("fetching the signature", [&] { return user.session().getSignature(); });
}

void get(user_session& user, const std::string& file) {
    const page_dat& signature = fetch_signature(user);
    if (signature.size == 0)
        throw failure(exit_no_input, user.user() + " has no signature");
    page_picture picture{};
    try {
        picture = expand_page(signature.data, signature.size);
    } catch (const failure& error) {
        throw failure(error.code(), std::string("the signature ") + error.what());
    }
    write_png(file, picture);
    if (file != "-")
        user.out().done("signature of " + std::to_string(picture.width) + " by " +
                            std::to_string(picture.rows) + " pixels written to " + file,
                        {{"file", file}, {"width", picture.width}, {"height", picture.rows}});
}

void store(user_session& user, std::vector<unsigned char> bytes) {
    const page_dat signature{static_cast<std::uint32_t>(bytes.size()), bytes.data()};
    user.expect("storing the signature", [&] { return user.session().putSignature(&signature); });
}

struct put_line {
    std::string file;
    page_picture picture;
};

void check_file(put_line& line) {
    bool had_shades = false;
    line.picture = read_png(line.file, widest, longest, had_shades);
    if (had_shades)
        note("shades of grey become black or white, at the middle");
}

void put(user_session& user, const put_line& line) {
    store(user, store_page(line.picture));
    user.out().done("signature of " + std::to_string(line.picture.width) + " by " +
                        std::to_string(line.picture.rows) + " pixels stored",
                    {{"width", line.picture.width}, {"height", line.picture.rows}});
}

void remove(user_session& user) {
    store(user, {});
    user.out().done("signature of " + user.user() + " removed");
}

} // namespace

void add_signature_commands(cli::command app) {
    cli::command group = app.add_group("signature", "Your signature on cover pages");

    auto file = std::make_shared<std::string>();
    cli::command command = add_user_command(group, "get", "Fetch your signature as a picture",
                                            [file](user_session& user) { get(user, *file); });
    command.add_option("-o,--output", *file, "PNG file to write; - for standard output", "FILE")
        .required();

    auto line = std::make_shared<put_line>();
    command = add_user_command(
        group, "put", "Store a picture as your signature",
        [line](user_session& user) { put(user, *line); }, [line] { check_file(*line); });
    command.add_argument("FILE", line->file, "PNG file to read; - for standard input");
    command.footer("At most 1728 by 2286 pixels, a fax page. Cover pages show it pixel by pixel\n"
                   "at 204 by 196 dots to the inch: 600 by 200 pixels are some 75 by 26 mm.\n\n"
                   "Example: zerdix signature put hand.png");

    add_user_command(group, "none", "Remove your signature", remove).alias("remove").alias("rm");
}

} // namespace zerdix::app
