// Images: PNG files, linked or held in data: URIs, placed by their box on the page.

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>

#include "host/core/VRKPixelImage.h"
#include "host/core/VRKSmartRef.h"
#include "host/image/VRKPngReader.h"
#include "host/svg/VRKSvgRenderer.h"

namespace {

// The bytes of base64 text (spaces and newlines skipped); false on any other character.
bool DecodeBase64(std::string_view text, std::string& bytes) {
    bytes.clear();
    unsigned int buffer = 0;
    int bits = 0;
    for (const char c : text) {
        int value = 0;
        if (c >= 'A' && c <= 'Z') {
            value = c - 'A';
        } else if (c >= 'a' && c <= 'z') {
            value = c - 'a' + 26;
        } else if (c >= '0' && c <= '9') {
            value = c - '0' + 52;
        } else if (c == '+' || c == '-') {
            value = 62;
        } else if (c == '/' || c == '_') {
            value = 63;
        } else if (c == '=' || c == ' ' || c == '\n' || c == '\r' || c == '\t') {
            continue;
        } else {
            return false;
        }
        buffer = (buffer << 6) | static_cast<unsigned int>(value);
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>((buffer >> bits) & 0xff);
        }
    }
    return true;
}

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return lower;
}

}  // namespace

void VRKSvgRenderer::Image(const VRKSvgNode& node, const State& state) {
    if (!state.style.visible) {
        return;
    }
    const std::string* link = node.Link();
    if (link == nullptr || link->empty()) {
        Warn("image-link", node, "an image without a link; not drawn");
        return;
    }
    VRKSmartRef<VRKPixelImage> image;
    std::string error;
    const std::string lowered = Lower(link->substr(0, std::min<std::size_t>(link->size(), 64)));
    if (lowered.rfind("data:", 0) == 0) {
        const std::size_t comma = link->find(',');
        const std::string header = Lower(link->substr(0, std::min(comma, link->size())));
        std::string bytes;
        if (comma == std::string::npos || header.rfind("data:image/png", 0) != 0 ||
            header.find(";base64") == std::string::npos ||
            !DecodeBase64(std::string_view(*link).substr(comma + 1), bytes)) {
            Warn("image-data", node,
                 "images in data: URIs other than base64 PNG are not "
                 "supported; not drawn");
            return;
        }
        image = VRKSmartRef<VRKPixelImage>::Adopt(
            VRKPngReader::ReadMemory(bytes.data(), bytes.size(), error));
        if (!image) {
            Warn("image-data", node,
                 "an image in a data: URI that is not a readable PNG (" + error + "); not drawn");
            return;
        }
    } else {
        std::string path = *link;
        if (lowered.rfind("file://", 0) == 0) {
            path = link->substr(7);
        } else if (lowered.find("://") != std::string::npos) {
            Warn("image-remote", node,
                 "images from the network are not fetched ('" + *link + "'); not drawn");
            return;
        }
        if (baseFolder_.empty()) {
            Fail(node, "the image file '" + *link +
                           "' is not read: linked images need the document's folder");
        }
        if (path.empty() || path[0] != '/') {
            path = baseFolder_ + "/" + path;
        }
        // Only regular files: a device or a pipe named by a drawing is never opened.
        std::error_code ignored;
        if (!std::filesystem::is_regular_file(path, ignored)) {
            Fail(node, "the image file '" + *link + "' cannot be read as PNG: " +
                           (std::filesystem::exists(path, ignored) ? "it is not a regular file"
                                                                   : "there is no such file"));
        }
        image = VRKSmartRef<VRKPixelImage>::Adopt(VRKPngReader::ReadFile(path, error));
        if (!image) {
            Fail(node, "the image file '" + *link + "' cannot be read as PNG: " + error);
        }
    }
    const double pixelsWide = image->GetWidth();
    const double pixelsHigh = image->GetHeight();
    if (!(pixelsWide > 0.0) || !(pixelsHigh > 0.0)) {
        return;
    }
    // Without a width or height the image takes its own size in px.
    const double x = Length(node, "x", Axis::kX, state, 0.0);
    const double y = Length(node, "y", Axis::kY, state, 0.0);
    const double width = Length(node, "width", Axis::kX, state, pixelsWide);
    const double height = Length(node, "height", Axis::kY, state, pixelsHigh);
    if (!(width > 0.0) || !(height > 0.0)) {
        return;
    }
    const double box[4] = {0.0, 0.0, pixelsWide, pixelsHigh};
    const std::string* aspect = node.Attribute("preserveAspectRatio");
    if (aspect != nullptr && aspect->find("slice") != std::string::npos) {
        Warn("image-slice", node, "images are not clipped: a sliced image is drawn whole");
    }
    const VRKSvgMatrix placed =
        state.ctm * VRKSvgMatrix::Translate(x, y) * ViewBoxTransform(box, width, height, aspect);
    if (placed.b != 0.0 || placed.c != 0.0) {
        Warn("image-turned", node,
             "images cannot be turned or skewed; placed by the box around them");
    }
    double left = kLimit * 10.0, right = -kLimit * 10.0;
    double bottom = kLimit * 10.0, top = -kLimit * 10.0;
    for (const auto& [u, v] : {std::pair{0.0, 0.0}, std::pair{pixelsWide, 0.0},
                               std::pair{0.0, pixelsHigh}, std::pair{pixelsWide, pixelsHigh}}) {
        const double px = placed.X(u, v);
        const double py = placed.Y(u, v);
        if (!std::isfinite(px) || !std::isfinite(py) || std::fabs(px) > kLimit ||
            std::fabs(py) > kLimit) {
            Absurd(node);
            return;
        }
        left = std::min(left, px);
        right = std::max(right, px);
        bottom = std::min(bottom, py);
        top = std::max(top, py);
    }
    if (!(right > left) || !(top > bottom)) {
        return;
    }
    image->SetPixelSize(static_cast<float>((right - left) / pixelsWide),
                        static_cast<float>((top - bottom) / pixelsHigh));
    VRKDrawingImage drawn;
    drawn.x = static_cast<float>(left);
    drawn.y = static_cast<float>(top);
    drawn.image = image;
    drawing_.AddImage(std::move(drawn));
}
