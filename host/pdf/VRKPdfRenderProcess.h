#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

// Runs the rendering of one page in a child process of its own and takes back the text it makes
// (the page's SVG), within bounds of time, memory and size. Poppler can be neither interrupted
// nor told how much it may do: a few hundred bytes of forms that draw forms ask it for billions
// of paths, and an image that claims a million pixels a side keeps it padding rows for hours. In
// a child it can be stopped at any moment (the child is killed), and whatever happens to it, a
// crash included, this process goes on with a message. Internal to the PDF importer.
class VRKPdfRenderProcess {
  public:
    // The child's work: fills `output` and returns true, or sets `error` and returns false.
    using Work = std::function<bool(std::string& output, std::string& error)>;

    struct Limits {
        // How far the child's resident memory may grow beyond what it had when started.
        std::size_t maxMemoryGrowth = 0;
        std::chrono::milliseconds maxTime{0};
        std::size_t maxOutput = 0;
    };

    enum class Outcome {
        kDone,       // `output` holds the work's text
        kFailed,     // the work said no; `error` holds its message
        kTime,       // killed past the time bound
        kMemory,     // killed past the memory bound
        kTooLarge,   // killed when its text passed the size bound
        kNoMemory,   // the work ran out of memory
        kCrashed,    // the child ended without an answer; `error` says how
        kNoProcess,  // no child could be started; `error` says why
    };

    static Outcome Run(const Work& work, const Limits& limits, std::string& output,
                       std::string& error);
};
