#pragma once

#include <new>

// The property record a DesignJet generator owns: none until one is set or a job needs one, then
// held with a reference of the generator's own and released when replaced or when the generator
// goes.
template <typename Record>
class VRKDesignJetRecord {
  public:
    VRKDesignJetRecord() = default;
    VRKDesignJetRecord(const VRKDesignJetRecord&) = delete;
    VRKDesignJetRecord& operator=(const VRKDesignJetRecord&) = delete;
    ~VRKDesignJetRecord() { Set(nullptr); }

    Record* Get() const { return record_; }
    // Takes a reference to the record (null drops the current one).
    void Set(Record* record) {
        if (record != nullptr) {
            record->AddRef();
        }
        if (record_ != nullptr) {
            record_->Release();
        }
        record_ = record;
    }
    // The record, created with its defaults when there is none; null only when memory runs out.
    Record* Ensure() {
        if (record_ == nullptr) {
            record_ = new (std::nothrow) Record;
        }
        return record_;
    }

  private:
    Record* record_ = nullptr;
};
