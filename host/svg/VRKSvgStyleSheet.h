#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/svg/VRKSvgNode.h"

// The rules of a document's <style> sheets that the importer applies: selectors of a type, a
// class, an id, or several of those together on one element (circle.big#c), in lists separated
// by commas. Everything else a sheet may hold (combinators, attribute selectors, pseudo-classes,
// @ rules) is skipped, and noted so that the importer warns once.
class VRKSvgStyleSheet {
  public:
    using Declarations = std::vector<std::pair<std::string, std::string>>;

    // Adds the rules of a sheet's text, after those added before.
    void Add(std::string_view text);
    // The declarations of the rules that match `element`, in the order they apply: by
    // specificity, then in the order written.
    Declarations Match(const VRKSvgNode& element) const;
    // What of the sheets was skipped, as a short description; empty when nothing was.
    const std::string& Skipped() const { return skipped_; }

    // "name: value; ..." of a style attribute or a rule's body, names in lower case, values
    // without !important.
    static Declarations ParseDeclarations(std::string_view text);

  private:
    struct Selector {
        std::string type;  // empty or "*": any
        std::string id;
        std::vector<std::string> classes;
        int specificity = 0;
    };
    struct Rule {
        Selector selector;
        std::size_t order = 0;
        Declarations declarations;
    };
    std::vector<Rule> rules_;
    std::string skipped_;

    bool ParseSelector(std::string_view text, Selector& selector) const;
    static bool Matches(const Selector& selector, const VRKSvgNode& element);
    void Skip(std::string what);
};
