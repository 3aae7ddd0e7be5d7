// The menu of the strip's arrow.
#include "windows/strip/OverflowMenu.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"

#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace velorin {

namespace {

constexpr char keysProperty[] = "keys";
constexpr char pictureProperty[] = "picture";
constexpr int pictureLeft = 11;
constexpr int pictureSize = 16;
constexpr int entryLeft = 34;
constexpr int rightMargin = 16;
constexpr int plateMargin = 6; ///< the padding of the menu and its border
constexpr int belowArrow = 3;
constexpr int gap = 12; ///< least space between a text and its keys

} // namespace

OverflowMenu::OverflowMenu(QWidget* parent, const std::vector<OverflowEntry>& entries)
    : QMenu(parent) {
    setObjectName("stripMenu");
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_NoMouseReplay); // a press on the arrow closes the menu and opens no other
    setFixedWidth(menuWidth);
    for (const OverflowEntry& entry : entries) {
        if (entry.isSeparator()) {
            addSeparator();
            continue;
        }
        QAction* const action = addAction(entry.text);
        // Not the action's own icon, which would make its row higher.
        action->setProperty(pictureProperty, lookIcon(entry.picture));
        action->setProperty(keysProperty, entry.keys);
        action->setEnabled(entry.isEnabled);
        connect(action, &QAction::triggered, this,
                [this, command = entry.command] { onChosen(command); });
    }
}

void OverflowMenu::openBelow(const QWidget& arrow) {
    QPoint corner = arrow.mapToGlobal(QPoint(0, arrow.height() + belowArrow));
    if (const QScreen* const screen = arrow.screen()) {
        const QRect room = screen->availableGeometry();
        corner.setX(std::max(room.left(), std::min(corner.x(), room.right() + 1 - menuWidth)));
    }
    popup(corner);
}

void OverflowMenu::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), look::edge);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), look::ink650);
    painter.setRenderHint(QPainter::Antialiasing);
    for (QAction* const action : actions())
        paintEntry(painter, *action);
}

void OverflowMenu::paintEntry(QPainter& painter, QAction& action) const {
    const QRect row = actionGeometry(&action);
    if (action.isSeparator()) {
        painter.fillRect(QRect(14, row.center().y(), width() - 28, 1), look::line);
        return;
    }
    const bool isHot = action.isEnabled() && activeAction() == &action;
    if (isHot) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(look::line);
        painter.drawRoundedRect(
            QRectF(plateMargin, row.top(), width() - 2 * plateMargin, row.height()), 4, 4);
    }
    const QRect picture(pictureLeft, row.top() + (row.height() - pictureSize) / 2, pictureSize,
                        pictureSize);
    action.property(pictureProperty)
        .value<QIcon>()
        .paint(&painter, picture, Qt::AlignCenter,
               action.isEnabled() ? QIcon::Normal : QIcon::Disabled);
    const QColor white(Qt::white);
    QFont small = font();
    small.setPixelSize(11);
    painter.setFont(small);
    const QString keys = action.property(keysProperty).toString();
    painter.setPen(isHot ? white : look::mist2);
    const int right = width() - rightMargin;
    painter.drawText(QRect(entryLeft, row.top(), right - entryLeft, row.height()),
                     Qt::AlignRight | Qt::AlignVCenter, keys);
    const int keysWidth = keys.isEmpty() ? 0 : painter.fontMetrics().horizontalAdvance(keys) + gap;
    painter.setFont(font());
    painter.setPen(isHot ? white : action.isEnabled() ? look::mist : look::edge2);
    const QRect text(entryLeft, row.top(), right - entryLeft - keysWidth, row.height());
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(action.text(), Qt::ElideRight, text.width()));
}

} // namespace velorin
