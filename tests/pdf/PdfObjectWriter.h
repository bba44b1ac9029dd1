#pragma once

#include <cstddef>
#include <string>
#include <vector>

// Assembles small PDF documents by hand, for what cairo's PDF surface cannot write (a page's
// /Rotate, Type 3 fonts): objects numbered from 1 in the order they are added, then a
// cross-reference table with each object's byte offset and a trailer naming object 1 as the
// catalog.
class PdfObjectWriter {
  public:
    // Adds an object (its text between "N 0 obj" and "endobj"); its number.
    int Add(const std::string& body) {
        objects_.push_back(body);
        return static_cast<int>(objects_.size());
    }
    // Adds a stream object holding `data`, with `dictionary` entries besides its /Length.
    int AddStream(const std::string& data, const std::string& dictionary = "") {
        return Add("<< /Length " + std::to_string(data.size()) + dictionary + " >>\nstream\n" +
                   data + "\nendstream");
    }
    std::string Document() const {
        std::string pdf = "%PDF-1.4\n";
        std::vector<std::size_t> offsets;
        for (std::size_t i = 0; i < objects_.size(); ++i) {
            offsets.push_back(pdf.size());
            pdf += std::to_string(i + 1) + " 0 obj\n" + objects_[i] + "\nendobj\n";
        }
        const std::size_t xref = pdf.size();
        const std::string size = std::to_string(objects_.size() + 1);
        // Each entry is exactly 20 bytes: ten digits of offset, five of generation, the kind
        // and a two-character line end.
        pdf += "xref\n0 " + size + "\n0000000000 65535 f \n";
        for (const std::size_t offset : offsets) {
            const std::string digits = std::to_string(offset);
            pdf += std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
        }
        pdf += "trailer\n<< /Size " + size + " /Root 1 0 R >>\nstartxref\n" + std::to_string(xref) +
               "\n%%EOF\n";
        return pdf;
    }

  private:
    std::vector<std::string> objects_;
};
