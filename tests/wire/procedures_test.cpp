// SPDX-License-Identifier: MIT
// The table of procedures as a whole.

#include <cstdio>
#include <gtest/gtest.h>
#include <string>

#include "rpc/wire/procedures.h"

namespace {

using namespace zerdix::wire;

template <class... P>
std::vector<std::uint32_t> numbers(procedure_list<P...>) {
    return {P::number...};
}

TEST(Procedures, NumbersAreTheProtocols) {
    std::vector<std::uint32_t> expected{1};
    for (std::uint32_t n = 3; n <= 104; ++n)
        if (n != 13)
            expected.push_back(n);
    for (std::uint32_t n = 1000; n <= 1007; ++n)
        expected.push_back(n);
    EXPECT_EQ(expected.size(), 110u);
    EXPECT_EQ(numbers(all_procedures{}), expected);
}

template <class... P>
std::vector<std::string> names(procedure_list<P...>) {
    return {P::name...};
}

// What nm says of the library, without names that are only referred to.
std::string defined_symbols() {
    std::FILE* nm = popen("nm -C --defined-only " ZERDIX_LIBRARY, "r");
    std::string all;
    for (char piece[4096]; std::size_t length = std::fread(piece, 1, sizeof piece, nm);)
        all.append(piece, length);
    EXPECT_EQ(pclose(nm), 0);
    return all;
}

TEST(Procedures, TheLibraryHasAStubOfEach) {
    const std::string symbols = defined_symbols();
    for (const std::string& name : names(all_procedures{}))
        EXPECT_NE(symbols.find("zerdix::wire::stub<zerdix::wire::proc::" + name + ">("),
                  std::string::npos)
            << name;
}

} // namespace
