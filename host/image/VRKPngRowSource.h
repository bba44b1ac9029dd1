#pragma once

#include <string>

#include "host/core/VRKPixelImage.h"
#include "host/image/VRKPngFile.h"

// The rows of a streamed image (VRKPngReader::OpenFile), decoded from its file, which is not
// interlaced, as they are asked for: Rewind opens the file again and checks that it is still the
// one that was checked. Part of VRKHostImage.
class VRKPngRowSource final : public VRKPixelRowSource {
  public:
    explicit VRKPngRowSource(std::string path);

    bool Rewind() override;
    bool NextRow(unsigned char* row) override;
    VRKPngFile& File() { return file_; }

  private:
    std::string path_;
    VRKPngFile file_;
};
