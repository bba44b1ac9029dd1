#include "properties/VRKPropertiesXmlWriter.h"

#include <cstdio>
#include <string>

#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "properties/VRKPropertiesSpellings.h"
#include "properties/VRKPropertiesXmlNode.h"

namespace {

using Table = std::span<const VRKPropertiesSpellings::Spelling>;

void writeSpelled(VRKPropertiesXmlNode& node, const char* attribute, Table table, int code) {
    if (const char* text = VRKPropertiesSpellings::Spell(table, code)) {
        node.SetAttribute(attribute, text);
    }
}

void writeYesNo(VRKPropertiesXmlNode& node, const char* attribute, int value) {
    writeSpelled(node, attribute, VRKPropertiesSpellings::YesNo(), value);
}

VRKString integerText(int value) {
    char text[16];
    std::snprintf(text, sizeof text, "%d", value);
    return VRKString(text);
}

// Pen components and widths are floats written as doubles with "%g".
VRKString floatText(float value) {
    char text[64];
    std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
    return VRKString(text);
}

}  // namespace

VRKResult VRKPropertiesXmlWriter::WriteHPGL2(VRKPropertiesXmlNode& node,
                                             const VRKPrintHPGL2Properties& record, bool setName) {
    if (setName) {
        node.SetName("HPGL2Properties");
    }
    writeSpelled(node, "mediaType", VRKPropertiesSpellings::MediaTypes(), record.GetMediaType());
    writeYesNo(node, "cutterState", record.GetCutterState());
    node.SetAttribute("quality", integerText(record.GetQuality()));
    return S_OK;
}

VRKResult VRKPropertiesXmlWriter::WriteHPGL(VRKPropertiesXmlNode& node,
                                            const VRKPrintHPGLProperties& record, bool setName) {
    if (setName) {
        node.SetName("HPGLProperties");
    }
    writeSpelled(node, "origin", VRKPropertiesSpellings::Origins(), record.GetOrigin());
    writeYesNo(node, "relativeMovePen", record.GetRelativeMovePen());
    writeYesNo(node, "printThickness", record.GetPrintThickness());
    if (!node.CanCreateChildren()) {
        return E_FAIL;
    }

    std::unique_ptr<VRKPropertiesXmlNode> pens = node.CreateChild("pens");
    if (pens == nullptr) {
        return S_OK;
    }
    // Pen 0 stands for "no pen" and is never written. A count beyond the 32 slots writes the pens
    // that have no slot as zeros.
    const VRKPenTable& table = record.GetPenTable();
    for (int i = 1; i < table.Count(); ++i) {
        std::unique_ptr<VRKPropertiesXmlNode> pen = pens->CreateChild("pen");
        if (pen == nullptr) {
            break;
        }
        const VRKPen values = table.At(i) != nullptr ? *table.At(i) : VRKPen{};
        pen->SetAttribute("number", integerText(i));
        pen->SetAttribute("red", floatText(values.red));
        pen->SetAttribute("green", floatText(values.green));
        pen->SetAttribute("blue", floatText(values.blue));
        pen->SetAttribute("width", floatText(values.width));
        writeYesNo(*pen, "enable", values.enable);
        pens->AppendChild(*pen);
    }
    node.AppendChild(*pens);
    return S_OK;
}

VRKResult VRKPropertiesXmlWriter::WriteHP1055C(VRKPropertiesXmlNode& node,
                                               const VRKPrintHP1055CProperties& record) {
    node.SetName("HP1000GL2Properties");
    writeSpelled(node, "mediaType", VRKPropertiesSpellings::MediaTypes(), record.GetMediaType());
    node.SetAttribute("quality", VRKPropertiesSpellings::QualityBand(record.GetQuality()));
    writeYesNo(node, "cutterState", record.GetCutterState());
    writeYesNo(node, "autoRotate", record.GetAutoRotate());
    writeYesNo(node, "inkedArea", record.GetInkedArea());
    writeYesNo(node, "ret", record.GetRet());

    const char* feeder = nullptr;
    Table sources;
    if (record.GetMultiRollFeeder() == 0) {
        feeder = "monoRollFeeder";
        sources = VRKPropertiesSpellings::SingleRollSources();
    } else if (record.GetMultiRollFeeder() == 1) {
        feeder = "multiRollFeeder";
        sources = VRKPropertiesSpellings::MultiRollSources();
    }
    if (feeder != nullptr && node.CanCreateChildren()) {
        if (std::unique_ptr<VRKPropertiesXmlNode> child = node.CreateChild(feeder)) {
            writeSpelled(*child, "mediaSource", sources, record.GetMediaSource());
            node.AppendChild(*child);
        }
    }
    return S_OK;
}

VRKResult VRKPropertiesXmlWriter::WriteHP4000(VRKPropertiesXmlNode& node,
                                              const VRKPrintHP4000Properties& record) {
    node.SetName("HP4000GL2Properties");
    writeSpelled(node, "mediaType", VRKPropertiesSpellings::MediaTypes(), record.GetMediaType());
    writeYesNo(node, "cutterState", record.GetCutterState());
    writeSpelled(node, "printQuality", VRKPropertiesSpellings::PrintQualities(),
                 record.GetPrintQuality());
    writeYesNo(node, "autoRotate", record.GetAutoRotate());
    writeYesNo(node, "inkedArea", record.GetInkedArea());
    writeYesNo(node, "ret", record.GetRet());
    writeSpelled(node, "resolution", VRKPropertiesSpellings::Resolutions(), record.GetResolution());
    writeYesNo(node, "maxDetail", record.GetMaxDetail());
    writeSpelled(node, "mediaSource", VRKPropertiesSpellings::HP4000Sources(),
                 record.GetMediaSource());
    return S_OK;
}
