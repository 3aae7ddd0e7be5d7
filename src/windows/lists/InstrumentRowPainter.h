// Paints the rows of an open list of instruments.
#pragma once

#include <QIcon>
#include <QStyledItemDelegate>

namespace velorin {

class InstrumentModel;

/// A row, below the heading of its family if it is the family's first one:
///
///     +-----------------------------------------------+
///     | Guitar                                        |  heading, paper-2
///     +-----------------------------------------------+
///     |      24  Nylon Guitar                      v  |  cursor; the entry in use has the tick
///     |      25  Steel Guitar                         |
///     |      26  Jazz Guitar                       >  |  the pointer rests on it and it sounds
class InstrumentRowPainter : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit InstrumentRowPainter(const InstrumentModel& model, QObject* parent = nullptr);

    static constexpr int rowHeight = 24;

    int pointerRow = -1;    ///< -1 for none
    int chosenPlace = -1;   ///< the entry that the closed list shows
    int soundingPlace = -1; ///< the entry that sounds

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

private:
    void paintHeading(QPainter& painter, const QRect& place, const QFont& font,
                      const QString& family) const;
    void paintRow(QPainter& painter, const QRect& place, const QFont& font, int row,
                  bool isCursor) const;
    void paintMark(QPainter& painter, const QRect& place, int row, bool isCursor) const;
    /// Behind letters that match what was typed; `text` begins at `left`.
    void paintPlate(QPainter& painter, const QRect& place, const QFont& font, int left,
                    const QString& text, qsizetype from, int row) const;

    const InstrumentModel& model_;
    QIcon sounds_;
    QIcon chosen_;
    QIcon chosenAtCursor_;
};

} // namespace velorin
