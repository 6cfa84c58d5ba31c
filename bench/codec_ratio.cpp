// SPDX-License-Identifier: MIT
// The page codec against compress, uncompress and gzip -dc on the same bytes in the same run.
//
//     codec_ratio [page-block-file...]
//
// Without files it makes pages of its own. Three ways of looking at the pages:
//   page by page   many pages, a call each; the peer gets all of them as files in one process
//   one stream     the pages one behind the other as one block of 16 MB or more
//   one page       a single call, and a whole process for a single file
// and 16 MB of random bytes as one stream. Times are the best of several runs. The peers read files
// that are in memory and write to /dev/null; nothing is subtracted.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>

#include "pages/codec_calls.h"

extern char** environ;

namespace {

using codec::bytes;
namespace fs = std::filesystem;

constexpr std::size_t enough = std::size_t{16} << 20;

template <typename Work>
double best_of(int runs, Work work) {
    double best = std::numeric_limits<double>::max();
    for (int n = 0; n < runs; ++n) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        best = std::min(
            best, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    return best;
}

// Runs a program to its end with its output thrown away. compress ends with 2 when a file wouldn't
// become smaller.
bool run_program(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (auto& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int failed =
        posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    return failed == 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           (WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == 2);
}

class folder {
  public:
    folder() {
        std::string name = (fs::temp_directory_path() / "codec-ratio-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            std::perror("temporary folder");
            std::exit(1);
        }
        path_ = name;
    }
    ~folder() { fs::remove_all(path_); }
    folder(const folder&) = delete;
    folder& operator=(const folder&) = delete;

    std::string write(const std::string& name, const bytes& content) const {
        std::ofstream(path_ / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(content.data()),
                   static_cast<std::streamsize>(content.size()));
        return (path_ / name).string();
    }

  private:
    fs::path path_;
};

double time_of_program(const std::vector<std::string>& program,
                       const std::vector<std::string>& files, int runs) {
    std::vector<std::string> words = program;
    words.insert(words.end(), files.begin(), files.end());
    bool well = true;
    const double seconds = best_of(runs, [&] { well = run_program(words) && well; });
    return well ? seconds : std::numeric_limits<double>::quiet_NaN();
}

template <typename Operation>
double time_of_calls(Operation operation, const std::vector<bytes>& blocks, int runs) {
    return best_of(runs, [&] {
        for (const auto& block : blocks) {
            unsigned char* output = nullptr;
            std::int32_t length = 0;
            operation(block.data(), static_cast<std::int32_t>(block.size()), &output, &length);
            std::free(output);
        }
    });
}

void print(const char* what, const char* peer, double ours, double theirs, double megabytes) {
    std::printf("  %-9s %7.0f MB/s   %-13s %6.0f MB/s   ratio %5.2f\n", what, megabytes / ours,
                peer, megabytes / theirs, theirs / ours);
}

// The same blocks, in the same order, for the codec and for its peers.
void compare(const char* title, const std::vector<bytes>& blocks, int runs) {
    const folder place;
    std::vector<bytes> streams;
    std::vector<std::string> plain_files;
    std::vector<std::string> packed_files;
    double megabytes = 0;
    for (const auto& block : blocks) {
        const auto number = std::to_string(streams.size());
        streams.push_back(*codec::compress(block));
        plain_files.push_back(place.write(number, block));
        packed_files.push_back(place.write(number + ".Z", streams.back()));
        megabytes += static_cast<double>(block.size()) / 1e6;
    }
    std::printf("%s: %zu block%s, %.1f MB\n", title, blocks.size(), blocks.size() == 1 ? "" : "s",
                megabytes);
    const double packing = time_of_calls(zerdix::pages::compress_mem_2_mem, blocks, runs);
    const double expanding = time_of_calls(zerdix::pages::uncompress_mem_2_mem, streams, runs);
    print("compress", "compress", packing, time_of_program({"compress", "-cf"}, plain_files, runs),
          megabytes);
    const std::vector<std::string> expanders[] = {
        {"uncompress", "-c"}, {"compress", "-dc"}, {"gzip", "-dc"}};
    for (const auto& program : expanders) {
        print("expand", (program[0] + " " + program[1]).c_str(), expanding,
              time_of_program(program, packed_files, runs), megabytes);
    }
}

std::vector<bytes> pages_of(int count, char** names) {
    std::vector<bytes> pages;
    for (int n = 0; n < count; ++n) {
        std::ifstream file(names[n], std::ios::binary);
        pages.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        if (pages.back().empty()) {
            std::fprintf(stderr, "%s can't be read or is empty\n", names[n]);
            std::exit(2);
        }
    }
    for (unsigned seed = 0; count == 0 && seed < 6; ++seed) {
        pages.push_back(codec::page_like(2286, seed));
    }
    return pages;
}

} // namespace

int main(int argc, char** argv) {
    const auto pages = pages_of(argc - 1, argv + 1);
    std::vector<bytes> many;
    bytes stream;
    for (std::size_t n = 0; stream.size() < enough || n < pages.size(); ++n) {
        many.push_back(pages[n % pages.size()]);
        stream.insert(stream.end(), many.back().begin(), many.back().end());
    }
    compare("pages, page by page", many, 15);
    compare("pages, one stream", {stream}, 15);
    compare("one page, one process", {pages[pages.size() / 2]}, 60);
    compare("random bytes", {codec::random_bytes(enough, 1)}, 7);
    return 0;
}
