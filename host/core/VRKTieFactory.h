#pragma once

#include <new>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKDataExtension.h"

// The body of every TIE factory: wraps an implementation in the TIE object `Tie<Impl>`, or
// returns null when the implementation is not an `Impl` (or memory runs out). The TIE takes its
// own reference to the implementation.
template <template <typename> class Tie, typename Impl>
VRKBaseUnknown* VRKMakeTie(VRKDataExtension* implementation) {
    auto* impl = dynamic_cast<Impl*>(implementation);
    return impl != nullptr ? new (std::nothrow) Tie<Impl>(impl) : nullptr;
}
