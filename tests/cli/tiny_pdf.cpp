// SPDX-License-Identifier: MIT
#include "cli/tiny_pdf.h"

#include <cstdio>
#include <sstream>

namespace zerdix::test {

namespace {

class pdf_text {
  public:
    void add(const std::string& object) {
        offsets_.push_back(text_.size());
        text_ += std::to_string(offsets_.size()) + " 0 obj\n" + object + "\nendobj\n";
    }

    std::string finish(const std::string& trailer_entries) {
        const std::size_t table = text_.size();
        const std::string count = std::to_string(offsets_.size() + 1);
        text_ += "xref\n0 " + count + "\n0000000000 65535 f \n";
        for (const std::size_t offset : offsets_) {
            char line[24];
            std::snprintf(line, sizeof line, "%010zu 00000 n \n", offset);
            text_ += line;
        }
        text_ += "trailer\n<< /Size " + count + " /Root 1 0 R " + trailer_entries +
                 " >>\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
        return text_;
    }

  private:
    std::string text_ = "%PDF-1.4\n";
    std::vector<std::size_t> offsets_;
};

std::string page_object(const tiny_page& page, std::size_t drawing) {
    std::ostringstream object;
    object << "<< /Type /Page /Parent 2 0 R /Resources << >> /MediaBox [0 0 " << page.width << ' '
           << page.height << "] /Rotate " << page.rotate << " /Contents " << drawing << " 0 R >>";
    return object.str();
}

} // namespace

std::string tiny_pdf(const std::vector<tiny_page>& pages, const std::string& trailer_entries) {
    pdf_text pdf;
    pdf.add("<< /Type /Catalog /Pages 2 0 R >>");
    std::string kids;
    for (std::size_t i = 0; i < pages.size(); ++i)
        kids += std::to_string(3 + 2 * i) + " 0 R ";
    pdf.add("<< /Type /Pages /Count " + std::to_string(pages.size()) + " /Kids [" + kids + "] >>");
    for (std::size_t i = 0; i < pages.size(); ++i) {
        pdf.add(page_object(pages[i], 4 + 2 * i));
        pdf.add("<< /Length " + std::to_string(pages[i].drawing.size()) + " >>\nstream\n" +
                pages[i].drawing + "\nendstream");
    }
    return pdf.finish(trailer_entries);
}

std::string locked_pdf() {
    const std::string key(64, 'A');
    return tiny_pdf({{100, 100, ""}},
                    "/ID [<00><00>] /Encrypt << /Filter /Standard /V 1 /R 2 /O <" + key + "> /U <" +
                        key + "> /P -4 >>");
}

} // namespace zerdix::test
