#include "host/svg/VRKSvgDocument.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <climits>
#include <cstring>

namespace {

constexpr const char* kSvgNamespace = "http://www.w3.org/2000/svg";
constexpr const char* kXlinkNamespace = "http://www.w3.org/1999/xlink";
constexpr const char* kXmlNamespace = "http://www.w3.org/XML/1998/namespace";

const char* Chars(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

// What the parse met that libxml2 does not report as an error of its own.
struct Refusal {
    bool entity = false;
    int line = 0;
};

// Entities are refused at their declaration: the parser stops there, so that none is ever
// expanded (nor fetched, for an external one).
void RefuseEntity(void* context, const xmlChar*, int, const xmlChar*, const xmlChar*, xmlChar*) {
    auto* parser = static_cast<xmlParserCtxtPtr>(context);
    auto* refusal = static_cast<Refusal*>(parser->_private);
    if (!refusal->entity) {
        refusal->entity = true;
        refusal->line = parser->input != nullptr ? parser->input->line : 0;
    }
    xmlStopParser(parser);
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

xmlParserInputPtr ResolveNothing(void*, const xmlChar*, const xmlChar*) {
    return nullptr;
}

void NoExternalSubset(void*, const xmlChar*, const xmlChar*, const xmlChar*) {}

bool InSvgNamespace(const xmlNode* node) {
    return node->ns == nullptr || node->ns->href == nullptr ||
           std::strcmp(Chars(node->ns->href), kSvgNamespace) == 0;
}

std::string AttributeName(const xmlAttr* attribute) {
    const std::string local = Chars(attribute->name);
    if (attribute->ns == nullptr || attribute->ns->href == nullptr) {
        return local;
    }
    const char* href = Chars(attribute->ns->href);
    if (std::strcmp(href, kXlinkNamespace) == 0) {
        return "xlink:" + local;
    }
    if (std::strcmp(href, kXmlNamespace) == 0) {
        return "xml:" + local;
    }
    if (std::strcmp(href, kSvgNamespace) == 0) {
        return local;
    }
    return {};
}

std::unique_ptr<VRKSvgNode> Convert(const xmlNode* element, VRKSvgNode* parent) {
    auto node = std::make_unique<VRKSvgNode>();
    node->name = Chars(element->name);
    node->inSvg = InSvgNamespace(element);
    node->line = static_cast<int>(std::min<long>(xmlGetLineNo(element), INT_MAX));
    node->parent = parent;
    for (const xmlAttr* attribute = element->properties; attribute != nullptr;
         attribute = attribute->next) {
        std::string name = AttributeName(attribute);
        if (name.empty()) {
            continue;
        }
        std::string value;
        for (const xmlNode* part = attribute->children; part != nullptr; part = part->next) {
            if (part->content != nullptr) {
                value += Chars(part->content);
            }
        }
        node->attributes.emplace_back(std::move(name), std::move(value));
    }
    for (const xmlNode* child = element->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) {
            node->children.push_back(Convert(child, node.get()));
        } else if ((child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE) &&
                   child->content != nullptr) {
            // Adjacent runs of text (text and CDATA) are one.
            if (!node->children.empty() && node->children.back()->IsText()) {
                node->children.back()->text += Chars(child->content);
                continue;
            }
            auto text = std::make_unique<VRKSvgNode>();
            text->text = Chars(child->content);
            text->line = node->line;
            text->parent = node.get();
            node->children.push_back(std::move(text));
        }
    }
    return node;
}

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

}  // namespace

bool VRKSvgDocument::Parse(std::string_view text, std::string& error, int& errorLine) {
    root_.reset();
    ids_.clear();
    errorLine = 0;
    if (text.size() > static_cast<std::size_t>(INT_MAX)) {
        error = "the file is too large to be read";
        return false;
    }
    const QuietGenericErrors quiet;
    xmlParserCtxtPtr parser = xmlNewParserCtxt();
    if (parser == nullptr) {
        error = "out of memory";
        return false;
    }
    Refusal refusal;
    parser->_private = &refusal;
    parser->sax->entityDecl = RefuseEntity;
    parser->sax->resolveEntity = ResolveNothing;
    parser->sax->externalSubset = NoExternalSubset;
    // No NOENT (entities are not substituted), no DTDLOAD or DTDATTR (no external DTD is read),
    // NONET (nothing comes from the network). The parser's own depth bound (256 levels) holds:
    // no HUGE.
    const int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING |
                        XML_PARSE_NOCDATA | XML_PARSE_BIG_LINES;
    xmlDocPtr document = xmlCtxtReadMemory(parser, text.data(), static_cast<int>(text.size()),
                                           nullptr, nullptr, options);
    bool good = document != nullptr && !refusal.entity;
    if (refusal.entity) {
        errorLine = refusal.line;
        error = "the file declares entities, which are not read";
    } else if (document == nullptr || !parser->wellFormed) {
        const xmlError* last = xmlCtxtGetLastError(parser);
        const std::string message = last != nullptr ? Trimmed(last->message) : "";
        errorLine = last != nullptr ? last->line : 0;
        if (message.find("Excessive depth") != std::string::npos) {
            error = "elements are nested deeper than 256 levels";
        } else {
            error = "the file is not well-formed XML (" +
                    (message.empty() ? std::string("unreadable") : message) + ")";
        }
        good = false;
    } else if (document->intSubset != nullptr && document->intSubset->entities != nullptr) {
        error = "the file declares entities, which are not read";
        good = false;
    }
    if (good) {
        const xmlNode* root = xmlDocGetRootElement(document);
        if (root == nullptr) {
            error = "the file has no root element";
            good = false;
        } else if (std::strcmp(Chars(root->name), "svg") != 0 || !InSvgNamespace(root)) {
            errorLine = static_cast<int>(std::min<long>(xmlGetLineNo(root), INT_MAX));
            error = std::strcmp(Chars(root->name), "svg") == 0
                        ? std::string("the root element <svg> is not of the SVG namespace")
                        : std::string("the root element is <") + Chars(root->name) + ">, not <svg>";
            good = false;
        } else {
            try {
                root_ = Convert(root, nullptr);
                IndexIds(*root_);
            } catch (...) {
                root_.reset();
                xmlFreeDoc(document);
                xmlFreeParserCtxt(parser);
                throw;
            }
        }
    }
    if (document != nullptr) {
        xmlFreeDoc(document);
    }
    xmlFreeParserCtxt(parser);
    return good;
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
