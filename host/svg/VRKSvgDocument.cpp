#include "host/svg/VRKSvgDocument.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <string_view>
#include <utility>
#include <vector>

#include "host/svg/VRKSvgAttributeValue.h"
#include "host/svg/VRKSvgTreeBuilder.h"

namespace {

constexpr const char* kSvgNamespace = "http://www.w3.org/2000/svg";
constexpr const char* kXlinkNamespace = "http://www.w3.org/1999/xlink";
constexpr const char* kXmlNamespace = "http://www.w3.org/XML/1998/namespace";
// An element is refused when more than this many are open around it (the parser's own bound).
constexpr int kMaxOpenAround = 256;

const char* Chars(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

bool InSvgNamespace(const xmlChar* uri) {
    return uri == nullptr || std::strcmp(Chars(uri), kSvgNamespace) == 0;
}

// A name as the file writes it: "prefix:local", or "local" without a prefix.
std::string Qualified(const xmlChar* prefix, const xmlChar* local) {
    return prefix != nullptr ? std::string(Chars(prefix)) + ":" + Chars(local)
                             : std::string(Chars(local));
}

// The name an attribute is kept under; empty for one of another namespace (left out).
std::string AttributeName(const xmlChar* local, const xmlChar* prefix, const xmlChar* uri) {
    if (uri == nullptr) {
        // No namespace, or a prefix the file never declared: the name as written.
        return Qualified(prefix, local);
    }
    if (std::strcmp(Chars(uri), kXlinkNamespace) == 0) {
        return std::string("xlink:") + Chars(local);
    }
    if (std::strcmp(Chars(uri), kXmlNamespace) == 0) {
        return std::string("xml:") + Chars(local);
    }
    if (std::strcmp(Chars(uri), kSvgNamespace) == 0) {
        return Chars(local);
    }
    return {};
}

// libxml2 reports some errors (of encodings, say) through its generic handler, which prints on
// standard error; while a document is read, they go nowhere (the parse fails with its own
// message).
void Silent(void*, const char*, ...) {}

class QuietGenericErrors {
  public:
    QuietGenericErrors() : handler_(xmlGenericError), context_(xmlGenericErrorContext) {
        xmlSetGenericErrorFunc(nullptr, Silent);
    }
    ~QuietGenericErrors() { xmlSetGenericErrorFunc(context_, handler_); }
    QuietGenericErrors(const QuietGenericErrors&) = delete;
    QuietGenericErrors& operator=(const QuietGenericErrors&) = delete;

  private:
    xmlGenericErrorFunc handler_;
    void* context_;
};

// One reading: the tree being built and what stopped the parse, if anything did.
struct Reading {
    VRKSvgTreeBuilder builder;
    int open = 0;  // elements open
    bool rootSeen = false;
    std::string innermost;  // the name of the innermost element open, and its line
    int innermostLine = 0;
    std::vector<std::pair<std::string, int>> around;  // the elements open around it
    bool entity = false;
    int entityLine = 0;
    bool deep = false;
    int deepLine = 0;
    std::string rootError;  // the root element is not <svg>: nothing under it is kept
    int rootLine = 0;
    bool fault = false;  // the first fault of the XML, as the parser words it
    std::string faultMessage;
    int faultLine = 0;
    bool ending = false;         // the parser has been told the text is over
    bool faultAtEnd = false;     // the first fault came then
    std::exception_ptr failure;  // what a callback threw (no exception crosses the parser)
};

xmlParserCtxtPtr ParserOf(void* context) {
    return static_cast<xmlParserCtxtPtr>(context);
}

Reading& ReadingOf(void* context) {
    return *static_cast<Reading*>(ParserOf(context)->_private);
}

int LineOf(void* context) {
    const xmlParserCtxtPtr parser = ParserOf(context);
    return parser->input != nullptr ? parser->input->line : 0;
}

// Runs `body`, keeping what it throws for after the parse and stopping the parser.
template <typename Body>
void Guarded(void* context, Body body) {
    Reading& reading = ReadingOf(context);
    try {
        body(reading);
    } catch (...) {
        if (!reading.failure) {
            reading.failure = std::current_exception();
        }
        xmlStopParser(ParserOf(context));
    }
}

void StartElement(void* context, const xmlChar* local, const xmlChar* prefix, const xmlChar* uri,
                  int, const xmlChar**, int attributeCount, int defaultedCount,
                  const xmlChar** attributes) {
    Guarded(context, [&](Reading& reading) {
        const int line = LineOf(context);
        if (reading.open > kMaxOpenAround) {
            reading.deep = true;
            reading.deepLine = line;
            xmlStopParser(ParserOf(context));
            return;
        }
        ++reading.open;
        reading.rootSeen = true;
        // Without a namespace for the prefix, the element is named as written.
        const std::string name =
            prefix != nullptr && uri == nullptr ? Qualified(prefix, local) : Chars(local);
        if (reading.open > 1) {
            reading.around.emplace_back(std::move(reading.innermost), reading.innermostLine);
        }
        reading.innermost = name;
        reading.innermostLine = line;
        if (reading.open == 1 && name != "svg") {
            reading.rootError = "the root element is <" + name + ">, not <svg>";
            reading.rootLine = line;
        } else if (reading.open == 1 && !InSvgNamespace(uri)) {
            reading.rootError = "the root element <svg> is not of the SVG namespace";
            reading.rootLine = line;
        }
        if (!reading.rootError.empty()) {
            return;
        }
        VRKSvgNode& node = reading.builder.Open(name, InSvgNamespace(uri), line);
        // Values that only a DTD gives are not taken.
        const int count = attributeCount - defaultedCount;
        node.attributes.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            const xmlChar* const* attribute = attributes + 5 * i;
            std::string attributeName = AttributeName(attribute[0], attribute[1], attribute[2]);
            if (attributeName.empty()) {
                continue;
            }
            node.attributes.emplace_back(
                std::move(attributeName),
                VRKSvgAttributeValue::Decode(std::string_view(
                    Chars(attribute[3]), static_cast<std::size_t>(attribute[4] - attribute[3]))));
        }
    });
}

void EndElement(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    Guarded(context, [&](Reading& reading) {
        --reading.open;
        if (!reading.around.empty()) {
            reading.innermost = std::move(reading.around.back().first);
            reading.innermostLine = reading.around.back().second;
            reading.around.pop_back();
        }
        if (reading.rootError.empty()) {
            reading.builder.Close();
        }
    });
}

void Characters(void* context, const xmlChar* text, int size) {
    Guarded(context, [&](Reading& reading) {
        if (reading.open > 0 && reading.rootError.empty()) {
            reading.builder.Text(std::string_view(Chars(text), static_cast<std::size_t>(size)));
        }
    });
}

// References to entities are never followed.
void NoReference(void*, const xmlChar*) {}

// Entities are refused at their declaration: the parser stops there, so that none is ever
// expanded (nor fetched, for an external one).
void Refuse(void* context) {
    Reading& reading = ReadingOf(context);
    if (!reading.entity) {
        reading.entity = true;
        reading.entityLine = LineOf(context);
    }
    xmlStopParser(ParserOf(context));
}

void RefuseEntity(void* context, const xmlChar*, int, const xmlChar*, const xmlChar*, xmlChar*) {
    Refuse(context);
}

void RefuseUnparsedEntity(void* context, const xmlChar*, const xmlChar*, const xmlChar*,
                          const xmlChar*) {
    Refuse(context);
}

xmlParserInputPtr ResolveNothing(void*, const xmlChar*, const xmlChar*) {
    return nullptr;
}

void NoExternalSubset(void*, const xmlChar*, const xmlChar*, const xmlChar*) {}

std::string Trimmed(const char* message) {
    std::string text = message != nullptr ? message : "";
    while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) {
        text.pop_back();
    }
    // One line: libxml2 breaks some messages in two.
    for (char& c : text) {
        if (c == '\n' || c == '\r') {
            c = ' ';
        }
    }
    return text;
}

