#include "properties/VRKPropertiesXmlReader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "host/core/VRKLocalDecimalChar.h"
#include "host/core/VRKPlotterRange.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "properties/VRKPropertiesNumbers.h"
#include "properties/VRKPropertiesSpellings.h"
#include "properties/VRKPropertiesXmlNode.h"

namespace {

using Table = std::span<const VRKPropertiesSpellings::Spelling>;

// Calls the setter with the code of the attribute's value when the value is one of the spellings.
template <typename Setter>
void readSpelled(const VRKPropertiesXmlNode& node, const char* attribute, Table table, Setter set) {
    int code = 0;
    if (VRKPropertiesSpellings::Code(table, node.GetAttribute(attribute), code)) {
        set(code);
    }
}

template <typename Setter>
void readYesNo(const VRKPropertiesXmlNode& node, const char* attribute, Setter set) {
    readSpelled(node, attribute, VRKPropertiesSpellings::YesNo(), set);
}

using Reading = VRKPropertiesNumbers::Reading;

// "%d" into a value that starts at 0: a missing or non-numeric text gives 0. False, with the
// value 0, for a number beyond the int, which the caller does not take.
bool scanInteger(const VRKString& text, int& value) {
    value = 0;
    return VRKPropertiesNumbers::ScanInteger(text.CastToCharPtr(), value) != Reading::kOutOfRange;
}

// A pen component or width: the text in the locale's decimal notation, then read as "%le" reads
// it. A missing or non-numeric text stores 0. A number that is not finite or lies beyond the
// float, and for a width (a length) one whose plotter units do not fit the plotter's range, is
// not taken: the field keeps its value.
void scanReal(const VRKString& text, float& field, bool length) {
    double value = 0.0;
    const VRKString local = GetStringWithLocalDecimalCharV2(text);
    if (VRKPropertiesNumbers::ScanReal(local.CastToCharPtr(), value) == Reading::kOutOfRange ||
        std::fabs(value) > std::numeric_limits<float>::max()) {
        return;
    }
    const auto narrowed = static_cast<float>(value);
    if (length && !VRKPlotterRange::FitsMillimetres(narrowed)) {
        return;
    }
    field = narrowed;
}

bool named(const VRKPropertiesXmlNode& node, const char* expected) {
    VRKString name;
    return node.GetName(name) && name == VRKString(expected);
}

void readPens(VRKPropertiesXmlNode& pens, VRKPrintHPGLProperties& record) {
    // A copy of all 32 slots: pens past the current count that the file brings into the count
    // without naming them keep the record's values.
    const VRKPenTable& before = record.GetPenTable();
    VRKPenTable table = before;
    int count = table.Count();

    for (std::unique_ptr<VRKPropertiesXmlNode> pen = pens.FirstChild(); pen != nullptr;
         pen = pen->NextSibling()) {
        if (!named(*pen, "pen")) {
            continue;
        }
        // A pen without a usable number addresses pen 0. Negative numbers and numbers beyond
        // the int fall out with those of 32 and more, for which there is no slot.
        int number = 0;
        VRKPen* slot =
            scanInteger(pen->GetAttribute("number"), number) ? table.At(number) : nullptr;
        if (slot == nullptr) {
            continue;
        }
        scanReal(pen->GetAttribute("red"), slot->red, false);
        scanReal(pen->GetAttribute("green"), slot->green, false);
        scanReal(pen->GetAttribute("blue"), slot->blue, false);
        scanReal(pen->GetAttribute("width"), slot->width, true);
        readYesNo(*pen, "enable", [&](int code) { slot->enable = code; });
        // The count only grows, and only past its current value: a pen numbered as the count is
        // read but stays outside it. Files written by earlier versions rely on exactly this.
        if (number > count) {
            count = number;
        }
    }
    // Only the slots within the new count take what was read; the others keep the record's.
    table.SetCount(count);
    std::copy(before.Slots().begin() + table.UsedSlots(), before.Slots().end(),
              table.Slots().begin() + table.UsedSlots());
    record.SetPenTable(table);
}

}  // namespace

VRKResult VRKPropertiesXmlReader::ReadHPGL2(VRKPropertiesXmlNode& node,
                                            VRKPrintHPGL2Properties& record) {
    readSpelled(node, "mediaType", VRKPropertiesSpellings::MediaTypes(),
                [&](int code) { record.SetMediaType(code); });
    readYesNo(node, "cutterState", [&](int code) { record.SetCutterState(code); });
    // A plain number: missing or not a number, it reads 0; beyond the int, it is not taken.
    if (int quality = 0; scanInteger(node.GetAttribute("quality"), quality)) {
        record.SetQuality(quality);
    }
    return S_OK;
}

