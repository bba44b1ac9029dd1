#include "host/job/VRKJobBitmap.h"

#include <cstdio>
#include <string>

#include "host/core/VRKPixelImage.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/image/VRKPngReader.h"
#include "host/job/VRKJobLexer.h"
#include "host/job/VRKJobVerb.h"

bool VRKJobBitmap::Draw(const VRKJobCall& call) {
    const VRKJobArguments& arguments = call.arguments;
    const std::string& file = *arguments.text;
    if (file.empty()) {
        call.error = call.verb.ArgumentError("an empty file name");
        return false;
    }
    std::string path = file;
    if (path.front() != '/' && !call.baseFolder.empty()) {
        path = (call.baseFolder.back() == '/' ? call.baseFolder : call.baseFolder + "/") + path;
    }
    std::string error;
    VRKPixelImage* image = VRKPngReader::OpenFile(path, error);
    if (image == nullptr) {
        call.error =
            "DrawBitmap: cannot read the bitmap " + VRKJobLexer::Quote(path) + ": " + error;
        return false;
    }
    // The pixel size, when given: the kPixelSize argument.
    if (arguments.points.size() == 2) {
        image->SetPixelSize(arguments.points[0], arguments.points[1]);
    }
    // An image beyond a roll's length is a mistake in its pixel size (a file that says one pixel
    // a metre): the generator would cut it into tiles by the thousand.
    const double width = static_cast<double>(image->GetWidth()) * image->GetPixelWidth();
    const double height = static_cast<double>(image->GetHeight()) * image->GetPixelHeight();
    if (width > kMaxImageExtent || height > kMaxImageExtent) {
        image->Release();
        char size[64];
        std::snprintf(size, sizeof size, "%.0f mm x %.0f mm", width, height);
        call.error = "DrawBitmap: the image " + VRKJobLexer::Quote(path) + " would be " + size +
                     " at its pixel size; an image may be at most " +
                     std::to_string(static_cast<int>(kMaxImageExtent / 1000)) + " m on either side";
        return false;
    }
    call.generator.DrawBitmap(arguments.values[0].number, arguments.values[1].number, 0, image);
    image->Release();
    return true;
}
