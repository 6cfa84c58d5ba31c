// SPDX-License-Identifier: MIT
// Pages that several threads make, out of a document made up here.

#include <chrono>
#include <gmock/gmock.h>
#include <thread>

#include "output/failure.h"
#include "print/pages_ahead.h"

namespace zerdix::app {
namespace {

using namespace std::chrono_literals;

struct made_up_document {
    int pages = 0;
    int damaged = 0; // a page that fails
    int endless = 0; // a page that takes until it is stopped
    bool opens_once = false;
    std::atomic<int> begun = 0;
};

class made_up_source : public page_source {
  public:
    explicit made_up_source(made_up_document& document) : document_(document) {}

    int pages() const override { return document_.pages; }
    std::string title() const override { return ""; }
    fax_page render(int page, const std::atomic<bool>& stop) override {
        ++document_.begun;
        if (page == document_.damaged)
            throw failure(exit_bad_data, "page " + std::to_string(page) + " is damaged");
        while (page == document_.endless && !stop)
            std::this_thread::sleep_for(1ms);
        std::this_thread::sleep_for(page % 3 == 0 ? 3ms : 0ms);
        return {{static_cast<unsigned char>(page)}, ""};
    }
    std::unique_ptr<page_source> another() const override {
        if (document_.opens_once)
            throw failure(exit_no_input, "it has gone");
        return std::make_unique<made_up_source>(document_);
    }

  private:
    made_up_document& document_;
};

void expect_all_in_order(made_up_document& document) {
    made_up_source source(document);
    pages_ahead pages(source, 4);
    for (int number = 1; number <= pages.count(); ++number)
        ASSERT_THAT(pages.next().block, testing::ElementsAre(number));
}

TEST(PagesAhead, ComeInTheirOrder) {
    made_up_document document{.pages = 60};
    expect_all_in_order(document);
    made_up_document gone{.pages = 20, .opens_once = true};
    expect_all_in_order(gone);
}

TEST(PagesAhead, WaitForASlowTaker) {
    made_up_document document{.pages = 200};
    made_up_source source(document);
    pages_ahead pages(source, 4);
    pages.next();
    std::this_thread::sleep_for(200ms);
    EXPECT_GT(document.begun, 4);
    EXPECT_LE(document.begun, 20);
}

TEST(PagesAhead, FailWhereTheDamagedPageStands) {
    made_up_document document{.pages = 40, .damaged = 7};
    made_up_source source(document);
    pages_ahead pages(source, 4);
    for (int number = 1; number < 7; ++number)
        ASSERT_THAT(pages.next().block, testing::ElementsAre(number));
    try {
        pages.next();
        FAIL() << "page 7 came";
    } catch (const failure& error) {
        EXPECT_STREQ(error.what(), "page 7 is damaged");
    }
}

TEST(PagesAhead, StopInTheMiddleOfAPage) {
    made_up_document document{.pages = 9, .endless = 2};
    made_up_source source(document);
    pages_ahead pages(source, 2);
    pages.next();
}

} // namespace
} // namespace zerdix::app
