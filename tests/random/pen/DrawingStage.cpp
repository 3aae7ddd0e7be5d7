// The program on a scripted host, with a user who draws.
#include "DrawingStage.h"

#include "windows/pen/Pen.h"
#include "windows/setup/Form3.h"
#include "windows/texts/ButtonNumbers.h"

#include <QApplication>
#include <QComboBox>
#include <QCryptographicHash>
#include <QKeyEvent>

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace randomly {

using velorin::Tableau;

namespace {

constexpr scripted::Nanoseconds beforeDrawing = 300'000'000;
constexpr scripted::Nanoseconds beforeStop = 900'000'000;

std::string hashOf(const QImage& image) {
    QCryptographicHash hash(QCryptographicHash::Md5);
    for (int y = 0; y < image.height(); ++y)
        hash.addData(QByteArray::fromRawData(reinterpret_cast<const char*>(image.constScanLine(y)),
                                             static_cast<qsizetype>(image.width()) * 4));
    return std::to_string(image.width()) + "x" + std::to_string(image.height()) + " " +
           hash.result().toHex().toStdString();
}

/// "row:column=value" for each cell that is not `empty`.
template <class Grid>
std::string cellsOf(const Grid& grid, int empty) {
    std::string text;
    for (int row = 0; row < Grid::rows; ++row)
        for (int column = 0; column < Grid::columns; ++column)
            if (grid.at(row, column) != empty)
                text += std::string(" ") + std::to_string(row) + ":" + std::to_string(column) +
                        "=" + std::to_string(grid.at(row, column));
    return text;
}

std::string textOf(const velorin::Place& place) {
    return std::to_string(place.column) + "," + std::to_string(place.line);
}

} // namespace

std::string Drawing::text() const {
    std::string text = std::string("tableau ") + std::to_string(static_cast<int>(tableau)) +
                       ", button " + std::to_string(button) + (isWhilePlaying ? ", playing" : "") +
                       ", scrolled " + std::to_string(scrolled[0]) + " " +
                       std::to_string(scrolled[1]) + ", from " + textOf(press);
    for (const velorin::Place& place : path)
        text += std::string(" ") + textOf(place);
    for (const Setting& setting : settings)
        text += std::string("; setting ") + std::to_string(static_cast<int>(setting.kind)) + " " +
                std::to_string(setting.value);
    return text;
}

DrawingStage::DrawingStage() {
    program.start();
    form().resize(640, 480);
    program.setup.form().hide(); // loaded, and not in the way
    QApplication::processEvents();
    QApplication::setActiveWindow(&form());
    QApplication::processEvents();
    if (!form().isActiveWindow())
        std::fprintf(stderr, "the main window is not active\n");
    host.midi.log.clear();
    host.time.restart();
}

DrawingStage::~DrawingStage() {
    host.time.dropPlanned();
    program.Command3_Click();
    QApplication::processEvents();
}

velorin::Form1& DrawingStage::form() {
    return program.form1();
}

void DrawingStage::set(const Setting& setting) {
    static constexpr std::array modes{velorin::editMode::draw, velorin::editMode::draw,
                                      velorin::editMode::marker, velorin::editMode::select};
    static constexpr std::array rightClicks{"mnuerase", "mnuerase", "mnuMenu", "mnuPoli"};
    static constexpr std::array rows{0, 0, 1, 2, 5, 7, 8, 8, 10, 11, 12};
    const auto among = [&](const auto& items) {
        return items[static_cast<std::size_t>(setting.value) % items.size()];
    };
    velorin::Setup& setup = program.studio().setup;
    switch (setting.kind) {
    case Setting::Kind::mode:
        return form().musicMouse.FunctionBut_Click(among(modes));
    case Setting::Kind::rightClick:
        return form().menus.click(among(rightClicks));
    case Setting::Kind::row:
        setup.TrackSel_MouseDown(among(rows));
        return setup.setTrackSel(among(rows), true);
    case Setting::Kind::drum:
        return program.setup.form().findChild<QComboBox*>("Combo5")->setCurrentIndex(setting.value %
                                                                                     47);
    case Setting::Kind::hidden:
        return setup.setTrackHide(among(rows), setting.value % 3 == 0);
    case Setting::Kind::strip:
        return form().desk.setBeatboxHeight(12 * (setting.value % 5 + 1));
    case Setting::Kind::lanes:
        if (setting.value % 4 == 0)
            form().menus.click("mnuPolyphonics");
        return;
    case Setting::Kind::size:
        return form().resize(520 + setting.value % 600, 380 + setting.value % 300);
    case Setting::Kind::count:
        return;
    }
}

void DrawingStage::sendKey(int type, int key, int modifiers, bool isRepeat) {
    const auto held = static_cast<Qt::KeyboardModifiers>(modifiers);
    QWidget* const holder = form().focusWidget() != nullptr ? form().focusWidget() : &form();
    if (type == QEvent::KeyPress) {
        QKeyEvent question(QEvent::ShortcutOverride, key, held, {}, isRepeat);
        question.ignore();
        QApplication::sendEvent(holder, &question);
    }
    QKeyEvent event(static_cast<QEvent::Type>(type), key, held, {}, isRepeat);
    QApplication::sendEvent(holder, &event);
}

void DrawingStage::tabTo(Tableau tableau) {
    constexpr int mostStops = 60;
    const QWidget* const box = form().pen->strokes().box(tableau);
    for (int i = 0; i < mostStops && form().focusWidget() != box; ++i) {
        sendKey(QEvent::KeyPress, Qt::Key_Tab);
        sendKey(QEvent::KeyRelease, Qt::Key_Tab);
    }
}

void DrawingStage::drawNow(Drawing& drawing, Hand& hand) {
    hand.press(drawing);
    hand.move(drawing);
    look();
    hand.release(drawing);
    program.history.changeFinished();
    look();
}

/// The song plays inside the press of its button, and the drawing inside its waits.
void DrawingStage::drawWhilePlaying(Drawing& drawing, Hand& hand) {
    bool isDrawn = false;
    const int draws = host.time.plan(beforeDrawing, [&] {
        isDrawn = true;
        drawNow(drawing, hand);
    });
    const int stops =
        host.time.plan(beforeStop, [this] { form().Cmd2_Click(velorin::mainButton::stop); });
    form().Cmd2_Click(velorin::mainButton::play);
    host.time.cancel(draws);
    host.time.cancel(stops);
    if (!isDrawn)
        drawNow(drawing, hand);
}

void DrawingStage::draw(Drawing& drawing, Hand& hand) {
    for (const Setting& setting : drawing.settings)
        set(setting);
    if (form().pen->reach(drawing.tableau).isEmpty())
        drawing.tableau = Tableau::music;
    tabTo(drawing.tableau);
    hand.scroll(drawing);
    if (drawing.isWhilePlaying)
        drawWhilePlaying(drawing, hand);
    else
        drawNow(drawing, hand);
}

void DrawingStage::look() {
    const velorin::Studio& studio = program.studio();
    const velorin::Score& score = studio.score;
    velorin::Picmain& area = *form().area;
    std::string text = std::string("notes") + cellsOf(score.NoteArray, velorin::emptyCell) +
                       "\ninstruments" + cellsOf(score.InstrumentArray, 0) + "\nmarks" +
                       cellsOf(score.PolyArray, 0);
    text += std::string("\nrow ") + std::to_string(score.CurrentRow) + ", selection " +
            std::to_string(score.SelectStart) + " " + std::to_string(score.SelectEnd) +
            ", marker " + std::to_string(score.StartColumn) + ", view " +
            std::to_string(studio.view.FirstColumn) + " " + std::to_string(studio.view.TopPitch) +
            ", held " + (studio.drag.MouseHeld.isSet() ? "1" : "0") + ", undo '" +
            program.history.undoText() + "', menus " + std::to_string(host.menus.log.size()) +
            "\nMIDI";
    for (const std::string& message : host.midi.log)
        text += "; " + message;
    text += std::string("\nmusic ") + hashOf(area.MusicBox->picture.image()) + "\nstrip " +
            hashOf(area.Beatbox->picture.image()) + "\nlanes " + hashOf(area.Pic1->picture.image());
    host.midi.log.clear();
    host.menus.log.clear();
    looks.push_back(text);
}

} // namespace randomly
