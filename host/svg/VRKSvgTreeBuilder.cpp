#include "host/svg/VRKSvgTreeBuilder.h"

#include <algorithm>
#include <utility>

namespace {

bool IsBlank(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
}

}  // namespace

VRKSvgNode& VRKSvgTreeBuilder::Open(std::string_view name, bool inSvg, int line) {
    auto node = std::make_unique<VRKSvgNode>();
    node->name = name;
    node->inSvg = inSvg;
    node->line = line;
    node->parent = current_;
    const bool keepsText =
        name == "text" || name == "style" || (!keepsText_.empty() && keepsText_.back());
    VRKSvgNode* opened = node.get();
    if (current_ == nullptr) {
        root_ = std::move(node);
    } else {
        EndTextRun();
        current_->children.push_back(std::move(node));
    }
    keepsText_.push_back(keepsText);
    current_ = opened;
    return *opened;
}

void VRKSvgTreeBuilder::Close() {
    if (current_ == nullptr) {
        return;
    }
    EndTextRun();
    current_->children.shrink_to_fit();
    current_->attributes.shrink_to_fit();
    current_ = current_->parent;
    keepsText_.pop_back();
}

void VRKSvgTreeBuilder::Text(std::string_view text) {
    if (current_ == nullptr || text.empty()) {
        return;
    }
    auto& children = current_->children;
    if (!children.empty() && children.back()->IsText()) {
        children.back()->text += text;
        return;
    }
    auto node = std::make_unique<VRKSvgNode>();
    node->text = text;
    node->line = current_->line;
    node->parent = current_;
    children.push_back(std::move(node));
}

std::unique_ptr<VRKSvgNode> VRKSvgTreeBuilder::TakeRoot() {
    current_ = nullptr;
    keepsText_.clear();
    return std::move(root_);
}

void VRKSvgTreeBuilder::EndTextRun() {
    auto& children = current_->children;
    if (!keepsText_.back() && !children.empty() && children.back()->IsText() &&
        IsBlank(children.back()->text)) {
        children.pop_back();
    }
}
