// Measures the History window with ten thousand states: until it is painted, a page of scrolling, a
// letter in the filter, and a change while it is open.
#include "history/Change.h"
#include "history/History.h"
#include "model/ScoreWriter.h"
#include "support/ToolStage.h"
#include "windows/frame/Look.h"
#include "windows/history/HistoryTool.h"
#include "windows/history/HistoryWindow.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDateTime>
#include <QScrollBar>

#include <memory>

using namespace velorin;

namespace {

constexpr int states = 10'000;

/// Thirty days of states. Each reads as the same full score.
class FullStore final : public platform::HistoryStore {
public:
    FullStore() {
        const std::int64_t end = QDateTime::currentMSecsSinceEpoch() * 1000;
        constexpr std::int64_t apart = 29LL * 24 * 3600 * 1'000'000 / states;
        for (int i = 0; i < states; ++i) {
            platform::HistoryEntry entry;
            entry.id = entry.state = end - (states - i) * apart;
            entry.kind = changeKind::notes;
            entry.text = "Note drawn on channel " + std::to_string(i % 8 + 1) + ", column " +
                         std::to_string(i % 1000 + 1);
            entries_.push_back(entry);
        }
        Score score;
        for (int row = 0; row < scoreRows; ++row)
            for (int column = 0; column < scoreColumns; ++column)
                score.NoteArray.write(row, column,
                                      static_cast<std::int16_t>(55 + (row * 5 + column) % 50));
        text_ = exactText(score);
        last_ = end;
    }

    std::int64_t add(const platform::HistoryEntry&, const std::string&) override { return ++last_; }
    void setCurrent(std::int64_t) override {}
    std::vector<platform::HistoryEntry> entries() override { return entries_; }
    std::optional<std::string> score(std::int64_t) override { return text_; }
    void clear() override {}
    std::uint64_t bytesUsed() override { return 1; }
    std::uint64_t mostBytes() override { return 200U << 20U; }
    void end(bool) override {}
    std::vector<platform::RecoveredFile> recoverInto(const std::string&) override { return {}; }

private:
    std::vector<platform::HistoryEntry> entries_;
    std::string text_;
    std::int64_t last_ = 0;
};

/// A program with that history. The window is not loaded yet.
struct FullHistory : scripted::ToolStage {
    FullHistory() {
        windows.add(Tool::history, tool);
        history.onChanged = [this] { tool.historyChanged(); };
        history.begin();
    }

    /// Everything is painted on return, the picture of the state too.
    HistoryWindow& open() {
        tool.open();
        settle();
        return tool.form();
    }
    void settle() {
        QApplication::processEvents();
        QApplication::processEvents();
    }

    FullStore store;
    History history{studio, session.files, &store};
    HistoryTool tool{session, windows, history};
};

void openHistory(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto full = std::make_unique<FullHistory>();
        state.ResumeTiming();
        full->open();
        state.PauseTiming();
        full.reset();
        state.ResumeTiming();
    }
}

void scrollHistory(benchmark::State& state) {
    FullHistory full;
    QScrollBar& bar = *full.open().states->verticalScrollBar();
    for (auto _ : state) {
        bar.setValue(bar.value() + bar.pageStep() < bar.maximum() ? bar.value() + bar.pageStep()
                                                                  : 0);
        full.settle();
    }
}

void filterHistory(benchmark::State& state) {
    FullHistory full;
    HistoryWindow& window = full.open();
    bool isOdd = false;
    for (auto _ : state) {
        isOdd = !isOdd;
        window.filter->setText(isOdd ? "channel 3" : "channel 4");
        full.settle();
    }
}

void changeWhileOpen(benchmark::State& state) {
    FullHistory full;
    full.open();
    std::int16_t pitch = 20;
    for (auto _ : state) {
        pitch = static_cast<std::int16_t>(pitch == 20 ? 21 : 20);
        full.studio.score.NoteArray.write(0, 0, pitch);
        full.history.changeFinished();
        full.settle();
    }
}

BENCHMARK(openHistory)->Unit(benchmark::kMicrosecond);
BENCHMARK(scrollHistory)->Unit(benchmark::kMicrosecond);
BENCHMARK(filterHistory)->Unit(benchmark::kMicrosecond);
BENCHMARK(changeWhileOpen)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
