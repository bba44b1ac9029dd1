#include "host/pdf/VRKPdfBytes.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>

VRKPdfBytes::~VRKPdfBytes() {
    Release();
}

bool VRKPdfBytes::Assign(std::string_view data) {
    Release();
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    // At least one page, so that an empty document still has an address of its own.
    const std::size_t mapped = (data.size() + page) / page * page;
    void* base =
        ::mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (base == MAP_FAILED) {
        return false;
    }
    if (!data.empty()) {
        std::memcpy(base, data.data(), data.size());
    }
    base_ = base;
    size_ = data.size();
    mapped_ = mapped;
    return true;
}

void VRKPdfBytes::Withdraw() const {
    // Private anonymous pages that are dropped read as zeros from then on: a reader on another
    // thread sees each byte either as it was or as zero, never anything else.
    if (base_ != nullptr) {
        ::madvise(base_, mapped_, MADV_DONTNEED);
    }
}

void VRKPdfBytes::Release() {
    if (base_ != nullptr) {
        ::munmap(base_, mapped_);
    }
    base_ = nullptr;
    size_ = 0;
    mapped_ = 0;
}
