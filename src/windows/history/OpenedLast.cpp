// The list "Opened last" of the History window.
#include "windows/history/OpenedLast.h"

#include "history/Change.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace velorin {

namespace {

constexpr char openedCaption[] = "Opened last";

} // namespace

OpenedLast::OpenedLast(QWidget* parent) : DropDownList(parent) {
    setPlaceholderText(QLatin1String(openedCaption));
    setEnabled(false);
    connect(this, &QComboBox::activated, this, [this](int index) {
        setCurrentIndex(-1);
        if (index >= 0 && index < static_cast<int>(paths_.size()) && onChosen)
            onChosen(std::string(paths_[static_cast<std::size_t>(index)]));
    });
}

void OpenedLast::setScores(const std::vector<std::string>& paths) {
    if (paths == paths_)
        return;
    paths_ = paths;
    clear();
    for (const std::string& path : paths_) {
        addItem(QString::fromStdString(fileNameOf(path)));
        setItemData(count() - 1, QString::fromStdString(path), Qt::ToolTipRole);
    }
    setCurrentIndex(-1);
    setEnabled(!paths_.empty());
}

void OpenedLast::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
        showPopup();
        break;
    default:
        event->ignore();
    }
}

void OpenedLast::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace velorin
