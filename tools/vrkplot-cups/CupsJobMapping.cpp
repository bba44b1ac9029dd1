#include "tools/vrkplot-cups/CupsJobMapping.h"

#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace {

// A PPD choice and the value it writes into the settings element.
using Choices = std::vector<std::pair<std::string_view, std::string_view>>;

const Choices kMediaTypes = {
    {"Default", "Default"},
    {"Paper", "Paper"},
    {"Transparency", "Transparency film"},
    {"Vellum", "Vellum"},
    {"PolyesterFilm", "Polyester film"},
    {"TranslucentPaper", "Translucent paper"},
    {"SpecialPaper", "Special paper"},
    {"GlossyPaper", "Glossy paper"},
};
const Choices kBooleans = {{"True", "YES"}, {"False", "NO"}};
const Choices kHPGL2Qualities = {{"Draft", "0"}, {"Normal", "50"}, {"High", "100"}};
const Choices kHP1000Qualities = {{"Draft", "Fast"}, {"Normal", "Normal"}, {"High", "Best"}};
const Choices kHP4000Qualities = {{"Draft", "DRAFT"}, {"Normal", "NORMAL"}, {"High", "HIGH"}};
const Choices kHP4000Resolutions = {{"300dpi", "300"}, {"600dpi", "600"}, {"1200dpi", "1200"}};
const Choices kSingleRollSources = {{"Roll", "Roll"}, {"ManualFeed", "ManualFeed"}};
const Choices kPenWidths = {
    {"0.25mm", "0.25"}, {"0.35mm", "0.35"}, {"0.5mm", "0.5"}, {"0.7mm", "0.7"}, {"1.0mm", "1"},
};
// The pens VRKPenTable=Black sets: 1 to 8.
constexpr int kBlackPens = 8;

// Reads the marked choices of a request into settings attributes; remembers the first error.
class ChoiceReader {
  public:
    ChoiceReader(const CupsJobRequest& request, std::string& error)
        : request_(request), error_(error) {}

    // The marked choice of `keyword`, or null when the request has none.
    const std::string* Find(const std::string& keyword) const {
        const auto found = request_.choices.find(keyword);
        return found == request_.choices.end() ? nullptr : &found->second;
    }

    // The value `keyword`'s marked choice stands for in `choices`; null when nothing is marked,
    // and after an error when the choice is not one of them.
    const std::string_view* Value(const std::string& keyword, const Choices& choices) {
        const std::string* choice = Find(keyword);
        if (choice == nullptr) {
            return nullptr;
        }
        for (const auto& entry : choices) {
            if (entry.first == *choice) {
                return &entry.second;
            }
        }
        Fail("the option " + keyword + " has no choice '" + *choice + "' for the language " +
             request_.language);
        return nullptr;
    }

    // Sets `attribute` of `element` from `keyword`'s marked choice, when there is one.
    void Set(VRKLightXmlElement& element, const char* attribute, const std::string& keyword,
             const Choices& choices) {
        if (const std::string_view* value = Value(keyword, choices)) {
            element.SetAttribute(VRKString(attribute), VRKString(std::string(*value)));
        }
    }

    void Fail(const std::string& message) {
        if (error_.empty()) {
            error_ = message;
        }
    }
    bool Failed() const { return !error_.empty(); }

  private:
    const CupsJobRequest& request_;
    std::string& error_;
};

VRKLightXmlElement hpgl2Settings(ChoiceReader& reader) {
    VRKLightXmlElement element(VRKString("HPGL2Properties"));
    reader.Set(element, "mediaType", "MediaType", kMediaTypes);
    reader.Set(element, "cutterState", "VRKCutter", kBooleans);
    reader.Set(element, "quality", "cupsPrintQuality", kHPGL2Qualities);
    return element;
}

