// SPDX-License-Identifier: MIT
#include <sys/stat.h>

#include "trace/tracing.h"

using namespace zerdix;
using namespace zerdix::tests;
using namespace testing;

namespace {

using Files = Tracing;

void write_line(T_TRACE& tracer, std::uint32_t level, const char* text) {
    tracer.tracePrintf("file", 1, "not available", level, text);
}

// Traces one line with a tracer of its own, as a process of its own would.
void run(const char* text) {
    T_TRACE tracer;
    write_line(tracer, 200, text);
}

std::string line(const char* label, const char* text) {
    return std::string("# ") + label + " " + padded(std::string("file: : ") + text, 82);
}

constexpr const char* seven_words = "one two three four five six seven";
const std::vector<std::string> seven_words_in_20 = {"# Error:  file: : one two     ",
                                                    "# Error:       three four five",
                                                    "# Error:       six seven      "};

constexpr const char* no_buffer = "T_TRACE::T_TRACE: Not enough memory to allocate text buffer";

// All that the error log holds when one line was written.
auto one_error(const char* text) {
    return ElementsAre("", StartsWith("Zeit:"), "", line("Error: ", text));
}

} // namespace

TEST_F(Files, TheSwitch) {
    const struct {
        const char* key;
        int on;
    } cases[] = {{"", 0},        {"Trace=0", 0}, {"Trace=01", 0},
                 {"Trace=1", 1}, {"Trace=", 1},  {"Trace=no", 1}};
    for (const auto& c : cases) {
        configure(c.key);
        EXPECT_EQ(T_TRACE_access::trace_on(T_TRACE()), c.on) << c.key;
    }
}

TEST_F(Files, StartsWithTheTimeAndOpensOnce) {
    configure("Trace=1");
    T_TRACE tracer;
    EXPECT_FALSE(folder.exists("FAXTRACE.LOG"));
    EXPECT_EQ(T_TRACE_access::name_set(tracer), 0);
    tracer.traceSetName("unused");
    EXPECT_EQ(T_TRACE_access::name_set(tracer), 1);
    EXPECT_THAT(folder.read("FAXTRACE.LOG"),
                MatchesRegex("[*]{3} Tracer gestartet: [A-Z][a-z]{2} [A-Z][a-z]{2} "
                             "[ 0-9]{2} [0-9:]{8} [0-9]{4}\n\n"));
    tracer.traceSetName(nullptr);
    write_line(tracer, 200, "x");
    EXPECT_THAT(trace_lines(), ElementsAre(line("Info1: ", "x"))); // and unbuffered
    EXPECT_FALSE(folder.exists("FAXTRACE.OLD"));
    EXPECT_FALSE(folder.exists("FAXERROR.LOG"));
    EXPECT_FALSE(folder.exists("unused"));
}

TEST_F(Files, OneOlderGenerationIsKept) {
    configure("Trace=1");
    for (const char* text : {"first", "second", "third"})
        run(text);
    EXPECT_THAT(trace_lines(), ElementsAre(line("Info1: ", "third")));
    EXPECT_THAT(lines_of("FAXTRACE.OLD"), ElementsAre(line("Info1: ", "second")));
}

TEST_F(Files, TheOldNameEndsAtTheFirstDotOfThePath) {
    configure("Trace=1\nTracefile=" + folder.write("logs.d/trace.log", "before"));
    run("x");
    EXPECT_EQ(folder.read("logs.OLD"), "before");
    configure("Trace=1\nTracefile=" + folder.write("plain", "before"));
    run("x");
    EXPECT_EQ(folder.read("plain.OLD"), "before");
}

TEST_F(Files, AFileThatCantBeRotatedGoesOn) {
    configure("Trace=1");
    run("first");
    std::filesystem::create_directory(folder.path("FAXTRACE.OLD"));
    run("second"); // a folder in the way, even an empty one
    const auto lines = trace_lines();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), line("Info1: ", "first"));
    EXPECT_EQ(lines.back(), line("Info1: ", "second"));
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST_F(Files, FoldersOnTheWayAreMadeInTheHomeAlone) {
    const environment_variable home("HOME", folder.path("home"));
    configure("Trace=1\nErrorfile=~/state/e\nTracefile=" + folder.path("other/t"));
    T_TRACE tracer;
    EXPECT_FALSE(folder.exists("home/state"));
    write_line(tracer, 100, "x");
    EXPECT_TRUE(folder.exists("home/state/e"));
    EXPECT_FALSE(folder.exists("other"));
}

TEST_F(Files, WithTracingOffOnlyErrorsAreWritten) {
    configure("Trace=0");
    folder.write("FAXTRACE.LOG", "untouched");
    T_TRACE tracer;
    write_line(tracer, 200, "x");
    tracer.traceDump("file", 1, "", 100, "data", 4);
    EXPECT_EQ(T_TRACE_access::name_set(tracer), 0);
    write_line(tracer, 199, "broken");
    EXPECT_EQ(folder.read("FAXTRACE.LOG"), "untouched");
    EXPECT_FALSE(folder.exists("FAXTRACE.OLD"));
    EXPECT_THAT(lines_of("FAXERROR.LOG"), one_error("broken"));
}

