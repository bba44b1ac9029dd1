#pragma once

#include <cstddef>
#include <string_view>

// The PDF renderer's own copy of a document's bytes, in memory pages of its own, which can be
// taken back from the renderer at any moment and from any thread: Withdraw() turns every byte
// to zero at once (the memory pages are dropped and read back as zero pages). The renderer
// reads the document from these bytes while it draws, so once they are withdrawn it finds no
// more objects or content and comes to an end quickly: that is how a page that takes too long
// or draws too much is stopped. Internal to the PDF importer.
class VRKPdfBytes {
  public:
    VRKPdfBytes() = default;
    ~VRKPdfBytes();
    VRKPdfBytes(const VRKPdfBytes&) = delete;
    VRKPdfBytes& operator=(const VRKPdfBytes&) = delete;

    // Copies `data` into pages of its own (replacing an earlier copy). False when the memory
    // cannot be had.
    bool Assign(std::string_view data);
    const char* Data() const { return static_cast<const char*>(base_); }
    std::size_t Size() const { return size_; }
    // Turns every byte to zero. Safe to call from another thread while the bytes are read.
    void Withdraw() const;

  private:
    void* base_ = nullptr;
    std::size_t size_ = 0;
    std::size_t mapped_ = 0;

    void Release();
};
