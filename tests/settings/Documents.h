#pragma once

#include <string>

// The documents of records with their defaults, one line each as Dump() shows them.

// The default pen table written out: pens 1 to 31, pen 0 never.
inline std::string DefaultPens() {
    const char* colours[8] = {"",
                              "red=\"0\" green=\"0\" blue=\"0\"",
                              "red=\"255\" green=\"0\" blue=\"0\"",
                              "red=\"0\" green=\"255\" blue=\"0\"",
                              "red=\"255\" green=\"255\" blue=\"0\"",
                              "red=\"0\" green=\"0\" blue=\"255\"",
                              "red=\"255\" green=\"0\" blue=\"255\"",
                              "red=\"0\" green=\"255\" blue=\"255\""};
    std::string pens = "<pens>";
    for (int i = 1; i < 32; ++i) {
        const std::string colour = i < 8 ? colours[i] : colours[1];
        pens += "<pen number=\"" + std::to_string(i) + "\" " + colour +
                " width=\"0.35\" enable=\"" + (i < 8 ? "YES" : "NO") + "\"/>";
    }
    return pens + "</pens>";
}

inline const std::string kHPGLAttributes =
    "origin=\"Lower Left Corner\" relativeMovePen=\"YES\" printThickness=\"NO\"";

inline const std::string kDefaultHPGL =
    "<HPGLProperties " + kHPGLAttributes + ">" + DefaultPens() + "</HPGLProperties>";

inline const std::string kHPGL2Attributes =
    "mediaType=\"Default\" cutterState=\"YES\" quality=\"100\"";

inline const std::string kDefaultHPGL2 = "<HPGL2Properties " + kHPGL2Attributes + "/>";

inline const std::string kDefaultHP1055C =
    "<HP1000GL2Properties mediaType=\"Default\" quality=\"Best\" cutterState=\"YES\" "
    "autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\">"
    "<monoRollFeeder mediaSource=\"Roll\"/></HP1000GL2Properties>";

inline const std::string kDefaultHP4000 =
    "<HP4000GL2Properties mediaType=\"Default\" cutterState=\"YES\" printQuality=\"NORMAL\" "
    "autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\" resolution=\"600\" maxDetail=\"YES\" "
    "mediaSource=\"Roll\"/>";
