#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>

class VRKPdfBytes;

// Watches the rendering of one page and stops it when it takes too long or takes too much
// memory: a page of forms that draw forms that draw forms can make a few kilobytes of PDF draw
// billions of paths, and the renderer can be neither interrupted nor told how much it may draw
// (cairo's SVG surface keeps a page's text in memory until the page is finished). Past either
// bound the watch withdraws the document's bytes (VRKPdfBytes::Withdraw), after which the renderer
// finds nothing more to draw and returns.
//
// A thread of the watch's own looks at the clock and at the process's resident memory every
// 10 ms, from the watch's start to Finish() (or the destructor); the memory bound is the growth
// of the resident memory since the start. Internal to the PDF importer.
class VRKPdfPageWatch {
  public:
    enum class Stop { kNone, kTime, kMemory };

    // Throws std::system_error when the thread cannot be started.
    VRKPdfPageWatch(const VRKPdfBytes& bytes, std::size_t maxMemoryGrowth,
                    std::chrono::milliseconds maxTime);
    ~VRKPdfPageWatch();
    VRKPdfPageWatch(const VRKPdfPageWatch&) = delete;
    VRKPdfPageWatch& operator=(const VRKPdfPageWatch&) = delete;

    // Ends the watch (the page is drawn) and says whether, and why, it was stopped.
    Stop Finish();

    // The process's resident memory in bytes (0 when it cannot be read).
    static std::size_t ResidentBytes();

  private:
    const VRKPdfBytes& bytes_;
    const std::size_t maxMemoryGrowth_;
    std::atomic<Stop> stop_{Stop::kNone};
    std::mutex mutex_;
    std::condition_variable wake_;
    bool finished_ = false;
    std::thread thread_;

    void Watch(std::chrono::steady_clock::time_point deadline, std::size_t startMemory);
};
