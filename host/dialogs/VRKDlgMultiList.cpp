#include "host/dialogs/VRKDlgMultiList.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>

#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

namespace {

class MultiListImpl : public VRKDlgObjectImpl {
  public:
    MultiListImpl() : VRKDlgObjectImpl(new QTreeWidget) {
        QTreeWidget* tree = Get();
        tree->setRootIsDecorated(false);
        tree->setUniformRowHeights(true);
        tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
        tree->setColumnCount(1);
        tree->setHeaderLabels({QString()});
        QObject::connect(tree, &QTreeWidget::itemSelectionChanged, tree, [this] {
            if (!fromCode && onSelect) {
                onSelect();
            }
        });
    }
    QTreeWidget* Get() const { return static_cast<QTreeWidget*>(widget.data()); }
    void FitHeight() {
        QTreeWidget* tree = Get();
        int line = tree->fontMetrics().height() + 4;
        if (tree->topLevelItemCount() > 0) {
            line = std::max(line, tree->sizeHintForRow(0));
        }
        int height =
            visibleLines * line + tree->header()->sizeHint().height() + 2 * tree->frameWidth();
        tree->setMinimumHeight(height);
        tree->setMaximumHeight(height);
    }

    int visibleLines = 5;
    bool fromCode = false;
    VRKDlgCallback onSelect;
};

MultiListImpl& Impl(const VRKDlgMultiList& list) {
    return static_cast<MultiListImpl&>(list.GetImpl());
}

}  // namespace

VRKDlgMultiList::VRKDlgMultiList(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<MultiListImpl>()) {
    Impl(*this).FitHeight();
}

void VRKDlgMultiList::SetColumns(const std::vector<std::string>& titles) {
    QStringList labels;
    for (const std::string& title : titles) {
        labels << VRKDlgQString(title);
    }
    QTreeWidget* tree = Impl(*this).Get();
    tree->setColumnCount(std::max(1, static_cast<int>(labels.size())));
    tree->setHeaderLabels(labels);
}

int VRKDlgMultiList::GetColumnCount() const {
    return Impl(*this).Get()->columnCount();
}

void VRKDlgMultiList::SetVisibleLineCount(int lines) {
    Impl(*this).visibleLines = std::max(lines, 1);
    Impl(*this).FitHeight();
}

int VRKDlgMultiList::GetVisibleLineCount() const {
    return Impl(*this).visibleLines;
}

bool VRKDlgMultiList::SetLine(int row, int column, const std::string& text) {
    QTreeWidget* tree = Impl(*this).Get();
    if (row < 0 || column < 0 || column >= tree->columnCount()) {
        return false;
    }
    Impl(*this).fromCode = true;
    while (tree->topLevelItemCount() <= row) {
        tree->addTopLevelItem(new QTreeWidgetItem(tree));
    }
    Impl(*this).fromCode = false;
    tree->topLevelItem(row)->setText(column, VRKDlgQString(text));
    return true;
}

std::string VRKDlgMultiList::GetLine(int row, int column) const {
    QTreeWidget* tree = Impl(*this).Get();
    if (row < 0 || row >= tree->topLevelItemCount() || column < 0 ||
        column >= tree->columnCount()) {
        return {};
    }
    return tree->topLevelItem(row)->text(column).toStdString();
}

int VRKDlgMultiList::GetLineCount() const {
    return Impl(*this).Get()->topLevelItemCount();
}

void VRKDlgMultiList::ClearLines() {
    Impl(*this).fromCode = true;
    Impl(*this).Get()->clear();
    Impl(*this).fromCode = false;
}

std::vector<int> VRKDlgMultiList::GetSelect() const {
    std::vector<int> rows;
    QTreeWidget* tree = Impl(*this).Get();
    for (int row = 0; row < tree->topLevelItemCount(); ++row) {
        if (tree->topLevelItem(row)->isSelected()) {
            rows.push_back(row);
        }
    }
    return rows;
}

void VRKDlgMultiList::SetSelect(const std::vector<int>& rows) {
    QTreeWidget* tree = Impl(*this).Get();
    Impl(*this).fromCode = true;
    tree->clearSelection();
    for (int row : rows) {
        if (row >= 0 && row < tree->topLevelItemCount()) {
            tree->topLevelItem(row)->setSelected(true);
        }
    }
    Impl(*this).fromCode = false;
}

void VRKDlgMultiList::SetOnSelect(VRKDlgCallback callback) {
    Impl(*this).onSelect = std::move(callback);
}