VRKResult VRKPropertiesXmlReader::ReadHPGL(VRKPropertiesXmlNode& node,
                                           VRKPrintHPGLProperties& record) {
    readSpelled(node, "origin", VRKPropertiesSpellings::Origins(),
                [&](int code) { record.SetOrigin(code); });
    readYesNo(node, "relativeMovePen", [&](int code) { record.SetRelativeMovePen(code); });
    readYesNo(node, "printThickness", [&](int code) { record.SetPrintThickness(code); });
    // Only the first child counts, and only when it is the pen list.
    if (std::unique_ptr<VRKPropertiesXmlNode> pens = node.FirstChild();
        pens != nullptr && named(*pens, "pens")) {
        readPens(*pens, record);
    }
    return S_OK;
}

VRKResult VRKPropertiesXmlReader::ReadHPGLElement(VRKPropertiesXmlNode& node,
                                                  VRKPrintHPGLProperties& record) {
    if (!named(node, "HPGLProperties")) {
        return E_FAIL;
    }
    return ReadHPGL(node, record);
}

VRKResult VRKPropertiesXmlReader::ReadHP1055C(VRKPropertiesXmlNode& node,
                                              VRKPrintHP1055CProperties& record) {
    if (!named(node, "HP1000GL2Properties")) {
        return E_FAIL;
    }
    readSpelled(node, "mediaType", VRKPropertiesSpellings::MediaTypes(),
                [&](int code) { record.SetMediaType(code); });
    readSpelled(node, "quality", VRKPropertiesSpellings::DesignJetQualities(),
                [&](int code) { record.SetQuality(code); });
    readYesNo(node, "cutterState", [&](int code) { record.SetCutterState(code); });
    readYesNo(node, "autoRotate", [&](int code) { record.SetAutoRotate(code); });
    readYesNo(node, "inkedArea", [&](int code) { record.SetInkedArea(code); });
    readYesNo(node, "ret", [&](int code) { record.SetRet(code); });

    // Only the first child says which feeder the printer has. The feeder kind is taken even when
    // its source is not one of the kind's spellings; the source then stays as it was.
    std::unique_ptr<VRKPropertiesXmlNode> feeder = node.FirstChild();
    if (feeder != nullptr) {
        if (named(*feeder, "monoRollFeeder")) {
            record.SetMultiRollFeeder(0);
            readSpelled(*feeder, "mediaSource", VRKPropertiesSpellings::SingleRollSources(),
                        [&](int code) { record.SetMediaSource(code); });
        } else if (named(*feeder, "multiRollFeeder")) {
            record.SetMultiRollFeeder(1);
            readSpelled(*feeder, "mediaSource", VRKPropertiesSpellings::MultiRollSources(),
                        [&](int code) { record.SetMediaSource(code); });
        }
    }
    return S_OK;
}

VRKResult VRKPropertiesXmlReader::ReadHP4000(VRKPropertiesXmlNode& node,
                                             VRKPrintHP4000Properties& record) {
    if (!named(node, "HP4000GL2Properties")) {
        return E_FAIL;
    }
    const auto flag = [](int code) { return static_cast<std::uint8_t>(code); };
    readSpelled(node, "mediaType", VRKPropertiesSpellings::MediaTypes(),
                [&](int code) { record.SetMediaType(code); });
    readYesNo(node, "cutterState", [&](int code) { record.SetCutterState(code); });
    readSpelled(node, "printQuality", VRKPropertiesSpellings::PrintQualities(),
                [&](int code) { record.SetPrintQuality(code); });
    readYesNo(node, "autoRotate", [&](int code) { record.SetAutoRotate(flag(code)); });
    readYesNo(node, "inkedArea", [&](int code) { record.SetInkedArea(flag(code)); });
    readYesNo(node, "ret", [&](int code) { record.SetRet(flag(code)); });
    readSpelled(node, "resolution", VRKPropertiesSpellings::Resolutions(),
                [&](int code) { record.SetResolution(code); });
    readYesNo(node, "maxDetail", [&](int code) { record.SetMaxDetail(flag(code)); });
    readSpelled(node, "mediaSource", VRKPropertiesSpellings::HP4000Sources(),
                [&](int code) { record.SetMediaSource(code); });
    return S_OK;
}
