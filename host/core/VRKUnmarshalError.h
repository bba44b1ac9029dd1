#pragma once

#include <string>

// One entry of the unmarshal error log: where reading failed ("aggregate", "base_class",
// "object", "end", or a marshaller's own context), the class being read, the buffer, what went
// wrong and the class name met in the stream. A null text was logged as an empty string.
struct VRKUnmarshalError {
    std::string context;
    std::string className;
    int bufferId = 0;
    std::string message;
    std::string name;
};
