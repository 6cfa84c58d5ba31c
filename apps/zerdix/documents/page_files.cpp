// SPDX-License-Identifier: MIT
#include "documents/page_files.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <optional>

#include "output/output_file.h"
#include "output/progress.h"
#include "pictures/page_fetch.h"
#include "pictures/png_file.h"
#include "tiff/fax_tiff.h"

namespace zerdix::app {

namespace {

enum class form { png, tiff, text };

std::string ending_of(const std::string& path) {
    std::string ending = std::filesystem::path(path).extension();
    for (char& c : ending)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return ending;
}

form form_of(const std::string& path) {
    const std::string ending = ending_of(path);
    if (ending == ".tif" || ending == ".tiff")
        return form::tiff;
    return ending == ".txt" ? form::text : form::png;
}

// The place of "%d" or "%3d" in a path.
struct number_place {
    std::size_t begin, end;
    int width;
};

std::optional<number_place> find_number(const std::string& path) {
    const std::size_t begin = path.find('%');
    if (begin == std::string::npos)
        return std::nullopt;
    std::size_t at = begin + 1;
    int width = 0;
    while (at < path.size() && path[at] >= '0' && path[at] <= '9' && width < 10)
        width = width * 10 + (path[at++] - '0');
    if (at >= path.size() || path[at] != 'd')
        return std::nullopt;
    return number_place{begin, at + 1, std::min(width, 9)};
}

std::string path_of(const std::string& path, int page) {
    const auto place = find_number(path);
    if (!place)
        return path;
    char number[16];
    std::snprintf(number, sizeof number, "%0*d", place->width, page);
    return path.substr(0, place->begin) + number + path.substr(place->end);
}

using page_work = std::function<void(const wanted_page&)>;

// A page at a time, with progress where there are several.
void for_each_page(user_session& user, const document& which, const std::vector<int>& pages,
                   const page_work& work) {
    const bool silent = user.out().is_json() || user.out().is_quiet() || pages.size() < 2;
    const int all = static_cast<int>(pages.size());
    progress shown(stdout, progress::fitting(silent), all);
    for (int i = 0; i < all; ++i) {
        const int page = pages[static_cast<std::size_t>(i)];
        work({which.pool, which.id, page});
        shown.step(i + 1, "page " + std::to_string(page) + " fetched (" + of(i + 1, all) + ")");
    }
}

std::vector<std::string> write_tiff(user_session& user, const document& which,
                                    const std::vector<int>& pages, const std::string& path) {
    std::optional<tiff::fax_tiff> file; // not made before a page is there to go in
    try {
        for_each_page(user, which, pages, [&](const wanted_page& wanted) {
            const page_picture picture = fetch_picture(user.journal(), wanted, user.host());
            if (!file)
                file.emplace(path, static_cast<int>(pages.size()));
            file->add({picture.width, picture.rows, picture.bits});
        });
        if (file)
            file->close();
    } catch (const tiff::fax_tiff_error& error) {
        not_written(path, error.what());
    }
    return {path};
}

std::vector<std::string> write_pngs(user_session& user, const document& which,
                                    const std::vector<int>& pages, const std::string& path) {
    std::vector<std::string> paths;
    for_each_page(user, which, pages, [&](const wanted_page& wanted) {
        paths.push_back(path_of(path, wanted.page));
        write_png(paths.back(), fetch_picture(user.journal(), wanted, user.host()));
    });
    return paths;
}

void write_text(const std::string& path, const std::string& text) {
    std::FILE* file = std::fopen(path.c_str(), "wbe");
    if (file == nullptr)
        not_written(path, std::strerror(errno));
    bool good = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    good = std::fclose(file) == 0 && good;
    if (good)
        return;
    const int error = errno;
    take_away(path);
    not_written(path, std::strerror(error));
}

std::vector<std::string> write_texts(user_session& user, const document& which,
                                     const std::vector<int>& pages, const std::string& path) {
    std::string all;
    for_each_page(user, which, pages, [&](const wanted_page& wanted) {
        all += fetch_text(user.journal(), wanted, user.host());
        if (!all.empty() && all.back() != '\n')
            all += '\n';
    });
    write_text(path, all);
    return {path};
}

} // namespace

void check_page_path(const std::string& path, const std::vector<page_range>& pages) {
    const std::string ending = ending_of(path);
    for (const char* other : {".jpg", ".jpeg", ".gif", ".bmp", ".pdf"}) {
        if (ending == other)
            throw failure(exit_usage, path + ": pages are written as .png, .tif or .txt");
    }
    const bool several = pages.size() > 1 || pages.front().first != pages.front().last;
    if (several && form_of(path) == form::png && !find_number(path))
        throw failure(exit_usage, path == "-" ? "only one page can go to standard output"
                                              : "for several pages " + path +
                                                    " must be a TIFF (.tif), or hold a %d for the "
                                                    "number of the page");
}

std::vector<std::string> write_pages(user_session& user, const document& which,
                                     const std::vector<int>& pages, const std::string& path) {
    switch (form_of(path)) {
    case form::tiff:
        return write_tiff(user, which, pages, path);
    case form::text:
        return write_texts(user, which, pages, path);
    default:
        return write_pngs(user, which, pages, path);
    }
}

} // namespace zerdix::app
