#pragma once

// A static object of this type in a library enters an entry in the class dictionary when the
// library is loaded and takes it out again when the library is unloaded: a class
// (VRKClassEntry) or an interface implementation (VRKInterfaceEntry). The dictionary offers
// VRKEnterInDictionary and VRKRemoveFromDictionary for each kind of entry.
template <typename Entry>
class VRKDictionaryRegistration {
  public:
    explicit VRKDictionaryRegistration(const Entry& entry) : entry_(entry) {
        VRKEnterInDictionary(entry_);
    }
    ~VRKDictionaryRegistration() { VRKRemoveFromDictionary(entry_); }
    VRKDictionaryRegistration(const VRKDictionaryRegistration&) = delete;
    VRKDictionaryRegistration& operator=(const VRKDictionaryRegistration&) = delete;

  private:
    Entry entry_;
};
