// SPDX-License-Identifier: MIT
// A cover template as a site keeps it: a public desk document that the configuration names.
#ifndef ZERDIX_TESTS_COVER_TEMPLATE_DOCUMENT_H
#define ZERDIX_TESTS_COVER_TEMPLATE_DOCUMENT_H

#include <string>

#include "pages/codec_calls.h"
#include "support/test_server.h"

namespace zerdix::testing {

// A page in stored form, compressed: every row byte the same, as large as it claims or not.
inline codec::bytes page_of(std::uint32_t width, std::uint32_t height, unsigned char fill,
                            std::size_t rows) {
    codec::bytes block = codec::page_header(width, height);
    block.resize(8 + std::size_t{(width + 7) / 8} * rows, fill);
    return *codec::compress(block);
}

inline codec::bytes page_of(std::uint32_t width, std::uint32_t height, unsigned char fill = 0) {
    return page_of(width, height, fill, height);
}

inline std::string as_text(const codec::bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

// Its id. An empty text is none.
inline std::int32_t install_template(test::test_server& server, const codec::bytes& form,
                                     const std::string& text) {
    const std::int32_t id = server.store().documents.create(TOPF_P, "meier");
    server.store().documents.set_public(id, true);
    server.store().pages.put_block({id, 1, 0}, 0, as_text(form));
    if (!text.empty())
        server.store().pages.put_block({id, 1, 10}, 0, text);
    server.set_config("COVER", std::to_string(id));
    return id;
}

} // namespace zerdix::testing

#endif
