#pragma once

#include <utility>

// A counted reference to an object of the host's object model: it holds one reference of its own
// and gives it back when it goes. Adopt() takes over a reference the caller already owns (a
// factory's result); the constructor from a raw pointer adds one.
template <typename T>
class VRKSmartRef {
  public:
    VRKSmartRef() = default;
    VRKSmartRef(T* object) : object_(object) {  // NOLINT: implicit, as raw pointers convert
        if (object_ != nullptr) {
            object_->AddRef();
        }
    }
    VRKSmartRef(const VRKSmartRef& other) : VRKSmartRef(other.object_) {}
    VRKSmartRef(VRKSmartRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~VRKSmartRef() { reset(); }

    VRKSmartRef& operator=(VRKSmartRef other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    static VRKSmartRef Adopt(T* object) {
        VRKSmartRef ref;
        ref.object_ = object;
        return ref;
    }

    void reset() {
        if (object_ != nullptr) {
            std::exchange(object_, nullptr)->Release();
        }
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

  private:
    T* object_ = nullptr;
};
