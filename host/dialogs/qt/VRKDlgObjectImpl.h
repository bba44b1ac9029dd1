#pragma once

#include <QGridLayout>
#include <QPointer>
#include <QWidget>
#include <string>
#include <vector>

#include "host/dialogs/VRKDlgObject.h"

class QButtonGroup;

// The Qt side of a widget of the toolkit. Each kind of widget derives its own implementation from
// this one in its source file; containers fill in `grid`, the layout their children go into.
class VRKDlgObjectImpl {
  public:
    explicit VRKDlgObjectImpl(QWidget* widget) : widget(widget) {}
    VRKDlgObjectImpl(const VRKDlgObjectImpl&) = delete;
    VRKDlgObjectImpl& operator=(const VRKDlgObjectImpl&) = delete;
    // Deletes the Qt widget unless Qt deleted it already, after cutting its signals, so that
    // nothing calls back into a widget being taken apart.
    virtual ~VRKDlgObjectImpl();

    // Shows the title the way the widget shows text (nothing by default).
    virtual void ApplyTitle(const std::string& text);
    // Places a new child's widget: by default in the grid, in the next free row.
    virtual void Adopt(VRKDlgObjectImpl& child);
    // Called before a child goes (nothing by default: its widget leaves the grid when deleted).
    virtual void Remove(VRKDlgObjectImpl&) {}
    // Makes the widget ready to be rendered (a tab page becomes the current page).
    virtual void PrepareScreenshot() {}
    virtual void ApplySensitivity(bool sensitive);
    virtual void ApplyVisibility(bool visible);
    // Puts the widget again at its place in its parent's grid.
    void Place();

    QPointer<QWidget> widget;
    QGridLayout* grid = nullptr;
    QButtonGroup* exclusiveGroup = nullptr;
    VRKDlgObject* owner = nullptr;
    VRKDlgObject* parent = nullptr;
    std::vector<VRKDlgObject*> children;
    std::string key;
    std::string title;
    bool visible = true;
    bool fullWidth = false;  // a separator: spans every column of its row
    int row = 0, column = 0, rowSpan = 1, columnSpan = 1;
    int nextRow = 0;
};

// Turns a UTF-8 string into a QString.
QString VRKDlgQString(const std::string& text);
