// Paints the list of the help.
#include "windows/help/HelpHitPainter.h"

#include "windows/frame/LookColors.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>

namespace velorin {

namespace {

// The padding of the list's entries in its style sheet.
constexpr int across = 8;
constexpr int down = 5;
constexpr int wrapped = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

struct Hit {
    explicit Hit(const QString& text)
        : title(text.section('\n', 0, 0)), line(text.section('\n', 1)) {}

    QString title;
    QString line; ///< empty for an entry of the contents
};

QFont titleFont(const QFont& font) {
    QFont bold = font;
    bold.setWeight(QFont::DemiBold);
    return bold;
}

QRect boundingOf(const QFont& font, const QString& text, int width) {
    return QFontMetrics(font).boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), wrapped, text);
}

} // namespace

void HelpHitPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    const Hit hit(index.data().toString());
    if (hit.line.isEmpty())
        return QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem ground = option;
    initStyleOption(&ground, index);
    ground.text.clear();
    const QStyle& style =
        option.widget != nullptr ? *option.widget->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &ground, painter, option.widget);
    painter->save();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->setPen(isSelected ? look::paper : look::mist);
    QRect place = option.rect.adjusted(across, down, -across, -down);
    const QFont bold = titleFont(option.font);
    painter->setFont(bold);
    painter->drawText(place, wrapped, hit.title);
    place.setTop(place.top() + boundingOf(bold, hit.title, place.width()).height());
    painter->setFont(option.font);
    painter->drawText(place, wrapped, hit.line);
    painter->restore();
}

QSize HelpHitPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const Hit hit(index.data().toString());
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    if (hit.line.isEmpty() || view == nullptr)
        return QStyledItemDelegate::sizeHint(option, index);
    const int width = view->viewport()->width() - 2 * across;
    return {view->viewport()->width(),
            boundingOf(titleFont(option.font), hit.title, width).height() +
                boundingOf(option.font, hit.line, width).height() + 2 * down};
}

} // namespace velorin
