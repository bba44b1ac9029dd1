// The smallest host program: loads the driver, makes the generator of a printer language through
// the class dictionary, draws a square with its diagonals and a red circle on an A4 page, and
// writes the plot file.
//
//     embedding LANGUAGE PLOT     e.g. embedding HPGL2 square.plt
#include <iostream>
#include <string>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKDriverLoader.h"
#include "host/core/VRKPrintFileGenerator.h"
#include "host/core/VRKPrintFileStream.h"
#include "host/core/VRKPrintParameters.h"
#include "host/core/VRKUnicodeString.h"

namespace {

// The drawing, in millimetres from the lower left corner of the page.
void draw(VRKPrintGenerator& generator) {
    VRKPrintParameters page;
    page.SetForm(VRKPrintForm(210.0f, 297.0f, 1));
    page.SetMargins(10.0f, 10.0f, 10.0f, 10.0f);
    generator.Begin(page);

    generator.DefineColor(1, 0.0f, 0.0f, 0.0f);
    generator.DefineColor(2, 1.0f, 0.0f, 0.0f);
    generator.SelectDrawColor(1);
    generator.SetDrawWidth(0.35f);
    const float square[] = {50.0f, 50.0f, 150.0f, 50.0f, 150.0f, 150.0f, 50.0f, 150.0f};
    generator.DrawPolygon(4, square);
    generator.MoveTo(50.0f, 50.0f);
    generator.LineTo(150.0f, 150.0f);
    generator.MoveTo(150.0f, 50.0f);
    generator.LineTo(50.0f, 150.0f);

    generator.SelectDrawColor(2);
    generator.DrawArcCircle(100.0f, 100.0f, 25.0f, 0.0f, 6.2831853f, 0);
    generator.End();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: embedding LANGUAGE PLOT\n";
        return 2;
    }
    const std::string language = argv[1];
    const std::string plot = argv[2];

    // A host loads the driver by name; its generators enter the class dictionary as it loads.
    std::string error;
    if (!VRKDriverLoader::Load("VRKPrtDriverHPGL2", error)) {
        std::cerr << "embedding: cannot load the driver: " << error << '\n';
        return 1;
    }
    const VRKClassEntry* entry = VRKClassDictionary::Instance().FindLanguage(language);
    if (entry == nullptr || entry->factory == nullptr) {
        std::cerr << "embedding: no generator for the language '" << language << "'\n";
        return 1;
    }
    VRKBaseUnknown* object = entry->factory();
    auto* generator = dynamic_cast<VRKPrintFileGenerator*>(object);
    if (generator == nullptr) {
        if (object != nullptr) {
            object->Release();
        }
        std::cerr << "embedding: the generator of '" << language << "' writes no file\n";
        return 1;
    }

    VRKPrintFileStream stream;
    if (!stream.Open(plot)) {
        generator->Release();
        std::cerr << "embedding: cannot write " << plot << '\n';
        return 1;
    }
    // The job name of the plot, for the languages that carry one.
    stream.SetPath(VRKUnicodeString("square"));
    generator->Attach(&stream);
    draw(*generator);
    generator->Attach(nullptr);
    const bool failed = generator->HasFailed();
    generator->Release();
    if (!stream.Close() || failed) {
        std::cerr << "embedding: writing " << plot << " failed\n";
        return 1;
    }
    return 0;
}
