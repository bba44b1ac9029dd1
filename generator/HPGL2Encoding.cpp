#include "generator/HPGL2Encoding.h"

const char* encodeNumber(int value) {
    static char digits[16];
    *encodeNumberTo(digits, value) = '\0';
    return digits;
}
