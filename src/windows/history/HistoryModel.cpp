// Turns the entries of the history into rows.
#include "windows/history/HistoryModel.h"

#include "history/Change.h"
#include "history/History.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>

namespace velorin {

namespace {

constexpr std::int64_t microsOfMilli = 1000;

QDateTime momentOf(std::int64_t id) {
    return QDateTime::fromMSecsSinceEpoch(id / microsOfMilli);
}

HistoryModel::Line lineOf(const platform::HistoryEntry& entry) {
    HistoryModel::Line line;
    line.id = entry.id;
    line.state = entry.state;
    line.kind = QString::fromStdString(entry.kind);
    line.text = QString::fromStdString(entry.text);
    line.file = QString::fromStdString(fileNameOf(entry.name));
    line.path = entry.name;
    line.isSaved = entry.isSaved;
    return line;
}

/// Finds the day of moments that come in order. Most are on the day of the one before, which two
/// comparisons tell; a conversion to local time takes a thousand times as long.
class DayFinder {
public:
    QDate dayOf(std::int64_t id) {
        if (id < from_ || id >= to_) {
            day_ = momentOf(id).date();
            from_ = day_.startOfDay().toMSecsSinceEpoch() * microsOfMilli;
            to_ = day_.addDays(1).startOfDay().toMSecsSinceEpoch() * microsOfMilli;
        }
        return day_;
    }

private:
    QDate day_;
    std::int64_t from_ = 0;
    std::int64_t to_ = 0;
};

} // namespace

HistoryModel::HistoryModel(History& history, QObject* parent)
    : QAbstractListModel(parent), history_(history) {}

bool HistoryModel::refresh() {
    const auto& entries = history_.entries();
    // Entries are only added at the end, until the history is cleared.
    const std::size_t known = lines_.size();
    const bool continues =
        known <= entries.size() && (known == 0 || (lines_.front().id == entries.front().id &&
                                                   lines_.back().id == entries[known - 1].id));
    if (continues && known == entries.size()) {
        findNow();
        return false;
    }
    beginResetModel();
    if (!continues)
        lines_.clear();
    lines_.reserve(entries.size());
    for (std::size_t i = lines_.size(); i < entries.size(); ++i)
        lines_.push_back(lineOf(entries[i]));
    makeRows();
    findNow();
    endResetModel();
    return true;
}

void HistoryModel::findNow() {
    nowId_ = 0;
    const StateId current = history_.current();
    const auto found = std::find_if(lines_.rbegin(), lines_.rend(),
                                    [current](const Line& line) { return line.state == current; });
    if (found != lines_.rend())
        nowId_ = found->id;
}

void HistoryModel::setFilter(const QString& text) {
    const QString wanted = text.trimmed();
    if (wanted == filter_)
        return;
    beginResetModel();
    filter_ = wanted;
    makeRows();
    endResetModel();
}

bool HistoryModel::matches(const Line& line) const {
    return filter_.isEmpty() || line.text.contains(filter_, Qt::CaseInsensitive) ||
           (line.isSaved && line.file.contains(filter_, Qt::CaseInsensitive));
}

void HistoryModel::makeRows() {
    rows_.clear();
    rows_.reserve(lines_.size() + 40);
    DayFinder days;
    QDate above;
    for (auto i = static_cast<int>(lines_.size()) - 1; i >= 0; --i) {
        const Line& line = lines_[static_cast<std::size_t>(i)];
        if (!matches(line))
            continue;
        const QDate day = days.dayOf(line.id);
        if (day != above)
            rows_.push_back({-1, day});
        above = day;
        rows_.push_back({i, {}});
    }
}

const HistoryModel::Line* HistoryModel::line(int row) const {
    if (row < 0 || row >= rowCount())
        return nullptr;
    const int index = rows_[static_cast<std::size_t>(row)].line;
    return index < 0 ? nullptr : &lines_[static_cast<std::size_t>(index)];
}

const HistoryModel::Line* HistoryModel::find(std::int64_t id) const {
    const auto found =
        std::lower_bound(lines_.begin(), lines_.end(), id,
                         [](const Line& line, std::int64_t wanted) { return line.id < wanted; });
    return found != lines_.end() && found->id == id ? &*found : nullptr;
}

int HistoryModel::rowOf(std::int64_t id) const {
    for (int row = 0; row < rowCount(); ++row)
        if (const Line* const shown = line(row); shown != nullptr && shown->id == id)
            return row;
    return -1;
}

bool HistoryModel::isUndone(const Line& line) const {
    return history_.isUndone(line.state);
}

QDate HistoryModel::dayOf(const Line& line) {
    return momentOf(line.id).date();
}

QString HistoryModel::timeOf(const Line& line) {
    return momentOf(line.id).toString(QStringLiteral("HH:mm"));
}

QString HistoryModel::dayText(const QDate& day) const {
    const qint64 ago = day.daysTo(today());
    if (ago == 0)
        return QStringLiteral("Today");
    if (ago == 1)
        return QStringLiteral("Yesterday");
    return QLocale::c().toString(day, QStringLiteral("dddd d MMMM"));
}

QString HistoryModel::spoken(const Line& line) const {
    QStringList parts{timeOf(line), line.text};
    if (line.isSaved && !line.text.contains(line.file))
        parts << line.file;
    if (isNow(line))
        parts << QStringLiteral("now");
    else if (isUndone(line))
        parts << QStringLiteral("undone");
    return parts.join(QStringLiteral(", "));
}

int HistoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
        return {};
    const Line* const entry = line(index.row());
    if (entry == nullptr)
        return dayText(rows_[static_cast<std::size_t>(index.row())].day);
    return role == Qt::DisplayRole ? entry->text : spoken(*entry);
}

Qt::ItemFlags HistoryModel::flags(const QModelIndex& index) const {
    if (!index.isValid() || isDay(index.row()))
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

} // namespace velorin