// Errors of the parse come here instead of standard error; the first fatal one is kept.
void KeepFault(void* context, xmlErrorPtr error) {
    if (error == nullptr || error->level != XML_ERR_FATAL) {
        return;
    }
    Reading& reading = ReadingOf(context);
    if (!reading.fault) {
        reading.fault = true;
        reading.faultMessage = Trimmed(error->message);
        reading.faultLine = error->line;
        reading.faultAtEnd = reading.ending;
    }
}

struct FreeParser {
    void operator()(xmlParserCtxtPtr parser) const {
        if (parser->myDoc != nullptr) {
            xmlFreeDoc(parser->myDoc);
            parser->myDoc = nullptr;
        }
        xmlFreeParserCtxt(parser);
    }
};

}  // namespace

bool VRKSvgDocument::Parse(const Reader& read, std::string& error, int& errorLine) {
    root_.reset();
    ids_.clear();
    errorLine = 0;
    const QuietGenericErrors quiet;
    // The default callbacks keep the prolog and the DTD's internal subset; the tree is built by
    // the callbacks below, without the parser's own document tree.
    xmlSAXHandler handler;
    std::memset(&handler, 0, sizeof handler);
    xmlSAXVersion(&handler, 2);
    handler.startElementNs = StartElement;
    handler.endElementNs = EndElement;
    handler.characters = Characters;
    handler.ignorableWhitespace = Characters;
    handler.cdataBlock = Characters;
    handler.reference = NoReference;
    handler.comment = nullptr;
    handler.processingInstruction = nullptr;
    handler.entityDecl = RefuseEntity;
    handler.unparsedEntityDecl = RefuseUnparsedEntity;
    handler.resolveEntity = ResolveNothing;
    handler.externalSubset = NoExternalSubset;
    handler.serror = KeepFault;
    handler.warning = nullptr;
    handler.error = nullptr;
    handler.fatalError = nullptr;
    const std::unique_ptr<xmlParserCtxt, FreeParser> parser(
        xmlCreatePushParserCtxt(&handler, nullptr, nullptr, 0, nullptr));
    if (parser == nullptr) {
        error = "out of memory";
        return false;
    }
    Reading reading;
    parser->_private = &reading;
    // No NOENT (entities are not substituted), no DTDLOAD or DTDATTR (no external DTD is read),
    // NONET (nothing comes from the network), no HUGE (the parser's bounds on names and texts
    // hold).
    xmlCtxtUseOptions(parser.get(), XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING |
                                        XML_PARSE_BIG_LINES);
    std::vector<char> chunk(kChunkSize);
    int lines = 1;  // of the text read so far, for a fault at its end
    for (;;) {
        const std::size_t count = read(chunk.data(), chunk.size());
        lines += static_cast<int>(std::count(chunk.data(), chunk.data() + count, '\n'));
        const bool end = count == 0;
        reading.ending = end;
        xmlParseChunk(parser.get(), chunk.data(), static_cast<int>(count), end ? 1 : 0);
        if (reading.failure) {
            std::rethrow_exception(reading.failure);
        }
        if (end || reading.entity || reading.deep || reading.fault || !parser->wellFormed ||
            parser->instate == XML_PARSER_EOF) {
            break;
        }
    }
    if (reading.entity) {
        errorLine = reading.entityLine;
        error = "the file declares entities, which are not read";
        return false;
    }
    if (reading.deep) {
        errorLine = reading.deepLine;
        error = "elements are nested deeper than 256 levels";
        return false;
    }
    if (reading.fault || !parser->wellFormed) {
        std::string message = reading.faultMessage;
        errorLine = reading.faultLine;
        if (!reading.fault) {
            const xmlError* last = xmlCtxtGetLastError(parser.get());
            message = last != nullptr ? Trimmed(last->message) : "";
            errorLine = last != nullptr ? last->line : 0;
        }
        if (reading.faultAtEnd) {
            errorLine = std::max(errorLine, lines);
        }
        if (reading.faultAtEnd && reading.open > 0) {
            // The parser's words for this depend on where the text stopped: ours do not.
            message = "it ends inside <" + reading.innermost + ">, opened on line " +
                      std::to_string(reading.innermostLine);
        } else if (reading.faultAtEnd && !reading.rootSeen) {
            message = "no root element";
        }
        if (message.find("Excessive depth") != std::string::npos) {
            error = "elements are nested deeper than 256 levels";
        } else {
            error = "the file is not well-formed XML (" +
                    (message.empty() ? std::string("unreadable") : message) + ")";
        }
        return false;
    }
    if (parser->myDoc != nullptr && parser->myDoc->intSubset != nullptr &&
        parser->myDoc->intSubset->entities != nullptr) {
        error = "the file declares entities, which are not read";
        return false;
    }
    if (!reading.rootError.empty()) {
        errorLine = reading.rootLine;
        error = reading.rootError;
        return false;
    }
    root_ = reading.builder.TakeRoot();
    if (root_ == nullptr) {
        error = "the file has no root element";
        return false;
    }
    IndexIds(*root_);
    return true;
}

const VRKSvgNode* VRKSvgDocument::FindId(const std::string& id) const {
    const auto found = ids_.find(id);
    return found == ids_.end() ? nullptr : found->second;
}

void VRKSvgDocument::IndexIds(const VRKSvgNode& node) {
    if (const std::string* id = node.Attribute("id")) {
        ids_.emplace(*id, &node);
    }
    for (const auto& child : node.children) {
        if (!child->IsText()) {
            IndexIds(*child);
        }
    }
}
