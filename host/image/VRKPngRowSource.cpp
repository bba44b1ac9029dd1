#include "host/image/VRKPngRowSource.h"

#include <utility>

VRKPngRowSource::VRKPngRowSource(std::string path) : path_(std::move(path)) {}

bool VRKPngRowSource::Rewind() {
    std::string error;
    const VRKPngFile::Header before = file_.GetHeader();
    if (!file_.OpenFile(path_, error)) {
        return false;
    }
    // The file must still be the one that was checked.
    const VRKPngFile::Header& now = file_.GetHeader();
    return now.width == before.width && now.height == before.height &&
           now.format == before.format && now.passes == 1;
}

bool VRKPngRowSource::NextRow(unsigned char* row) {
    std::string error;
    if (!file_.Decode(row, 1, false, error)) {
        return false;
    }
    file_.ClearPadding(row);
    return true;
}
