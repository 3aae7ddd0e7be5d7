// Measures drawing: a whole redraw, a scroll by one column, a step of the marker, a step of a drag.
#include "support/TableauStage.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

using namespace velorin;

namespace {

/// A window of 1600 by 900 with a note in every column of every row.
class FullTableau {
public:
    FullTableau() {
        for (int row = 0; row < 9; ++row)
            stage.studio.view.RowOpen[static_cast<std::size_t>(row)] = flagSet;
        for (int row = 0; row < scoreRows; ++row)
            for (int column = 0; column < scoreColumns; ++column)
                stage.studio.score.NoteArray.write(
                    row, column, static_cast<std::int16_t>(55 + (row * 5 + column) % 50));
        for (int lane = 1; lane <= 8; ++lane)
            for (int column = 1; column < scoreColumns; column += 7)
                stage.studio.score.PolyArray.write(lane, column, 1);
        stage.studio.score.SelectStart = 20;
        stage.studio.score.SelectEnd = 60;
        stage.studio.score.StartColumn = 70;
        stage.resize(1600, 900);
    }

    scripted::TableauStage stage;
};

void wholeRedraw(benchmark::State& state) {
    FullTableau tableau;
    for (auto _ : state)
        tableau.stage.music.DrawNoteArray();
}

/// The yardstick: the bands and lines of the same picture, without notes.
void bareGrid(benchmark::State& state) {
    QImage image(1600, 900, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), Qt::white);
        for (int y = 0; y < 900; y += 33)
            painter.fillRect(0, y, 1600, 12, QColor(224, 224, 224));
        painter.setPen(QColor(68, 204, 255));
        for (int x = 0; x < 1600; x += 12)
            painter.drawLine(x, 0, x, 899);
    }
}

void wholeRedrawOfAllThree(benchmark::State& state) {
    FullTableau tableau;
    for (auto _ : state) {
        tableau.stage.music.DrawNoteArray();
        tableau.stage.percussion.DrawBeatArray();
        tableau.stage.poly.DrawPolyTableau();
    }
}

void scrollByOneColumn(benchmark::State& state) {
    FullTableau tableau;
    QScrollBar& bar = *tableau.stage.area.HScroll1;
    for (auto _ : state)
        bar.setValue(bar.value() < bar.maximum() ? bar.value() + 1 : bar.minimum());
}

void scrollByOneLine(benchmark::State& state) {
    FullTableau tableau;
    QScrollBar& bar = *tableau.stage.area.VScroll1;
    for (auto _ : state)
        bar.setValue(bar.value() < bar.maximum() ? bar.value() + 1 : bar.minimum());
}

/// One frame of scrolling with the thumb: drawn, and painted into the memory of the window.
void shownScroll(benchmark::State& state) {
    FullTableau tableau;
    tableau.stage.area.show();
    QApplication::processEvents();
    QScrollBar& bar = *tableau.stage.area.HScroll1;
    for (auto _ : state) {
        bar.setValue(bar.value() < bar.maximum() ? bar.value() + 1 : bar.minimum());
        QApplication::processEvents();
    }
}

/// Moves the playing marker, one column per step.
class MarkerWalk {
public:
    explicit MarkerWalk(MusicTableau& music) : music_(music) { music_.GetColumn(column_); }

    void step() {
        music_.PutColumn(column_);
        column_ = (column_ + 1) % 100;
        music_.GetColumn(column_);
        music_.drawPlayMarker(column_);
    }

private:
    MusicTableau& music_;
    int column_ = 0;
};

void shownMarkerStep(benchmark::State& state) {
    FullTableau tableau;
    tableau.stage.area.show();
    QApplication::processEvents();
    MarkerWalk marker(tableau.stage.music);
    for (auto _ : state) {
        marker.step();
        QApplication::processEvents();
    }
}

void markerStep(benchmark::State& state) {
    FullTableau tableau;
    MarkerWalk marker(tableau.stage.music);
    for (auto _ : state)
        marker.step();
}

void dragStep(benchmark::State& state) {
    FullTableau tableau;
    Picture& picture = tableau.stage.area.MusicBox->picture;
    tableau.stage.music.GetRow(30);
    int column = 0;
    for (auto _ : state) {
        column = (column + 1) % 100;
        tableau.stage.music.PutRow(30);
        picture.outlineBox(1, 364, column * 12 + 10, 367, rgb(255, 0, 0));
        picture.noteHead(0, 360, rgb(255, 0, 0));
    }
}

void layout(benchmark::State& state) {
    FullTableau tableau;
    int width = 1600;
    for (auto _ : state) {
        width = width == 1600 ? 1590 : 1600;
        tableau.stage.resize(width, 900);
    }
}

BENCHMARK(bareGrid)->Unit(benchmark::kMicrosecond);
BENCHMARK(wholeRedraw)->Unit(benchmark::kMicrosecond);
BENCHMARK(wholeRedrawOfAllThree)->Unit(benchmark::kMicrosecond);
BENCHMARK(scrollByOneColumn)->Unit(benchmark::kMicrosecond);
BENCHMARK(scrollByOneLine)->Unit(benchmark::kMicrosecond);
BENCHMARK(shownScroll)->Unit(benchmark::kMicrosecond);
BENCHMARK(shownMarkerStep)->Unit(benchmark::kMicrosecond);
BENCHMARK(markerStep)->Unit(benchmark::kMicrosecond);
BENCHMARK(dragStep)->Unit(benchmark::kMicrosecond);
BENCHMARK(layout)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
