// The converter's window: what its controls, keys and drops do.
#include "windows/converter/ConverterWindow.h"
#include "ConverterStage.h"
#include "support/walk/TabWalkChecks.h"
#include "windows/converter/ConverterKeys.h"
#include "windows/frame/Look.h"
#include "windows/texts/ControlTable.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFile>
#include <QMimeData>
#include <QTest>

#include <map>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

/// Settings in memory.
class KeptSettings final : public platform::Settings {
public:
    std::string GetSetting(const std::string&, const std::string& key,
                           const std::string& fallback) override {
        const auto found = values.find(key);
        return found != values.end() ? found->second : fallback;
    }
    void SaveSetting(const std::string&, const std::string& key,
                     const std::string& value) override {
        values[key] = value;
    }
    std::map<std::string, std::string> values;
};

struct ConverterWindowTest : testing::Test, ConverterStage {
    ConverterWindowTest() {
        applyLook(*qApp);
        make();
    }

    void make() {
        ConverterDesk desk;
        desk.chooseFiles = [this] { return chosenFiles; };
        desk.chooseFolder = [this](const std::string&) { return chosenFolder; };
        desk.ask = [this](const platform::BoxQuestion& question) {
            calls.push_back(question.text);
            return answer;
        };
        desk.openInVelorin = [this](const std::string& file) { call("velorin", file); };
        desk.openFile = [this](const std::string& file) { call("play", file); };
        desk.showInFolder = [this](const std::string& file) { call("show", file); };
        desk.openHelp = [this] { calls.emplace_back("help"); };
        window = std::make_unique<ConverterWindow>(desk, settings, fs::path());
        window->resize(ConverterWindow::firstSize);
        window->show();
    }
    void call(const char* what, const std::string& file) {
        calls.push_back(std::string(what) + " " + fs::path(file).filename().string());
    }
    void add(const std::vector<fs::path>& paths) {
        const int before = window->queue.rowCount();
        window->add(paths);
        processUntil([&] { return window->queue.rowCount() > before; });
    }
    void waitForEnd() {
        processUntil([this] { return !window->queue.isWorking(); });
    }
    void makeAll(int kind) {
        window->kind->setCurrentIndex(kind);
        window->startButton->click();
        waitForEnd();
    }
    [[nodiscard]] std::string words() const { return window->words->text().toStdString(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window.get(), key, modifiers);
    }
    [[nodiscard]] QPoint inRow(int row, QPoint place) const {
        return window->files->visualRect(window->queue.index(row)).topLeft() + place;
    }
    /// Drags files over the window and drops them. False if the window refuses them.
    bool dropFiles(const std::vector<fs::path>& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const fs::path& path : paths)
            urls << QUrl::fromLocalFile(QString::fromStdString(path.string()));
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(100, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window.get(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop(QPointF(100, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window.get(), &drop);
        return drop.isAccepted();
    }

    std::vector<std::string> chosenFiles;
    std::optional<std::string> chosenFolder;
    bool answer = false;
    std::vector<std::string> calls;
    KeptSettings settings;
    std::unique_ptr<ConverterWindow> window;
};

TEST_F(ConverterWindowTest, EmptyWindowAsksForFiles) {
    EXPECT_TRUE(window->drop->isVisible());
    EXPECT_FALSE(window->files->isVisible());
    EXPECT_TRUE(window->note->isVisible());
    EXPECT_FALSE(window->startButton->isEnabled());
    EXPECT_FALSE(window->clearButton->isEnabled());
    EXPECT_EQ(window->drop->geometry(), QRect(8, 90, 744, 426));
    EXPECT_EQ(window->folder->currentText(), "the folder of each file");
}

TEST_F(ConverterWindowTest, ListTakesThePlaceOfTheEmptyPanel) {
    add({song("a.sng"), song("b.sng")});
    EXPECT_FALSE(window->drop->isVisible());
    EXPECT_EQ(window->files->geometry(), QRect(8, 90, 744, 424));
    EXPECT_EQ(words(), "2 files");
    EXPECT_TRUE(window->startButton->isEnabled());
    window->clearButton->click();
    EXPECT_TRUE(window->drop->isVisible());
}

TEST_F(ConverterWindowTest, MakesTheFilesAndSaysSo) {
    add({song("a.sng"), song("b.sng")});
    window->kind->setCurrentIndex(midi);
    window->startButton->click();
    EXPECT_EQ(window->startButton->text(), "Cancel");
    EXPECT_FALSE(window->kind->isEnabled());
    EXPECT_TRUE(window->windowTitle().endsWith(" % - Velorin Converter"));
    waitForEnd();
    EXPECT_EQ(words(), "2 of 2 made");
    EXPECT_EQ(window->percent->text(), "100 %");
    EXPECT_EQ(window->windowTitle(), "Velorin Converter");
    EXPECT_EQ(window->startButton->text(), "Start");
    EXPECT_FALSE(window->startButton->isEnabled());
    EXPECT_TRUE(begins("a.mid", "MThd"));
}

TEST_F(ConverterWindowTest, TotalCountsWhatHasFailed) {
    std::ofstream(folder / "noise.sng") << "no score\n";
    add({song("a.sng"), folder / "noise.sng"});
    makeAll(midi);
    EXPECT_EQ(words(), "1 of 2 made, 1 failed");
    EXPECT_TRUE(window->startButton->isEnabled());
}

TEST_F(ConverterWindowTest, AnotherKindMakesAllFilesWaitAgain) {
    add({song("a.sng")});
    makeAll(midi);
    window->kind->setCurrentIndex(4);
    Q_EMIT window->kind->activated(4);
    EXPECT_TRUE(window->startButton->isEnabled());
    EXPECT_EQ(settings.values["converter kind"], "picture");
    makeAll(4);
    EXPECT_TRUE(begins("a.png", "\x89PNG"));
}

TEST_F(ConverterWindowTest, ReportBelongsToTheRowOfTheCursor) {
    add({song("a.sng")});
    makeAll(midi);
    window->clearButton->click();
    add({folder / "a.mid", song("b.sng")});
    makeAll(wav);
    window->files->setCurrentIndex(window->queue.index(0));
    EXPECT_TRUE(window->report->isVisible());
    EXPECT_EQ(window->report->heading->text(), "a.mid, what became of it");
    EXPECT_EQ(window->report->geometry(), QRect(8, 388, 744, 126));
    EXPECT_EQ(window->files->geometry(), QRect(8, 90, 744, 290));
    window->report->close->click();
    EXPECT_FALSE(window->report->isVisible());
    window->files->setCurrentIndex(window->queue.index(1));
    EXPECT_FALSE(window->report->isVisible());
    window->files->setCurrentIndex(window->queue.index(0));
    EXPECT_TRUE(window->report->isVisible());
}

TEST_F(ConverterWindowTest, ButtonsOfARowTakeTheMouseWithoutTheCursor) {
    add({song("a.sng"), song("b.sng")});
    makeAll(midi);
    window->files->setCurrentIndex(window->queue.index(0));
    QWidget* const rows = window->files->viewport();
    QTest::mouseClick(rows, Qt::LeftButton, {}, inRow(1, {654, 18}));
    QTest::mouseClick(rows, Qt::LeftButton, {}, inRow(1, {684, 18}));
    QTest::mouseClick(rows, Qt::LeftButton, {}, inRow(1, {714, 18}));
    EXPECT_THAT(calls, ElementsAre("velorin b.sng", "play b.mid", "show b.mid"));
    EXPECT_EQ(window->files->currentIndex().row(), 0);
}

TEST_F(ConverterWindowTest, ButtonsOfTheCursorsRowAreControls) {
    add({song("a.sng")});
    const auto& buttons = window->files->buttons;
    EXPECT_TRUE(buttons[3]->isVisible()); // take out
    EXPECT_EQ(buttons[3]->geometry(), QRect(710, 97, 26, 24));
    makeAll(midi);
    EXPECT_FALSE(buttons[3]->isVisible());
    EXPECT_EQ(buttons[0]->geometry(), QRect(650, 97, 26, 24));
    EXPECT_EQ(buttons[0]->accessibleName(), "Open in Velorin");
    buttons[2]->click();
    EXPECT_THAT(calls, ElementsAre("show a.mid"));
}

TEST_F(ConverterWindowTest, KeysDoWhatTheButtonsDo) {
    add({song("a.sng"), song("b.sng")});
    window->files->setFocus();
    QTest::keyClick(window->files, Qt::Key_Delete);
    EXPECT_EQ(window->queue.rowCount(), 1);
    window->kind->setCurrentIndex(midi);
    QTest::keyClick(window->files, Qt::Key_Return);
    waitForEnd();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    key(Qt::Key_Return, Qt::ControlModifier);
    key(Qt::Key_P, Qt::ControlModifier);
    key(Qt::Key_F, Qt::ControlModifier);
    key(Qt::Key_F1);
    EXPECT_THAT(calls, ElementsAre("velorin b.sng", "play b.mid", "show b.mid", "help"));
}

TEST_F(ConverterWindowTest, EscapeCancels) {
    add({longSong("long.sng")});
    window->kind->setCurrentIndex(wav);
    window->start();
    processUntil([this] { return hasPart(); });
    key(Qt::Key_Escape);
    waitForEnd();
    EXPECT_EQ(words(), "0 of 1 made, stopped");
    EXPECT_THAT(files(), ElementsAre("long.sng"));
}

TEST_F(ConverterWindowTest, ChosenFilesAndFoldersAreAdded) {
    song("album/a.sng");
    song("album/b.sng");
    chosenFolder = (folder / "album").string();
    window->drop->chooseFolder->click();
    processUntil([this] { return window->queue.rowCount() == 2; });
    chosenFiles = {song("c.sng").string()};
    window->addButton->click();
    processUntil([this] { return window->queue.rowCount() == 3; });
    EXPECT_EQ(window->queue.file(2)->source.filename(), "c.sng");
}

TEST_F(ConverterWindowTest, WhatIsOfNoUseIsSaid) {
    std::ofstream(folder / "notes.txt") << "x";
    window->add({folder / "notes.txt"});
    processUntil([this] { return window->words->isVisible(); });
    EXPECT_EQ(words(), "There is no score, MIDI file or WAV file.");
    EXPECT_FALSE(window->note->isVisible());
}

TEST_F(ConverterWindowTest, DropIsTakenIfAnythingCanBeUsed) {
    std::ofstream(folder / "notes.txt") << "x";
    EXPECT_FALSE(dropFiles({folder / "notes.txt"}));
    EXPECT_TRUE(dropFiles({folder / "notes.txt", song("a.sng")}));
    processUntil([this] { return window->queue.rowCount() == 1; });
}

TEST_F(ConverterWindowTest, ChosenFolderIsRememberedWithTheKind) {
    fs::create_directories(folder / "made");
    chosenFolder = (folder / "made").string();
    Q_EMIT window->folder->activated(window->folder->count() - 1);
    EXPECT_TRUE(window->folder->currentText().endsWith("made"));
    window->kind->setCurrentIndex(midi);
    Q_EMIT window->kind->activated(midi);
    make();
    EXPECT_TRUE(window->folder->currentText().endsWith("made"));
    EXPECT_EQ(window->kind->currentIndex(), midi);
    add({song("a.sng")});
    makeAll(midi);
    EXPECT_TRUE(begins("made/a.mid", "MThd"));
    fs::remove_all(folder / "made");
    make();
    EXPECT_EQ(window->folder->currentText(), "the folder of each file");
}

TEST_F(ConverterWindowTest, ClosingAtWorkAsksFirst) {
    add({longSong("long.sng")});
    window->kind->setCurrentIndex(wav);
    window->start();
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_THAT(calls, ElementsAre("Made: 0 of 1 file. Stop before the rest?"));
    answer = true;
    window->close();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ConverterWindowTest, NarrowWindowTakesFromTheFoldersFirst) {
    window->resize(634, 572);
    EXPECT_EQ(window->folder->width(), 160);
    EXPECT_EQ(window->kind->width(), 240);
    window->resize(600, 420);
    EXPECT_EQ(window->folder->width(), 160);
    EXPECT_EQ(window->kind->width(), 206);
    EXPECT_EQ(window->startButton->geometry(), QRect(490, 378, 102, 30));
}

TEST_F(ConverterWindowTest, PartsOfARowStandInTheirPlaces) {
    const RowParts parts(QRect(0, 36, 742, 36));
    EXPECT_EQ(parts.state, QRect(11, 46, 16, 16));
    EXPECT_EQ(parts.name, QRect(39, 38, 364, 18));
    EXPECT_EQ(parts.words, QRect(39, 54, 364, 15));
    EXPECT_EQ(parts.result, QRect(411, 36, 224, 36));
    EXPECT_EQ(parts.bar, QRect(411, 49, 200, 10));
    EXPECT_EQ(parts.percent, QRect(619, 36, 44, 36));
    EXPECT_EQ(parts.button(RowButton::play), QRect(671, 42, 26, 24));
}

// The edges are for a mouse; the window manager has keys for them. The cursor's row has the buttons
// of all rows.
TEST_F(ConverterWindowTest, TabReachesEverythingInReadingOrder) {
    expectWalk(*window);
    add({song("a.sng"), song("b.sng")});
    expectWalk(*window);
    makeAll(wav);
    expectWalk(*window);
    EXPECT_THAT(crowdedTargets(*window), IsEmpty());
}

TEST_F(ConverterWindowTest, EveryRowOfTheTableIsAControl) {
    QStringList names;
    for (const QWidget* const control : window->findChildren<QWidget*>())
        names << control->objectName();
    for (const ControlText& row : converterTexts().controls)
        EXPECT_TRUE(names.contains(QLatin1String(row.control))) << row.control;
}

TEST_F(ConverterWindowTest, HelpAndManualPageHaveTheKeys) {
    QFile page(QStringLiteral(VELORIN_SOURCES "/src/resources/help/converter.html"));
    QFile manual(QStringLiteral(VELORIN_SOURCES "/packaging/man/velorin-converter.1"));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly) && manual.open(QIODevice::ReadOnly));
    const QByteArray html = page.readAll();
    const QByteArray text = manual.readAll();
    for (const ConverterKey& key : converterKeys) {
        EXPECT_TRUE(html.contains(QByteArray("<b>") + key.keys + "</b></td><td>" + key.meaning))
            << key.keys;
        EXPECT_TRUE(text.contains(QByteArray("\n.B ") + key.keys + "\n" + key.meaning)) << key.keys;
    }
}

} // namespace
} // namespace velorin
