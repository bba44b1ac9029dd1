#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

// Runs the rendering of a document's pages in a child process of its own and takes back the text
// each page makes (its SVG), one page at a time, within bounds of time, memory and size. Poppler
// can be neither interrupted nor told how much it may do: a few hundred bytes of forms that draw
// forms ask it for billions of paths, and an image that claims a million pixels a side keeps it
// padding rows for hours. In a child it can be stopped at any moment (the child is killed), and
// whatever happens to it, a crash included, this process goes on with a message.
//
// The child draws the pages in order and writes each one's text as soon as it is drawn, so that
// it draws the next page while this process reads the last; the pipe between them holds 64 KiB,
// so it is never more than a page ahead. Internal to the PDF importer.
class VRKPdfRenderProcess {
  public:
    // The child's work for page `index`: fills `output` and returns true, or sets `error` and
    // returns false (the child then stops). Index -1 comes first: opening the document, whose
    // output is the number of pages in decimal.
    using Work = std::function<bool(int index, std::string& output, std::string& error)>;

    struct Limits {
        // How far the child's resident memory may grow beyond what it had when started.
        std::size_t maxMemoryGrowth = 0;
        // How long Next() may wait for a page.
        std::chrono::milliseconds maxTime{0};
        // The largest text of one page.
        std::size_t maxOutput = 0;
    };

    enum class Outcome {
        kDone,       // `output` holds the page's text
        kFailed,     // the work said no; `error` holds its message
        kTime,       // killed past the time bound
        kMemory,     // killed past the memory bound
        kTooLarge,   // killed when the page's text passed the size bound
        kNoMemory,   // the work ran out of memory
        kCrashed,    // the child ended without an answer; `error` says how
        kNoProcess,  // no child could be started; `error` says why
    };

    VRKPdfRenderProcess() = default;
    // Ends a child that is still running.
    ~VRKPdfRenderProcess();
    VRKPdfRenderProcess(const VRKPdfRenderProcess&) = delete;
    VRKPdfRenderProcess& operator=(const VRKPdfRenderProcess&) = delete;

    // Starts a child (ending one that runs) that runs `work` for -1, the opening, then for the
    // pages from `first` to the last in order. False with `error` set when no child can be
    // started.
    bool Start(const Work& work, int first, const Limits& limits, std::string& error);
    // The answer after the last one given (first the opening's), waited for within the bounds.
    // Past a bound, or when the work fails, the child is ended.
    Outcome Next(std::string& output, std::string& error);
    // What Next() answers next: -1 for the opening, else a page; -2 when no child runs.
    int NextPage() const { return pid_ > 0 ? next_ : -2; }

  private:
    pid_t pid_ = -1;
    int fd_ = -1;
    int next_ = -2;
    int first_ = 0;
    Limits limits_;
    std::size_t startMemory_ = 0;
    // Bytes read past the answer handed out last.
    std::string pending_;

    // Ends the child (killed first when `kill`) and gives its wait status.
    int Stop(bool kill);
};
