// The rows of an open list of instruments: cursor and pointer.
#pragma once

#include <QListView>

#include <functional>

namespace velorin {

class InstrumentModel;
class InstrumentRowPainter;

/// The keyboard is elsewhere: what moves the cursor is called. The pointer counts once it has
/// moved; a key takes it out of the game until it moves again.
///
/// A place is an entry's index in the whole list, whatever is shown; -1 is none.
class InstrumentRows : public QListView {
    Q_OBJECT

public:
    InstrumentRows(InstrumentModel& model, QWidget* parent);

    /// Marks an entry as the one that the closed list shows, gives it the cursor and brings it into
    /// the middle.
    void showChosen(int place);
    void showSounding(int place);

    [[nodiscard]] int cursor() const;
    void moveCursorBy(int rows); ///< stops at both ends
    void moveCursorToEnd(bool isLast);
    void setCursorToFirst(); ///< of what is shown
    [[nodiscard]] int rowsOfAPage() const;

    /// The pointer has come to another entry, or has left all.
    std::function<void(int place)> onPointed;
    /// A press and its release were on the same entry.
    std::function<void(int place)> onTaken;
    QString emptyText; ///< shown while there are no rows

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    [[nodiscard]] int rowAt(QPoint place) const; ///< -1 for a heading too
    void setPointerRow(int row);
    void setCursor(int row);

    InstrumentModel& model_;
    InstrumentRowPainter* painter_;
};

} // namespace velorin