TEST_F(Files, TheErrorLogHasATimeLineAheadOfEachPhysicalLineAndOnlyGrows) {
    configure("Trace=1");
    const std::string word(80, 'w');
    for (int i = 0; i < 2; ++i) {
        T_TRACE tracer;
        tracer.tracePrintf("file", 1, "", 100, "%s", word.c_str());
    }
    const auto first = "# Error:  " + padded("file: :", 82);
    const auto second = "# Error:       " + padded(word.substr(0, 77), 77);
    const auto third = "# Error:       " + padded(word.substr(77), 77);
    const auto time = ContainsRegex("^Zeit:.* [0-9][0-9]:[0-9][0-9]:[0-9][0-9] [0-9]+$");
    EXPECT_THAT(lines_of("FAXERROR.LOG"),
                ElementsAre(time, "", first, time, "", second, "", time, "", third, //
                            time, "", first, time, "", second, "", time, "", third));
    EXPECT_THAT(trace_lines(), ElementsAre(first, second, third));
}

TEST_F(Files, AnErrorLogThatCantBeOpenedIsToldForEachLine) {
    configure("Trace=1\nErrorfile=" + folder.path("no/such/folder"));
    T_TRACE tracer;
    write_line(tracer, 100, "x");
    write_line(tracer, 200, "y");
    write_line(tracer, 100, "z\nz");
    const auto box = Pair("Error opening error log", "Tracer");
    EXPECT_THAT(boxes.shown, ElementsAre(box, box, box, box));
    EXPECT_EQ(trace_lines().size(), 5u);

    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    configure("Errorfile=" + folder.path("pipe"));
    T_TRACE waits_for_nobody;
    write_line(waits_for_nobody, 100, "x");
    EXPECT_THAT(boxes.shown, Contains(box).Times(5));
}

TEST_F(Files, ThePathInABoxIsInTheBoxsEncoding) {
    configure("Trace=1\nTracefile=" + folder.path("no/g\xc3\xbct"));
    T_TRACE().traceSetName(nullptr);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_THAT(boxes.shown[0].second, EndsWith("no/g\xfct"));
}

TEST_F(Files, WithoutATextBufferTracingIsOffAndErrorsComeLater) {
    configure("Trace=1");
    std::optional<no_memory> none(std::in_place);
    T_TRACE tracer;
    EXPECT_EQ(T_TRACE_access::trace_on(tracer), 0);
    none.reset();
    tracer.traceSetName(nullptr);
    none.emplace();
    write_line(tracer, 100, "lost");
    none.reset();
    write_line(tracer, 100, "kept");
    EXPECT_THAT(boxes.shown, ElementsAre(Pair(no_buffer, "Tracer"), Pair(no_buffer, "Tracer")));
    EXPECT_THAT(lines_of("FAXERROR.LOG"), one_error("kept"));
    EXPECT_FALSE(folder.exists("FAXTRACE.LOG"));
}

TEST_F(Files, ABoxThatNobodySeesIsInTheErrorLog) {
    const auto show = [] { platform::message_box().show("a\n%s", "C\xe4sar"); };
    configure("");
    start_anew();
    EXPECT_EQ(told_by_default_box(show), "C\xc3\xa4sar: a %s\n");
    EXPECT_THAT(folder.read("FAXERROR.LOG"), HasSubstr("Error:  message_box: : C\xe4sar: a %s "));

    configure("Errorfile=" + folder.path("none/log"));
    start_anew();
    EXPECT_EQ(told_by_default_box(show), "C\xc3\xa4sar: a %s\nTracer: Error opening error log\n");
}

// The tracer's own boxes aren't written into the two files, which would lead back to the tracer.
TEST_F(Files, AnErrorLogThatCantBeOpenedCostsTheTraceNothing) {
    const environment_variable narrow("TRACE_WRAP_WIDTH", "20");
    configure("Trace=1\nErrorfile=" + folder.path("none/log"));
    start_anew();
    const std::string told = told_by_default_box([] { write_line(TTrace, 100, seven_words); });
    const std::string box = "Tracer: Error opening error log\n";
    EXPECT_EQ(told, box + box + box);
    EXPECT_THAT(trace_lines(), ElementsAreArray(seven_words_in_20));
}

TEST_F(Files, ATraceFileThatCantBeOpenedIsToldOnce) {
    configure("");
    start_anew();
    const int before = owned_arrays();
    configure("Trace=1\nTracefile=" + folder.path("none/trace"));
    start_anew();
    const std::string told = told_by_default_box([] {
        write_line(TTrace, 200, "x");
        write_line(TTrace, 100, "y");
    });
    EXPECT_EQ(told,
              folder.path("none/trace") + ": Tracesetname: Error open trace file error code: 2\n");
    EXPECT_THAT(lines_of("FAXERROR.LOG"), one_error("y"));
    EXPECT_EQ(T_TRACE_access::trace_on(TTrace), 1);
    configure("");
    start_anew();
    EXPECT_EQ(owned_arrays(), before);
}

// As in a program whose windows go on while a message stands in front of them.
TEST_F(Files, ALineTracedWhileABoxStandsLeavesTheOthersWhole) {
    struct busy_box final : platform::message_box_port {
        T_TRACE* tracer = nullptr;
        void show(std::string_view, std::string_view) override {
            write_line(*tracer, 200, "busy busy busy busy busy busy");
        }
    } box;
    const environment_variable narrow("TRACE_WRAP_WIDTH", "20");
    configure("Trace=1\nErrorfile=" + folder.path("none/log"));
    T_TRACE tracer;
    box.tracer = &tracer;
    platform::message_box_port* recorded = platform::replace_message_box(&box);
    write_line(tracer, 100, seven_words);
    platform::replace_message_box(recorded);
    std::vector<std::string> lines = trace_lines();
    EXPECT_EQ(std::erase_if(lines, [](auto& one) { return one.starts_with("# Info1:"); }), 9);
    EXPECT_THAT(lines, ElementsAreArray(seven_words_in_20));
}