VRKLightXmlElement hp1000Settings(ChoiceReader& reader) {
    VRKLightXmlElement element(VRKString("HP1000GL2Properties"));
    reader.Set(element, "mediaType", "MediaType", kMediaTypes);
    reader.Set(element, "quality", "cupsPrintQuality", kHP1000Qualities);
    reader.Set(element, "cutterState", "VRKCutter", kBooleans);
    reader.Set(element, "autoRotate", "VRKAutoRotate", kBooleans);
    reader.Set(element, "inkedArea", "VRKInkedArea", kBooleans);
    reader.Set(element, "ret", "VRKResolutionEnhancement", kBooleans);

    // The feeder the printer has, and the roll or sheet the job is printed from. The first roll
    // of the multi-roll feeder and the single roll are the same choice to the user: a queue's
    // default InputSlot (Roll) stays valid when the feeder is changed.
    static const Choices kFeeders = {{"Single", "monoRollFeeder"}, {"Multi", "multiRollFeeder"}};
    const std::string_view* feeder = reader.Value("VRKRollFeeder", kFeeders);
    const std::string* slot = reader.Find("InputSlot");
    if (feeder == nullptr && slot == nullptr) {
        return element;
    }
    if (feeder == nullptr) {
        reader.Fail("the option InputSlot needs the option VRKRollFeeder (Single or Multi)");
        return element;
    }
    const bool multi = *feeder == "multiRollFeeder";
    VRKLightXmlElement& child =
        element.AddChild(VRKLightXmlElement(VRKString(std::string(*feeder))));
    if (slot == nullptr) {
        return element;
    }
    static const Choices kMultiRollSources = {
        {"Roll", "Roll1"}, {"Roll1", "Roll1"}, {"Roll2", "Roll2"}, {"Roll3", "Roll3"}};
    static const Choices kSingleSources = {
        {"Roll", "Roll"}, {"Roll1", "Roll"}, {"ManualFeed", "ManualFeed"}};
    const Choices& sources = multi ? kMultiRollSources : kSingleSources;
    for (const auto& [choice, value] : sources) {
        if (choice == *slot) {
            child.SetAttribute(VRKString("mediaSource"), VRKString(std::string(value)));
            return element;
        }
    }
    reader.Fail("the input slot '" + *slot + "' needs " +
                (multi ? std::string("the single-roll feeder (VRKRollFeeder=Single)")
                       : std::string("the multi-roll feeder (VRKRollFeeder=Multi)")));
    return element;
}

VRKLightXmlElement hp4000Settings(ChoiceReader& reader) {
    VRKLightXmlElement element(VRKString("HP4000GL2Properties"));
    reader.Set(element, "mediaType", "MediaType", kMediaTypes);
    reader.Set(element, "cutterState", "VRKCutter", kBooleans);
    reader.Set(element, "printQuality", "cupsPrintQuality", kHP4000Qualities);
    reader.Set(element, "autoRotate", "VRKAutoRotate", kBooleans);
    reader.Set(element, "inkedArea", "VRKInkedArea", kBooleans);
    reader.Set(element, "ret", "VRKResolutionEnhancement", kBooleans);
    reader.Set(element, "resolution", "Resolution", kHP4000Resolutions);
    reader.Set(element, "maxDetail", "VRKMaxDetail", kBooleans);
    reader.Set(element, "mediaSource", "InputSlot", kSingleRollSources);
    return element;
}

// A pen element, as a settings file writes it.
VRKLightXmlElement pen(int number, const std::string& red, const std::string& green,
                       const std::string& blue, std::string_view width, const std::string& enable) {
    VRKLightXmlElement element(VRKString("pen"));
    element.SetAttributes({
        {VRKString("number"), VRKString(std::to_string(number))},
        {VRKString("red"), VRKString(red)},
        {VRKString("green"), VRKString(green)},
        {VRKString("blue"), VRKString(blue)},
        {VRKString("width"), VRKString(std::string(width))},
        {VRKString("enable"), VRKString(enable)},
    });
    return element;
}

VRKLightXmlElement hpglSettings(const CupsJobRequest& request, ChoiceReader& reader) {
    VRKLightXmlElement element(VRKString("HPGLProperties"));
    reader.Set(element, "printThickness", "VRKLineThickness", kBooleans);

    static const Choices kTables = {{"Standard", ""}, {"Black", ""}, {"Settings", ""}};
    const std::string* table = reader.Find("VRKPenTable");
    if (table == nullptr || reader.Value("VRKPenTable", kTables) == nullptr) {
        return element;
    }
    const std::string_view* width = reader.Value("VRKPenWidth", kPenWidths);
    if (*table == "Settings" || reader.Failed()) {
        // The queue's settings file has the pens, widths and all.
        return element;
    }
    VRKLightXmlElement& pens = element.AddChild(VRKLightXmlElement(VRKString("pens")));
    if (*table == "Black") {
        for (int number = 1; number <= kBlackPens; ++number) {
            pens.AddChild(pen(number, "0", "0", "0", width != nullptr ? *width : "0.35", "YES"));
        }
        return element;
    }
    if (!request.standardPens.has_value()) {
        reader.Fail("the standard pen table of the language " + request.language + " is not known");
        return element;
    }
    for (int i = 0; i < request.standardPens->GetChildCount(); ++i) {
        VRKLightXmlElement standard = *request.standardPens->GetChild(i);
        if (width != nullptr) {
            standard.SetAttribute(VRKString("width"), VRKString(std::string(*width)));
        }
        pens.AddChild(standard);
    }
    return element;
}

// "true", "yes", "on" (and no value at all) against "false", "no", "off", as the spooler spells
// a job's boolean options; -1 for anything else.
int booleanOption(const std::string& value) {
    if (value.empty() || value == "true" || value == "yes" || value == "on") {
        return 1;
    }
    if (value == "false" || value == "no" || value == "off") {
        return 0;
    }
    return -1;
}

