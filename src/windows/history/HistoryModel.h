// The rows of the History window's list: the entries of the history, the newest first, below the
// headings of their days.
#pragma once

#include <QAbstractListModel>
#include <QDate>
#include <QString>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velorin {

class History;

/// Reads the history again only when told to. A filter keeps the entries that contain it, in any
/// case, and the days that have one of these.
///
/// A day is a row that cannot be chosen. Screen readers hear an entry as
/// "14:34, 3 notes drawn on channel 1, now".
class HistoryModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// An entry of the history, as it is shown.
    struct Line {
        std::int64_t id = 0;
        std::int64_t state = 0; ///< what it shows, and where "Go back to this" leads
        QString kind;           ///< a word of `changeKind`
        QString text;           ///< "3 notes drawn on channel 1", "Saved"
        QString file;           ///< the score's file without its folder; empty for a new score
        std::string path;       ///< with its folder, as the program has it
        bool isSaved = false;   ///< the file held the state at that moment
    };

    explicit HistoryModel(History& history, QObject* parent = nullptr);

    /// Reads what is new. Returns false if there is no other entry than before; then only what is
    /// current or undone may have changed.
    bool refresh();

    /// Blanks at both ends do not count.
    void setFilter(const QString& text);
    [[nodiscard]] const QString& filter() const { return filter_; }

    /// All entries, the oldest first, whatever the filter is.
    [[nodiscard]] const std::vector<Line>& lines() const { return lines_; }
    [[nodiscard]] const Line* line(int row) const; ///< null for a day or no row
    [[nodiscard]] const Line* find(std::int64_t id) const;
    [[nodiscard]] int rowOf(std::int64_t id) const; ///< -1 if it is not shown
    /// The entry of the current state, its newest one; 0 if there is none.
    [[nodiscard]] std::int64_t nowId() const { return nowId_; }

    [[nodiscard]] bool isDay(int row) const { return line(row) == nullptr; }
    [[nodiscard]] bool isNow(const Line& line) const { return line.id == nowId_; }
    [[nodiscard]] bool isUndone(const Line& line) const;

    /// "Today", "Yesterday", "Friday 20 November".
    [[nodiscard]] QString dayText(const QDate& day) const;
    [[nodiscard]] static QDate dayOf(const Line& line);
    [[nodiscard]] static QString timeOf(const Line& line); ///< "14:34"

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    std::function<QDate()> today = [] { return QDate::currentDate(); };

private:
    struct Row {
        int line = -1; ///< index of `lines_`; -1 for a day
        QDate day;     ///< of a day
    };

    [[nodiscard]] bool matches(const Line& line) const;
    [[nodiscard]] QString spoken(const Line& line) const;
    void makeRows();
    void findNow();

    History& history_;
    std::vector<Line> lines_;
    std::vector<Row> rows_;
    QString filter_;
    std::int64_t nowId_ = 0;
};

} // namespace velorin
