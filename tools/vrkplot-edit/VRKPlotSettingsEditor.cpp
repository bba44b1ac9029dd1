// The settings editor vrkplot loads for `--edit`: the generator's property dialog, shown until
// it and every dialog opened from it have ended.

#include <QApplication>
#include <QWidget>
#include <new>

#include "host/core/VRKClassRegistration.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgDialog.h"
#include "tools/vrkplot/SettingsEditor.h"

namespace {

class VRKPlotSettingsEditor final : public SettingsEditor {
  public:
    Outcome Edit(VRKPrintGenerator& generator, std::string& why) override {
        if (!VRKDlgApplication::Available(why)) {
            return kNoDisplay;
        }
        VRKDlgApplication::Ensure();
        VRKDlgDialog* dialog = generator.CreatePropertyEditor(nullptr);
        if (dialog == nullptr) {
            why = "this printer language has no settings dialog";
            return kNoDialog;
        }
        dialog->Show();
        // Dialogs end by hiding and deleting themselves; a dialog may open another before it
        // ends (the pen dialog's Reset): the editing is over when none is shown any more.
        while (anyDialogShown()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        return kEdited;
    }

  private:
    static bool anyDialogShown() {
        for (const QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible()) {
                return true;
            }
        }
        return false;
    }
};

VRKBaseUnknown* createEditor() {
    return new (std::nothrow) VRKPlotSettingsEditor;
}

const VRKClassRegistration registration({"VRKPlotSettingsEditor", "vrkplot", &createEditor, "",
                                         ""});

}  // namespace
