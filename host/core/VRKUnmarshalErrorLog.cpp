#include "host/core/VRKUnmarshalErrorLog.h"

namespace {

std::vector<VRKUnmarshalError>& errorLog() {
    static std::vector<VRKUnmarshalError> log;
    return log;
}

}  // namespace

void VRKSysMshLogUnmarshalError(const char* context, const char* className, int bufferId,
                                const char* message, const char* name) {
    try {
        errorLog().push_back({context != nullptr ? context : "",
                              className != nullptr ? className : "", bufferId,
                              message != nullptr ? message : "", name != nullptr ? name : ""});
    } catch (...) {
        // A log that cannot grow loses the entry; reading goes on as it would without a log.
    }
}

std::vector<VRKUnmarshalError> VRKGetUnmarshalErrors() {
    try {
        return errorLog();
    } catch (...) {
        return {};
    }
}

void VRKClearUnmarshalErrors() {
    errorLog().clear();
}
