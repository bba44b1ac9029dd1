#pragma once

#include <new>

// The record a dialog made for itself when its caller gave none: made here, released when the
// dialog goes. Empty when the caller gave a record.
template <typename Record>
class VRKOwnedRecord {
  public:
    explicit VRKOwnedRecord(Record* given)
        : own(given == nullptr ? new (std::nothrow) Record : nullptr) {}
    ~VRKOwnedRecord() {
        if (own != nullptr) {
            own->Release();
        }
    }
    VRKOwnedRecord(const VRKOwnedRecord&) = delete;
    VRKOwnedRecord& operator=(const VRKOwnedRecord&) = delete;

    // The record the dialog edits: the caller's, else its own.
    Record* Or(Record* given) const { return given != nullptr ? given : own; }
    Record* Get() const { return own; }
    // Gives the record over to another dialog that edits the same one.
    void HandOver(VRKOwnedRecord& to) {
        if (own != nullptr) {
            to.own = own;
            own = nullptr;
        }
    }

  private:
    Record* own;
};
