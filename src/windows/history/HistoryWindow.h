// The History window: every state of the score, and the way back to it.
//
//   filter           what the user types; the list shows the states that contain it
//   opened           "Opened last": up to ten scores
//   states           the list, the newest state first
//   panel            the state under the pointer, else that of the cursor
//   panel->goBack    "Go back to this", also by Enter and by a double click
//   panel->save      "Save as score..."
//   clear            "Clear history..."
#pragma once

#include "windows/frame/ToolFrame.h"
#include "windows/history/HistoryList.h"
#include "windows/history/HistoryModel.h"
#include "windows/history/OpenedLast.h"
#include "windows/history/StatePanel.h"
#include "windows/history/StateSummary.h"
#include "windows/history/WindowEdge.h"

#include <QLineEdit>

#include <array>
#include <string>
#include <vector>

namespace velorin {

class HistoryTool;
class Session;
class ToolWindows;

/// Can be resized: the list takes what is added. While it is hidden it reads nothing.
class HistoryWindow : public ToolFrame {
    Q_OBJECT

public:
    HistoryWindow(HistoryTool& owner, Session& session, ToolWindows& windows, History& history);

    void placeWindow(); ///< where it was when it was closed; it stays hidden
    void storePlace();

    /// There is a new entry, or another state is current.
    void historyChanged();
    /// A song has begun or ended to play.
    void lockChanged();

    void goBack(); ///< to the state that the panel shows
    void saveAsScore();
    void clearHistory();
    void openScore(const std::string& path);

    HistoryModel model;
    QLineEdit* filter;
    OpenedLast* opened;
    HistoryList* states;
    StatePanel* panel;
    QLabel* use; ///< how much is kept
    QPushButton* clear;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void makeControls();
    void connectHandlers();
    void refresh();
    void showState();
    void showSummarySoon();
    void showSummary();
    void showUse();
    [[nodiscard]] bool passKey(QKeyEvent& event);

    HistoryTool& owner_;
    Session& session_;
    ToolWindows& windows_;
    History& history_;
    StateSummaries summaries_;
    std::array<WindowEdge*, 3> edges_{};
    bool isStale_ = true; ///< the history has changed since the rows were made
    bool isSummaryDue_ = false;
};

} // namespace velorin
