// A drop-down list whose open rows are high enough to hit.
#include "windows/frame/DropDownList.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QStyledItemDelegate>

namespace velorin {

DropDownList::DropDownList(QWidget* parent) : QComboBox(parent) {
    setMaxVisibleItems(mostRows);
}

// The style sheet's rule for rows needs this delegate. It is set here, since a list that is never
// opened need not be made.
void DropDownList::showPopup() {
    if (!hasRows_) {
        setItemDelegate(new QStyledItemDelegate(this));
        QEvent missed(QEvent::FontChange);
        QComboBox::changeEvent(&missed);
    }
    hasRows_ = true;
    QComboBox::showPopup();
    view()->scrollTo(view()->currentIndex(), QAbstractItemView::PositionAtCenter);
}

// The style sheet sets the font of each list. The base class would then make the open list and
// measure all of its rows: a seventh of the start for lists that hardly anyone opens.
void DropDownList::changeEvent(QEvent* event) {
    if (event->type() != QEvent::FontChange || hasRows_)
        return QComboBox::changeEvent(event);
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): past the base class
    QWidget::changeEvent(event);
}

} // namespace velorin
