// The cells of a tableau as a screen reader finds them.
#include "windows/reader/TableauCells.h"

#include "drawing/CellGrid.h"
#include "drawing/ChordLanes.h"
#include "studio/Studio.h"
#include "windows/main/PictureBox.h"
#include "windows/reader/TableauTable.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

#include <algorithm>

namespace velorin {

namespace {

/// Heads have the number 0.
quint32 keyOf(ScreenCell cell) {
    constexpr unsigned rowShift = 16;
    return static_cast<quint32>(cell.row + 1) << rowShift | static_cast<quint32>(cell.column + 1);
}

ScreenCell cellOfKey(quint32 key) {
    constexpr unsigned rowShift = 16;
    constexpr quint32 columnBits = 0xFFFF;
    return {static_cast<int>(key >> rowShift) - 1, static_cast<int>(key & columnBits) - 1};
}

QString capital(const std::string& words) {
    QString text = QString::fromStdString(words);
    return text.isEmpty() ? text : text.at(0).toUpper() + text.sliced(1);
}

} // namespace

TableauCells::TableauCells(PictureBox& box, Tableau tableau, const Studio& studio,
                           const Strokes& strokes)
    : QObject(&box), box_(box), tableau_(tableau), studio_(studio), strokes_(strokes) {
    box.installEventFilter(this);
    showAsTable(box, *this);
}

TableauCells::~TableauCells() {
    for (const QAccessible::Id id : std::as_const(ids_))
        QAccessible::deleteAccessibleInterface(id);
}

int TableauCells::rows() const {
    return strokes_.reach(tableau_).endLine;
}

int TableauCells::columns() const {
    return strokes_.reach(tableau_).columns;
}

bool TableauCells::holds(ScreenCell cell) const {
    const Reach reach = strokes_.reach(tableau_);
    return cell.row >= -1 && cell.row < reach.endLine && cell.column >= -1 &&
           cell.column < reach.columns;
}

bool TableauCells::isWithinReach(ScreenCell cell) const {
    return !cell.isHead() && holds(cell) && cell.row >= strokes_.reach(tableau_).firstLine;
}

Spot TableauCells::spotOf(ScreenCell cell) const {
    const int line = tableau_ == Tableau::music ? studio_.view.TopPitch + cell.row : cell.row;
    return {tableau_, studio_.view.FirstColumn + cell.column, line};
}

QString TableauCells::words(ScreenCell cell) const {
    const Spot spot = spotOf(cell);
    if (cell.row < 0 && cell.column < 0)
        return QStringLiteral("Note");
    if (cell.row < 0)
        return capital(columnWords(spot.column));
    if (cell.column < 0)
        return capital(lineWords(tableau_, spot.line));
    if (cursorWords && cursor() == cell) {
        if (QString said = cursorWords(); !said.isEmpty())
            return said;
    }
    return QString::fromStdString(placeWords(spot, contentOf(studio_, spot, rows())));
}

QRect TableauCells::placeOf(ScreenCell cell) const {
    QRect place = Strokes::cell({tableau_, std::max(0, cell.column), std::max(0, cell.row)});
    if (cell.column < 0)
        place.translate(-place.width(), 0);
    if (cell.row < 0)
        place.translate(0, -place.height());
    return place.translated(box_.mapToGlobal(QPoint(0, 0)));
}

bool TableauCells::isSelected(int column) const {
    const int ofScore = studio_.view.FirstColumn + column;
    return tableau_ != Tableau::lanes && studio_.score.SelectStart >= 0 &&
           ofScore >= studio_.score.SelectStart && ofScore <= studio_.score.SelectEnd;
}

std::optional<ScreenCell> TableauCells::cellAt(QPoint place) const {
    if (!box_.rect().contains(place))
        return std::nullopt;
    const int row = tableau_ == Tableau::lanes ? laneAt(place.y()) - 1 : place.y() / cellPx;
    const ScreenCell cell{row, place.x() / cellPx};
    return cell.isHead() || !holds(cell) ? std::nullopt : std::optional(cell);
}

std::optional<ScreenCell> TableauCells::cellOnScreen(QPoint place) const {
    return cellAt(box_.mapFromGlobal(place));
}

QAccessibleInterface* TableauCells::object(ScreenCell cell) {
    if (!holds(cell))
        return nullptr;
    const quint32 key = keyOf(cell);
    if (const auto known = ids_.constFind(key); known != ids_.constEnd())
        return QAccessible::accessibleInterface(*known);
    QAccessibleInterface* const made = makeCellObject(*this, cell);
    ids_.insert(key, QAccessible::registerAccessibleInterface(made));
    return made;
}

bool TableauCells::hasFocus() const {
    return box_.hasFocus();
}

QObject* TableauCells::tableau() const {
    return &box_;
}

void TableauCells::reportCursor(bool hasMoved) {
    const auto cell = cursor();
    QAccessibleInterface* const known = cell && QAccessible::isActive() ? object(*cell) : nullptr;
    if (known == nullptr)
        return;
    if (hasMoved && box_.hasFocus()) {
        QAccessibleEvent moved(known, QAccessible::Focus);
        QAccessible::updateAccessibility(&moved);
    }
    QAccessibleEvent renamed(known, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
}

void TableauCells::act(ScreenCell cell, CellAction action) {
    QTimer::singleShot(0, this, [this, cell, action] {
        const bool isBehindDialog = QApplication::activeModalWidget() != nullptr;
        if (onAction && !isBehindDialog && isWithinReach(cell))
            onAction(cell, action);
    });
}

bool TableauCells::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Hide:
        dropOutside();
        break;
    case QEvent::FocusIn: // the pen may come back with it
        if (QAccessible::isActive())
            QTimer::singleShot(0, this, [this] { reportCursor(true); });
        break;
    case QEvent::MouseButtonPress:
        if (const auto cell = cellAt(static_cast<const QMouseEvent*>(event)->pos());
            cell && onPress)
            onPress(*cell);
        break;
    case QEvent::MouseButtonRelease:
        QTimer::singleShot(0, this, [this] {
            if (onReleased)
                onReleased();
        });
        break;
    default:
        break;
    }
    return false;
}

void TableauCells::dropOutside() {
    for (auto each = ids_.begin(); each != ids_.end();) {
        if (holds(cellOfKey(each.key()))) {
            ++each;
            continue;
        }
        QAccessible::deleteAccessibleInterface(*each);
        each = ids_.erase(each);
    }
}

} // namespace velorin
