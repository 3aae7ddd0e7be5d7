// The panel below the list: what became of a MIDI file.
#pragma once

#include "windows/converter/ImportReport.h"

#include <QFrame>
#include <QLabel>
#include <QScrollArea>
#include <QToolButton>

#include <functional>
#include <string>
#include <vector>

namespace velorin {

/// 126 high: a heading, and four sentences with a dot each; more of them scroll.
class ReportPanel : public QFrame {
    Q_OBJECT

public:
    explicit ReportPanel(QWidget* parent);

    /// `name` is that of the MIDI file.
    void show(const std::string& name, const std::vector<ReportLine>& lines);

    std::function<void()> onClose;

    QLabel* heading;
    QToolButton* close;
    QScrollArea* sentences;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOutSentences();

    QWidget* sheet_; ///< what scrolls
};

} // namespace velorin
