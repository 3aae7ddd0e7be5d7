// The History window on a scripted host, with a store whose times the test chooses.
#pragma once

#include "history/Change.h"
#include "history/History.h"
#include "support/ToolStage.h"
#include "windows/history/HistoryTool.h"
#include "windows/history/HistoryWindow.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTest>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace velorin {

/// Keeps everything in memory. Two entries of the same moment are a microsecond apart.
class DatedStore final : public platform::HistoryStore {
public:
    std::int64_t now = 0; ///< microseconds since 1970
    std::vector<platform::HistoryEntry> all;
    std::map<std::int64_t, std::string> scores;

    /// Time does not go back.
    void setTime(const QDate& day, int hour, int minute) {
        now = std::max<std::int64_t>(now, QDateTime(day, QTime(hour, minute)).toMSecsSinceEpoch() *
                                              1000);
    }

    std::int64_t add(const platform::HistoryEntry& entry, const std::string& score) override {
        platform::HistoryEntry added = entry;
        added.id = ++now;
        if (!score.empty()) {
            added.state = added.id;
            scores[added.id] = score;
        }
        all.push_back(added);
        return added.id;
    }
    void setCurrent(std::int64_t) override {}
    std::vector<platform::HistoryEntry> entries() override { return all; }
    std::optional<std::string> score(std::int64_t state) override {
        const auto found = scores.find(state);
        return found != scores.end() ? std::optional(found->second) : std::nullopt;
    }
    void clear() override {
        all.clear();
        scores.clear();
    }
    std::uint64_t bytesUsed() override { return 13'002'342; } // 12.4 MiB
    std::uint64_t mostBytes() override { return 200U << 20U; }
    void end(bool) override {}
    std::vector<platform::RecoveredFile> recoverInto(const std::string&) override { return {}; }
};

/// Friday 20 November 2026 is today. The window is not loaded yet.
struct HistoryStage : scripted::ToolStage {
    HistoryStage() {
        windows.add(Tool::history, tool);
        history.onChanged = [this] { tool.historyChanged(); };
        history.begin();
    }

    const QDate today{2026, 11, 20};

    void at(int hour, int minute) { store.setTime(today, hour, minute); }

    /// Draws a note of one column and adds the change to the history.
    StateId draw(int row, int column, int pitch = 60) {
        if (store.now == 0)
            at(14, 0);
        studio.score.NoteArray.write(row, column, static_cast<std::int16_t>(pitch));
        history.changeFinished();
        return history.current();
    }
    void save(const std::string& name) {
        session.files.SaveScoreFile(name);
        history.changeFinished();
    }
    [[nodiscard]] bool has(int row, int column) const {
        return !isEmpty(session.studio.score.NoteArray.at(row, column));
    }

    /// Loads and shows the window. Its list has the keyboard.
    HistoryWindow& shown() {
        HistoryWindow& window = tool.form();
        window.model.today = [this] { return today; };
        tool.open();
        QCoreApplication::processEvents();
        return window;
    }

    DatedStore store;
    History history{studio, session.files, &store};
    HistoryTool tool{session, windows, history};
};

/// The rows of the list as a user reads them, "14:34 Note drawn on channel 1, column 1".
inline std::vector<std::string> rowsOf(const HistoryModel& model) {
    std::vector<std::string> rows;
    for (int row = 0; row < model.rowCount(); ++row)
        rows.push_back(
            model.data(model.index(row, 0), Qt::AccessibleTextRole).toString().toStdString());
    return rows;
}

} // namespace velorin
