#pragma once

#include <cstddef>
#include <vector>

// A collection of untyped pointers, indexed from 1 as the host's collections are. It owns nothing:
// whoever fills it says who frees the pointed-to records.
class VRKRawCollPV {
  public:
    int Size() const { return static_cast<int>(items_.size()); }
    // Index 1 is the first element; an index outside 1..Size() gives null.
    void* operator[](int index) const {
        return index >= 1 && index <= Size() ? items_[static_cast<std::size_t>(index - 1)]
                                             : nullptr;
    }
    void Append(void* item) { items_.push_back(item); }
    void RemoveAll() { items_.clear(); }

  private:
    std::vector<void*> items_;
};
