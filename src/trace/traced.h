// SPDX-License-Identifier: MIT
// Writing trace lines from the rooms:
//
//     constexpr trace::tracer trace_lines{"sendfax"};
//     trace_lines.entry("<-- StoreFaxPage(): page %d, size %ld", page, size);
//
// The format is a literal and is checked while compiling: the number of arguments, text for "%s",
// an integer of at most 32 bits for everything else. Its conversions are those of
// platform/format.h; "%ld" is 32 bits wide.
#ifndef ZERDIX_TRACE_TRACED_H
#define ZERDIX_TRACE_TRACED_H

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include <zerdix/trace.h>

namespace zerdix::trace {

// The tracer of the process. Everything in the library reaches it through this pointer.
extern T_TRACE* const process_tracer;

enum level : std::uint32_t {
    level_error = 100,
    level_info = 200,
    level_life = 400,
    level_entry = 500,
    level_exit = 600,
    level_property = 700,
    level_warning = 900,
};

template <class T>
concept traced_integer = std::convertible_to<T, std::int64_t> && !std::is_floating_point_v<T> &&
                         !std::is_class_v<T> && sizeof(T) <= 4;

template <class T>
concept traced_text = std::convertible_to<T, const char*>;

template <class T>
concept traceable = traced_integer<T> || traced_text<T>;

// Not constant: a call that the compiler can't evaluate is the error that the caller sees.
inline void format_and_arguments_do_not_match() {}

// Walks the format and hands each conversion's type to `expected` of the arguments, in turn.
consteval void check_format(std::string_view format, const bool* is_text, std::size_t count) {
    std::size_t used = 0;
    for (std::size_t at = format.find('%'); at != std::string_view::npos;
         at = format.find('%', at)) {
        at = format.find_first_not_of("-0# +.0123456789lh", at + 1);
        if (at == std::string_view::npos ||
            std::string_view("diuxXsc%").find(format[at]) == std::string_view::npos)
            format_and_arguments_do_not_match();
        if (format[at++] == '%')
            continue;
        if (used == count || is_text[used] != (format[at - 1] == 's')) // NOLINT: it is filled whole
            format_and_arguments_do_not_match();
        ++used;
    }
    if (used != count)
        format_and_arguments_do_not_match();
}

// A format with the source line of the call that it was written in.
template <class... Arguments>
class traced_format {
  public:
    consteval traced_format(const char* text, // NOLINT: meant to be implicit
                            std::uint32_t line = __builtin_LINE())
        : text_(text), line_(line) {
        constexpr bool is_text[] = {traced_text<Arguments>..., false};
        check_format(text, is_text, sizeof...(Arguments));
    }

    const char* text() const { return text_; }
    std::uint32_t line() const { return line_; }

  private:
    const char* text_;
    std::uint32_t line_;
};

// The lines of one source file. `file` is its name without the ending.
class tracer {
  public:
    template <class... Arguments>
    using format = traced_format<std::type_identity_t<Arguments>...>;

    constexpr explicit tracer(const char* file) : file_(file) {}

    template <traceable... Arguments>
    void error(format<Arguments...> text, Arguments... arguments) const {
        line(level_error, text, arguments...);
    }
    template <traceable... Arguments>
    void info(format<Arguments...> text, Arguments... arguments) const {
        line(level_info, text, arguments...);
    }
    template <traceable... Arguments>
    void life(format<Arguments...> text, Arguments... arguments) const {
        line(level_life, text, arguments...);
    }
    template <traceable... Arguments>
    void entry(format<Arguments...> text, Arguments... arguments) const {
        line(level_entry, text, arguments...);
    }
    template <traceable... Arguments>
    void exit(format<Arguments...> text, Arguments... arguments) const {
        line(level_exit, text, arguments...);
    }
    template <traceable... Arguments>
    void property(format<Arguments...> text, Arguments... arguments) const {
        line(level_property, text, arguments...);
    }
    template <traceable... Arguments>
    void warning(format<Arguments...> text, Arguments... arguments) const {
        line(level_warning, text, arguments...);
    }

    // For a level that is decided by the caller.
    template <traceable... Arguments>
    void line(level at, format<Arguments...> text, Arguments... arguments) const {
        process_tracer->tracePrintf(file_, text.line(), "not available", at, text.text(),
                                    arguments...);
    }

  private:
    const char* file_;
};

// The two lines of an operation: its entry line now, and its exit line on every way out.
class operation {
  public:
    // The exit line is "--> " and `name`, unless another one is written first.
    template <traceable... Arguments>
    operation(tracer lines, const char* name, tracer::format<Arguments...> entry,
              Arguments... arguments)
        : lines_(lines), name_(name) {
        lines_.entry(entry, arguments...);
    }
    ~operation() {
        if (!has_exit_line_)
            lines_.exit("--> %s", name_);
    }
    operation(const operation&) = delete;
    operation& operator=(const operation&) = delete;

    const char* name() const { return name_; }

    // Writes an exit line of its own, for the way out that is taken now.
    template <traceable... Arguments>
    void exit(tracer::format<Arguments...> text, Arguments... arguments) const {
        has_exit_line_ = true;
        lines_.exit(text, arguments...);
    }

  private:
    tracer lines_;
    const char* name_;
    mutable bool has_exit_line_ = false;
};

} // namespace zerdix::trace

#endif
