#include "host/svg/VRKSvgImporter.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <exception>
#include <fstream>
#include <new>
#include <stdexcept>

#include "host/core/VRKPathName.h"
#include "host/svg/VRKSvgDocument.h"
#include "host/svg/VRKSvgRenderer.h"

namespace {

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Skips `<?...?>`, `<!--...-->` and `<!...>` (a doctype, with its internal subset in brackets) at
// the start of `text`; false when none is there or it does not end within the text.
bool SkipMarkup(std::string_view& text) {
    std::string_view end;
    if (text.rfind("<?", 0) == 0) {
        end = "?>";
    } else if (text.rfind("<!--", 0) == 0) {
        end = "-->";
    } else if (text.rfind("<!", 0) == 0) {
        int brackets = 0;
        for (std::size_t i = 2; i < text.size(); ++i) {
            if (text[i] == '[') {
                ++brackets;
            } else if (text[i] == ']') {
                --brackets;
            } else if (text[i] == '>' && brackets <= 0) {
                text.remove_prefix(i + 1);
                return true;
            }
        }
        return false;
    } else {
        return false;
    }
    const std::size_t found = text.find(end, 2);
    if (found == std::string_view::npos) {
        return false;
    }
    text.remove_prefix(found + end.size());
    return true;
}

}  // namespace

bool VRKSvgImporter::LooksLikeSvg(std::string_view head) {
    // A byte order mark, then markup and spaces, then the root element.
    if (head.rfind("\xEF\xBB\xBF", 0) == 0) {
        head.remove_prefix(3);
    }
    while (true) {
        while (!head.empty() && IsSpace(head.front())) {
            head.remove_prefix(1);
        }
        if (head.rfind("<!", 0) == 0 || head.rfind("<?", 0) == 0) {
            if (!SkipMarkup(head)) {
                return false;
            }
            continue;
        }
        break;
    }
    if (head.empty() || head.front() != '<') {
        return false;
    }
    head.remove_prefix(1);
    std::size_t nameEnd = 0;
    while (nameEnd < head.size() && !IsSpace(head[nameEnd]) && head[nameEnd] != '>' &&
           head[nameEnd] != '/') {
        ++nameEnd;
    }
    std::string_view name = head.substr(0, nameEnd);
    const std::size_t colon = name.find(':');
    if (colon != std::string_view::npos) {
        name.remove_prefix(colon + 1);
    }
    return name == "svg" && nameEnd < head.size();
}

bool VRKSvgImporter::ReadFile(const std::string& path, VRKDrawing& drawing) {
    error_.clear();
    warnings_.clear();
    drawing = VRKDrawing();
    const std::string name = VRKPathName::Base(path);
    try {
        std::ifstream in(path, std::ios::binary);
        if (!in) {
            error_ = name + ": the file cannot be opened";
            return false;
        }
        in.seekg(0, std::ios::end);
        const std::streamoff size = in.tellg();
        if (size < 0) {
            error_ = name + ": the file cannot be read";
            return false;
        }
        if (static_cast<unsigned long long>(size) > kMaxFileBytes) {
            error_ = name + ": the file is larger than 1 GiB, too large to be an SVG drawing";
            return false;
        }
        in.seekg(0, std::ios::beg);
        const auto read = [&in](char* data, std::size_t wanted) -> std::size_t {
            in.read(data, static_cast<std::streamsize>(wanted));
            if (in.bad()) {
                throw std::runtime_error("the file cannot be read");
            }
            return static_cast<std::size_t>(in.gcount());
        };
        // Linked images are taken from the file's folder, the current one for a bare name.
        const std::string folder = VRKPathName::Folder(path);
        return Read(read, name, folder.empty() ? std::string(".") : folder, drawing);
    } catch (const std::exception& exception) {
        return Failed(exception, name, drawing);
    }
}

bool VRKSvgImporter::ReadMemory(std::string_view text, const std::string& name,
                                const std::string& baseFolder, VRKDrawing& drawing) {
    const auto read = [&text](char* data, std::size_t size) {
        const std::size_t count = std::min(size, text.size());
        std::memcpy(data, text.data(), count);
        text.remove_prefix(count);
        return count;
    };
    return ReadStream(read, name, baseFolder, drawing);
}

bool VRKSvgImporter::ReadStream(const std::function<std::size_t(char*, std::size_t)>& read,
                                const std::string& name, const std::string& baseFolder,
                                VRKDrawing& drawing) {
    error_.clear();
    warnings_.clear();
    try {
        drawing = VRKDrawing();
        return Read(read, name, baseFolder, drawing);
    } catch (const std::exception& exception) {
        return Failed(exception, name, drawing);
    }
}

bool VRKSvgImporter::Failed(const std::exception& exception, const std::string& name,
                            VRKDrawing& drawing) {
    drawing = VRKDrawing();
    error_ = name + ": " +
             (dynamic_cast<const std::bad_alloc*>(&exception) != nullptr
                  ? std::string("not enough memory to read the drawing")
                  : std::string(exception.what()));
    return false;
}

namespace {

// Thrown when the document goes beyond the importer's bound on its size.
class TooLarge : public std::runtime_error {
  public:
    TooLarge() : std::runtime_error("too large") {}
};

}  // namespace

bool VRKSvgImporter::Read(const std::function<std::size_t(char*, std::size_t)>& read,
                          const std::string& name, const std::string& baseFolder,
                          VRKDrawing& drawing) {
    auto fail = [&](int line, const std::string& message) {
        error_ =
            name + ":" + (line > 0 ? std::to_string(line) + ":" : std::string()) + " " + message;
        drawing = VRKDrawing();
        return false;
    };
    std::size_t total = 0;
    const auto bounded = [&](char* data, std::size_t size) {
        const std::size_t count = read(data, size);
        total += count;
        if (count > size || total > kMaxFileBytes) {
            throw TooLarge();
        }
        return count;
    };
    VRKSvgDocument document;
    std::string message;
    int line = 0;
    try {
        if (!document.Parse(bounded, message, line)) {
            return fail(line, message);
        }
    } catch (const TooLarge&) {
        return fail(0, "the document is larger than 1 GiB, too large to be an SVG drawing");
    }
    VRKSvgRenderer renderer(document, name, baseFolder, drawing, warnings_, maxPoints_,
                            maxElements_);
    if (!renderer.Render(message, line)) {
        return fail(line, message);
    }
    return true;
}
