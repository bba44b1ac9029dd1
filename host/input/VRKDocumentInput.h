#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

class VRKJobSource;

// A document on its way in: a file, or standard input ("-"). Its first bytes are read on Open
// so that the format can be told from the content; the readers then take the whole of it
// through ReadAll or a job source, the first bytes included, without reading anything twice
// (standard input cannot be read twice).
class VRKDocumentInput {
  public:
    // How much of the start is kept to tell the format.
    static constexpr std::size_t kHeadSize = 4096;

    VRKDocumentInput();
    ~VRKDocumentInput();
    VRKDocumentInput(const VRKDocumentInput&) = delete;
    VRKDocumentInput& operator=(const VRKDocumentInput&) = delete;

    // Opens `path` ("-": standard input) and reads its first bytes. False with `error` set
    // ("plan.svg: cannot open the file: No such file or directory").
    bool Open(const std::string& path, std::string& error);

    const std::string& GetPath() const { return path_; }
    // The document's name in messages: its path, or "standard input".
    const std::string& GetName() const { return name_; }
    // The folder its relative references are taken from: the file's folder, or empty (the
    // current folder) for standard input.
    const std::string& GetFolder() const { return folder_; }
    // The first bytes (up to kHeadSize; fewer for a shorter document).
    std::string_view GetHead() const { return head_; }
    // The name's extension with its dot, in lower case (".svg"), or empty.
    std::string GetExtension() const;

    // The whole document into `text`, refusing documents over `limit` bytes. False with
    // `error` set.
    bool ReadAll(std::string& text, std::size_t limit, std::string& error);
    // The document piece by piece, the first bytes first: up to `size` bytes into `data`, and the
    // count; 0 at the end. 0 with `error` set when the document cannot be read or goes beyond
    // `limit` bytes in all.
    std::size_t Read(char* data, std::size_t size, std::size_t limit, std::string& error);
    // The document as a job source that reads through Read, the first bytes first; the input
    // must outlive it.
    std::unique_ptr<VRKJobSource> MakeJobSource();

  private:
    std::string path_;
    std::string name_;
    std::string folder_;
    std::string head_;
    int fd_ = -1;
    std::size_t given_ = 0;  // bytes Read has given
};
