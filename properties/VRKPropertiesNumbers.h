#pragma once

// How the numbers of settings files are read. Reading never goes wrong: a text that holds no
// number is told apart from a number that does not fit, so that a reader can keep its field as
// it was for the second.
class VRKPropertiesNumbers {
  public:
    enum class Reading {
        kNone,        // no number at the start of the text
        kValue,       // a number, stored
        kOutOfRange,  // a number that does not fit; nothing stored
    };

    // The number at the start of `text` as an int, as "%d" reads one: leading white space, an
    // optional sign, decimal digits, and whatever follows ignored. A fraction is dropped ("12.9"
    // reads 12, toward zero); an exponent is part of the number ("5e1" reads 50, "2.5e1" 25,
    // "1e9" a thousand million). Reading never depends on the locale. A number beyond the int
    // is out of range.
    static Reading ScanInteger(const char* text, int& value);

    // The number at the start of `text` as a double, as "%le" reads one (the C library's strtod,
    // in the locale's notation). NaN, the infinities and numbers beyond a double are out of
    // range; a number too small for a double reads as the library rounds it (0 or subnormal).
    static Reading ScanReal(const char* text, double& value);
};
