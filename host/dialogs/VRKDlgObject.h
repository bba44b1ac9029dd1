#pragma once

#include <functional>
#include <memory>
#include <string>

class VRKDlgDialog;
class VRKDlgObjectImpl;

// A notification of a widget: called on the event loop's thread when the user acts on the widget
// (never when the program changes its state with a setter).
using VRKDlgCallback = std::function<void()>;

// The base of every widget of the dialog toolkit.
//
// A widget has a key, unique among the widgets of its dialog, by which the dialog's code and its
// tests find it, and a parent: the container it sits in. A widget is made with `new` on its
// parent and is owned by it from then on: deleting the parent deletes its children. A widget may
// also be deleted on its own; it leaves its parent then, but not from inside one of its own
// notifications (a dialog ends itself with RequestDelete).
//
// Texts are UTF-8. Nothing here includes a header of the toolkit underneath (Qt 6 Widgets): the
// implementation is behind the opaque VRKDlgObjectImpl.
class VRKDlgObject {
  public:
    VRKDlgObject(const VRKDlgObject&) = delete;
    VRKDlgObject& operator=(const VRKDlgObject&) = delete;
    virtual ~VRKDlgObject();

    const std::string& GetKey() const;
    // The container the widget sits in; null for a dialog without a parent dialog.
    VRKDlgObject* GetParent() const;
    // The dialog the widget belongs to (itself for a dialog).
    VRKDlgDialog* GetDialog() const;

    // The text the widget shows: a dialog's window title, a tab's text, a frame's title, a label's
    // or a button's text. Widgets that show no text keep it for GetTitle only.
    void SetTitle(const std::string& title);
    std::string GetTitle() const;

    // An insensitive widget is shown greyed and takes no input. A widget is sensitive when it and
    // every container around it are.
    void SetSensitivity(bool sensitive);
    bool IsSensitive() const;

    // The widget's own visibility flag: true unless SetVisibility(false) hid it. It does not
    // depend on whether the dialog is shown.
    void SetVisibility(bool visible);
    bool IsVisible() const;

    // The place of the widget in its container's grid. A new widget takes column 0 of the row
    // after the last row used; SetGrid moves it, e.g. SetGrid(2, 1) puts it to the right of the
    // widget at (2, 0). A span of -1 reaches the last column.
    void SetGrid(int row, int column, int rowSpan = 1, int columnSpan = 1);
    int GetGridRow() const;
    int GetGridColumn() const;

    // The widget with this key among the descendants of this one (depth first, in the order made),
    // or null.
    VRKDlgObject* FindChildObject(const std::string& key) const;
    template <class T>
    T* FindChild(const std::string& key) const {
        return dynamic_cast<T*>(FindChildObject(key));
    }
    int GetChildCount() const;
    VRKDlgObject* GetChild(int index) const;

    // Renders the widget as it would be shown into a PNG file; false when the file cannot be
    // written. A tab page is made the current page of its container first.
    bool SaveScreenshot(const std::string& pngPath);

    // The implementation, for the toolkit's own sources (host/dialogs/qt/).
    VRKDlgObjectImpl& GetImpl() const { return *m_impl; }

  protected:
    // Takes over the implementation and enters the widget in its parent (null for a top-level
    // dialog).
    VRKDlgObject(VRKDlgObject* parent, const std::string& key,
                 std::unique_ptr<VRKDlgObjectImpl> impl);

  private:
    std::unique_ptr<VRKDlgObjectImpl> m_impl;
};
