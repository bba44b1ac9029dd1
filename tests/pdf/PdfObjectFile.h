#pragma once

#include <cstdio>
#include <string>
#include <vector>

// Writes PDF files object by object, for documents cairo does not make (a page's /Rotate, Type 3
// fonts, forms that draw forms, damaged or hostile files): each object's body in PDF syntax,
// numbered from 1 in the order added, then the cross-reference table with the offsets counted
// from the bytes written.
class PdfObjectFile {
  public:
    // Adds an object and gives its number.
    int Add(const std::string& body) {
        bodies_.push_back(body);
        return static_cast<int>(bodies_.size());
    }
    // Adds a stream object of `data` with the extra dictionary entries `dictionary`.
    int AddStream(const std::string& data, const std::string& dictionary = "") {
        return Add("<< /Length " + std::to_string(data.size()) + " " + dictionary +
                   " >>\nstream\n" + data + "\nendstream");
    }
    // Replaces the body of object `number` (for objects that refer to later ones).
    void Set(int number, const std::string& body) { bodies_[number - 1] = body; }

    // The whole file with object `root` as its catalog.
    std::string Finish(int root) const {
        std::string out = "%PDF-1.7\n";
        std::vector<std::size_t> offsets;
        for (std::size_t i = 0; i < bodies_.size(); ++i) {
            offsets.push_back(out.size());
            out += std::to_string(i + 1) + " 0 obj\n" + bodies_[i] + "\nendobj\n";
        }
        const std::size_t xref = out.size();
        out += "xref\n0 " + std::to_string(bodies_.size() + 1) + "\n0000000000 65535 f \n";
        for (std::size_t offset : offsets) {
            char line[24];
            std::snprintf(line, sizeof line, "%010zu 00000 n \n", offset);
            out += line;
        }
        out += "trailer\n<< /Size " + std::to_string(bodies_.size() + 1) + " /Root " +
               std::to_string(root) + " 0 R >>\nstartxref\n" + std::to_string(xref) + "\n%%EOF\n";
        return out;
    }

  private:
    std::vector<std::string> bodies_;
};
