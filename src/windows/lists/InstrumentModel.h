// The rows of an open list of instruments: those whose name or number matches what was typed.
#pragma once

#include <QAbstractListModel>
#include <QString>

#include <vector>

namespace velorin {

/// An entry of a list of instruments.
struct Instrument {
    int number = 0; ///< [0, 175)
    QString name;
    QString family;

    /// As the closed list shows it: "24 Nylon Guitar".
    [[nodiscard]] QString entry() const;
};

/// The 128 instruments, and the 47 percussion sounds, each in the order of its list.
[[nodiscard]] std::vector<Instrument> melodicInstruments();
[[nodiscard]] std::vector<Instrument> percussionSounds();

/// Each row is an instrument. A heading is no row: it is part of the first row of its family, so no
/// cursor and no screen reader stops at it.
class InstrumentModel : public QAbstractListModel {
    Q_OBJECT

public:
    explicit InstrumentModel(std::vector<Instrument> instruments, QObject* parent = nullptr);

    /// Keeps the instruments whose name contains the text or whose entry begins with it, in any
    /// case. Blanks at both ends do not count. An empty text keeps all.
    void setTyped(const QString& text);
    [[nodiscard]] const QString& typed() const { return typed_; }

    /// Null if there is no such row.
    [[nodiscard]] const Instrument* instrument(int row) const;
    /// The place of a row's instrument in the whole list; -1 if there is no such row.
    [[nodiscard]] int placeOf(int row) const;
    [[nodiscard]] int rowOf(int place) const; ///< -1 if it is not shown
    /// True if the row's family differs from that of the row before.
    [[nodiscard]] bool hasHeading(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    [[nodiscard]] bool matches(const Instrument& instrument) const;

    std::vector<Instrument> instruments_;
    std::vector<int> rows_; ///< places in `instruments_`
    QString typed_;
};

} // namespace velorin
