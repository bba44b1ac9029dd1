#pragma once

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
    // The record, made by `make` (a new record with one reference, or null) when there is none;
    // null only when that fails.
    template <typename Make>
    Record* Ensure(Make make) {
        if (record_ == nullptr) {
            record_ = make();
        }
        return record_;
    }

  private:
    Record* record_ = nullptr;
};
