#include "host/pdf/VRKPdfPageWatch.h"

#include <unistd.h>

#include <cstdio>

#include "host/pdf/VRKPdfBytes.h"

namespace {

constexpr std::chrono::milliseconds kInterval{10};

}  // namespace

VRKPdfPageWatch::VRKPdfPageWatch(const VRKPdfBytes& bytes, std::size_t maxMemoryGrowth,
                                 std::chrono::milliseconds maxTime)
    : bytes_(bytes), maxMemoryGrowth_(maxMemoryGrowth) {
    const auto deadline = std::chrono::steady_clock::now() + maxTime;
    const std::size_t startMemory = ResidentBytes();
    thread_ = std::thread([this, deadline, startMemory] { Watch(deadline, startMemory); });
}

VRKPdfPageWatch::~VRKPdfPageWatch() {
    Finish();
}

VRKPdfPageWatch::Stop VRKPdfPageWatch::Finish() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        finished_ = true;
    }
    wake_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
    return stop_.load();
}

std::size_t VRKPdfPageWatch::ResidentBytes() {
    // /proc/self/statm: the program's size and its resident part, in pages.
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    if (file == nullptr) {
        return 0;
    }
    unsigned long size = 0;
    unsigned long resident = 0;
    const int read = std::fscanf(file, "%lu %lu", &size, &resident);
    std::fclose(file);
    if (read != 2) {
        return 0;
    }
    return static_cast<std::size_t>(resident) * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

void VRKPdfPageWatch::Watch(std::chrono::steady_clock::time_point deadline,
                            std::size_t startMemory) {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!finished_) {
        const auto now = std::chrono::steady_clock::now();
        Stop reason = Stop::kNone;
        if (now >= deadline) {
            reason = Stop::kTime;
        } else {
            const std::size_t memory = ResidentBytes();
            if (memory > startMemory && memory - startMemory > maxMemoryGrowth_) {
                reason = Stop::kMemory;
            }
        }
        if (reason != Stop::kNone) {
            stop_.store(reason);
            bytes_.Withdraw();
            return;
        }
        wake_.wait_until(lock, std::min(deadline, now + kInterval), [this] { return finished_; });
    }
}
