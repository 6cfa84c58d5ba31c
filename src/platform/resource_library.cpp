// SPDX-License-Identifier: MIT
#include "platform/resource_library.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "platform/encoding.h"
#include "platform/home.h"
#include "platform/own_folder.h"
#include "platform/profile.h"
#include "platform/resource_text.h"

namespace zerdix::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largest_file = std::uintmax_t{1024} * 1024;

std::vector<fs::path> folders() {
    std::vector<fs::path> list;
    if (const char* named = std::getenv("ZERDIX_RESOURCES"); named != nullptr && *named != '\0')
        list.emplace_back(named);
    for (const std::string& settings : profile_files())
        list.push_back(fs::path(settings).parent_path());
    list.push_back(own_folder() / "../share/zerdix");
    list.push_back(own_folder() / ZERDIX_WAY_TO_RESOURCES);
    list.emplace_back(ZERDIX_RESOURCE_FOLDER);
    return list;
}

// What isn't a regular file doesn't count: opening it might wait for somebody.
bool is_file(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

fs::path find_file(const std::string& name) {
    if (name.empty())
        return {};
    if (name.find('/') != std::string::npos)
        return is_file(from_home(name)) ? fs::path(from_home(name)) : fs::path();
    for (const fs::path& folder : folders()) {
        if (is_file(folder / name))
            return folder / name;
    }
    return {};
}

// Nothing for a file that is too big.
std::optional<std::string> content(const fs::path& path) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    if (error || size > largest_file || !file)
        return std::nullopt;
    std::string bytes(size, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

parsed_resources parse_file(const fs::path& path) {
    const auto bytes = content(path);
    return bytes ? parse_resources(*bytes) : parsed_resources{};
}

const resource_texts* texts_of(library_handle library) {
    if (library < first_good_handle)
        return nullptr;
    return reinterpret_cast<const resource_texts*>(library);
}

template <class Texts, class Key>
const std::string* found(const Texts& texts, const Key& key) {
    const auto at = texts.find(key);
    return at == texts.end() || at->second.empty() ? nullptr : &at->second;
}

} // namespace

library_handle LoadLibraryA(const char* name) {
    const fs::path path = find_file(cp1252_to_utf8(name));
    if (path.empty())
        return file_not_found;
    parsed_resources parsed = parse_file(path);
    if (!parsed.texts)
        return bad_format;
    return reinterpret_cast<library_handle>(new resource_texts(std::move(*parsed.texts)));
}

std::int32_t FreeLibrary(library_handle library) {
    delete texts_of(library);
    return library < first_good_handle ? 0 : 1;
}

const std::string* library_string(library_handle library, std::int32_t number) {
    const resource_texts* texts = texts_of(library);
    return texts == nullptr ? nullptr : found(texts->strings, number);
}

const std::string* library_caption(library_handle library, std::int32_t dialog,
                                   std::int32_t control) {
    const resource_texts* texts = texts_of(library);
    return texts == nullptr ? nullptr : found(texts->captions, std::pair{dialog, control});
}

library_fault find_library_fault(const char* name) {
    const fs::path path = find_file(cp1252_to_utf8(name));
    if (path.empty())
        return {};
    return {path.string(), parse_file(path).bad_line};
}

} // namespace zerdix::platform
