// Paints the list of the help: the titles of the hits are bold.
#pragma once

#include <QStyledItemDelegate>

namespace velorin {

/// The first line of an entry is its title. An entry of one line is painted as any other.
class HelpHitPainter : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
};

} // namespace velorin