// Points to millimetres, to the tenth.
float millimetres(double points) {
    return static_cast<float>(std::round(points * 254.0 / 72.0) / 10.0);
}

constexpr int kMaxCopies = 9999;

bool mapDocument(const CupsJobRequest& request, VRKDocumentOptions& document, std::string& error) {
    VRKDrawingLayout& layout = document.layout;
    if (request.pageSize.has_value()) {
        const CupsPageSize& size = *request.pageSize;
        if (!(size.width > 0.0) || !(size.length > 0.0) || !(size.margin >= 0.0)) {
            error = "the page size " + size.name + " has no usable dimensions";
            return false;
        }
        // A roll is as long as the drawing; the PPD's length of it is only a placeholder.
        const bool roll = size.name.rfind("Roll", 0) == 0;
        layout.form =
            VRKDrawingLayout::Form{millimetres(size.width), roll ? 0.0f : millimetres(size.length)};
        layout.margins = millimetres(size.margin);
    }

    const auto option = [&request](const char* name) -> const std::string* {
        const auto found = request.options.find(name);
        return found == request.options.end() ? nullptr : &found->second;
    };
    if (const std::string* landscape = option("landscape")) {
        const int value = booleanOption(*landscape);
        if (value < 0) {
            error = "landscape=" + *landscape + ": not true or false";
            return false;
        }
        layout.landscape = value == 1;
    }
    if (const std::string* orientation = option("orientation-requested")) {
        // 3 portrait, 4 landscape, 5 reverse landscape, 6 reverse portrait: a plot is not
        // turned by half a turn, so the reverse ones are their plain ones.
        if (*orientation == "3" || *orientation == "6") {
            layout.landscape = false;
        } else if (*orientation == "4" || *orientation == "5") {
            layout.landscape = true;
        } else {
            error = "orientation-requested=" + *orientation + ": not 3, 4, 5 or 6";
            return false;
        }
    }

    std::string scaling = "auto";
    if (const std::string* fitToPage = option("fit-to-page")) {
        const int value = booleanOption(*fitToPage);
        if (value < 0) {
            error = "fit-to-page=" + *fitToPage + ": not true or false";
            return false;
        }
        scaling = value == 1 ? "fit" : "auto";
    }
    if (const std::string* printScaling = option("print-scaling")) {
        scaling = *printScaling;
    }
    // "fill" would cut off what lies beyond the form: a plot is never cropped, so it fits.
    if (scaling == "fit" || scaling == "fill") {
        layout.fit = true;
    } else if (scaling == "auto") {
        layout.fitWhenLarger = true;
    } else if (scaling != "none") {
        error = "print-scaling=" + scaling + ": not auto, fit, fill or none";
        return false;
    }
    // Every job has a page size from the PPD; job files set their own pages without a word.
    document.layoutFromPrinter = true;
    // A pen plotter's pen-up moves cost time and wear; the printers draw a page at once.
    document.orderForTravel = request.language == "HPGL";
    return true;
}

}  // namespace

namespace CupsJobMapping {

bool Map(const CupsJobRequest& request, CupsJob& job, std::string& error) {
    error.clear();
    CupsJob mapped;
    ChoiceReader reader(request, error);
    if (request.language == "HPGL2") {
        mapped.settings = hpgl2Settings(reader);
    } else if (request.language == "HPGL") {
        mapped.settings = hpglSettings(request, reader);
    } else if (request.language == "HP1000GL2") {
        mapped.settings = hp1000Settings(reader);
    } else if (request.language == "HP4000GL2") {
        mapped.settings = hp4000Settings(reader);
    } else {
        error = "the PPD names no known printer language ('" + request.language +
                "'; *VRKLanguage is HPGL2, HPGL, HP1000GL2 or HP4000GL2)";
        return false;
    }
    // Text of PDF documents: the glyphs' outlines, or labels in the plotter's font where one
    // serves.
    static const Choices kTextModes = {{"Outlines", "outlines"}, {"Labels", "labels"}};
    const std::string_view* text = reader.Value("VRKText", kTextModes);
    if (reader.Failed() || !mapDocument(request, mapped.document, error)) {
        return false;
    }
    if (request.copies < 1 || request.copies > kMaxCopies) {
        error = "copies: " + std::to_string(request.copies) + " is not from 1 to " +
                std::to_string(kMaxCopies);
        return false;
    }
    mapped.document.textLabels = text != nullptr && *text == "labels";
    mapped.copies = request.copies;
    mapped.jobName = request.title;
    job = std::move(mapped);
    return true;
}

}  // namespace CupsJobMapping
