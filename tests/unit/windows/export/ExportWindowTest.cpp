// The Export window: what its controls do, and what becomes of the file.
#include "windows/export/ExportWindow.h"
#include "support/FullDisk.h"
#include "support/ToolStage.h"
#include "windows/export/ExportTool.h"
#include "windows/frame/Look.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QCoreApplication>
#include <QTest>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

namespace fs = std::filesystem;

/// Places of the kinds on the cards.
constexpr std::size_t wav = 1;
constexpr std::size_t midi = 2;
constexpr std::size_t page = 3;
constexpr std::size_t picture = 4;

struct ExportWindowTest : testing::Test, scripted::ToolStage {
    ExportWindowTest() {
        applyLook(*qApp);
        windows.add(Tool::exporting, tool);
        studio.run.SongsFolder = host.folder.path().string();
        draw(0, 0, 60);
        draw(0, 4, 55);
    }

    void draw(int row, int column, int pitch) {
        studio.score.NoteArray.write(row, column, static_cast<std::int16_t>(pitch));
        studio.score.InstrumentArray.write(row, column, 115);
    }
    void holdNote(int row, int from, int to, int pitch) {
        draw(row, from, pitch);
        for (int column = from + 1; column <= to; ++column)
            draw(row, column, 1000 + pitch);
    }

    ExportWindow& shown() {
        tool.open();
        ExportWindow& window = tool.form();
        processUntil([&] { return !window.size->text().isEmpty(); });
        return window;
    }
    static void processUntil(const std::function<bool()>& isDone) {
        while (!isDone())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    ExportWindow& shownFor(std::size_t kind, const char* name) {
        ExportWindow& window = shown();
        window.cards.at(kind)->click();
        window.name->setText(QString::fromLatin1(name));
        return window;
    }
    /// Presses the button and waits for the end of the work.
    static void exportAll(ExportWindow& window) {
        window.foot->exports->click();
        processUntil([&] { return !window.isWorking(); });
    }
    static std::vector<std::string> words(ExportWindow& window) {
        std::vector<std::string> texts;
        for (QLabel* const label : window.findChildren<QLabel*>())
            if (label->isVisible() && label->y() >= 296 && !label->text().isEmpty())
                texts.push_back(label->text().toStdString());
        return texts;
    }
    [[nodiscard]] std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(host.folder.path()))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    [[nodiscard]] std::string content(const char* name) const {
        std::ifstream in(host.folder.path() / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    ExportTool tool{session, windows, {}};
};

TEST_F(ExportWindowTest, OpensWithTheNameOfTheScoreAndTheFolderOfSongs) {
    studio.score.CurrentFileName = "/songs/paper-boat.sng";
    ExportWindow& window = shown();
    EXPECT_EQ(window.name->text(), "paper-boat");
    EXPECT_EQ(window.target(), host.folder.path() / "paper-boat.mp3");
    EXPECT_EQ(window.ending->text(), ".mp3");
    EXPECT_TRUE(window.cards[0]->isChecked());
    EXPECT_EQ(window.quality->currentText(), "Good for listening (192 kbit/s)");
    EXPECT_EQ(window.tail->text(), "then 2 seconds to ring out");
    EXPECT_EQ(window.foot->exports->text(), "Export");
    EXPECT_THAT(words(window),
                ElementsAre("The song as it sounds when it plays: true speed, chords and volumes.",
                            "The song can play meanwhile."));
}

TEST_F(ExportWindowTest, AScoreWithoutANameIsUntitledAndATypedNameStays) {
    ExportWindow& window = shown();
    EXPECT_EQ(window.name->text(), "Untitled");
    studio.score.CurrentFileName = "boat.sng";
    tool.songChanged();
    EXPECT_EQ(window.name->text(), "boat");
    window.name->setText("mine");
    studio.score.CurrentFileName = "mill.sng";
    tool.songChanged();
    EXPECT_EQ(window.name->text(), "mine");
}

TEST_F(ExportWindowTest, LengthFollowsTheScore) {
    ExportWindow& window = shown();
    EXPECT_EQ(window.length->text(), "0:00"); // six columns of 0.12 s
    holdNote(0, 8, 99, 55);
    tool.songChanged();
    processUntil([&] { return window.length->text() == "0:12"; }); // 101 columns
    window.cards[picture]->click();
    EXPECT_EQ(window.length->text(), "101 columns");
    EXPECT_EQ(window.tail->text(), "");
}

TEST_F(ExportWindowTest, WithoutANameNothingIsExported) {
    ExportWindow& window = shownFor(midi, "  ");
    EXPECT_FALSE(window.foot->exports->isEnabled());
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_FALSE(window.isWorking());
    EXPECT_THAT(files(), IsEmpty());
}

TEST_F(ExportWindowTest, MakesTheFileAndSaysSo) {
    ExportWindow& window = shownFor(midi, "boat");
    exportAll(window);
    EXPECT_THAT(files(), ElementsAre("boat.mid"));
    EXPECT_EQ(content("boat.mid").substr(0, 4), "MThd");
    EXPECT_THAT(words(window), ElementsAre("boat.mid is ready", "0:00  \u00b7  1 KB  \u00b7  in " +
                                                                    host.folder.path().string()));
    EXPECT_EQ(window.foot->exports->text(), "Export again");
    EXPECT_EQ(window.ending->text(), ".mid");
}

TEST_F(ExportWindowTest, ExportAgainMakesTheSameFileFromTheChangedScore) {
    ExportWindow& window = shownFor(midi, "boat");
    exportAll(window);
    const std::string before = content("boat.mid");
    draw(1, 2, 50);
    exportAll(window);
    EXPECT_GT(content("boat.mid").size(), before.size());
    EXPECT_THAT(files(), ElementsAre("boat.mid"));
}

TEST_F(ExportWindowTest, AFileThatIsThereIsReplacedOnlyByAButtonThatSaysSo) {
    std::ofstream(host.folder.path() / "boat.mid") << "mine";
    ExportWindow& window = shownFor(midi, "boat");
    EXPECT_EQ(window.ending->text(), "there already");
    EXPECT_EQ(window.foot->exports->text(), "Replace");
    exportAll(window);
    EXPECT_EQ(content("boat.mid").substr(0, 4), "MThd");
}

TEST_F(ExportWindowTest, AFileThatAppearsMeanwhileIsNotReplacedByThePressOnExport) {
    ExportWindow& window = shownFor(midi, "boat");
    std::ofstream(host.folder.path() / "boat.mid") << "mine";
    window.foot->exports->click();
    EXPECT_FALSE(window.isWorking());
    EXPECT_EQ(window.foot->exports->text(), "Replace");
    EXPECT_EQ(content("boat.mid"), "mine");
}

TEST_F(ExportWindowTest, WorksOnACopySoTheScoreMayChangeMeanwhile) {
    ExportWindow& window = shownFor(midi, "one");
    exportAll(window);
    window.name->setText("two");
    window.foot->exports->click();
    for (int column = 0; column < 5; ++column)
        draw(0, column, -1);
    processUntil([&] { return !window.isWorking(); });
    EXPECT_EQ(content("two.mid").size(), content("one.mid").size());
}

TEST_F(ExportWindowTest, WhatIsHiddenInTheSetupIsLeftOut) {
    ExportWindow& window = shownFor(midi, "all");
    exportAll(window);
    draw(1, 2, 50);
    studio.setup.values.options.rows[1].hidden = true;
    window.name->setText("hidden");
    exportAll(window);
    EXPECT_EQ(content("hidden.mid").size() - std::string("hidden").size(),
              content("all.mid").size() - std::string("all").size());
}

TEST_F(ExportWindowTest, ASoundThatIsCancelledLeavesNothingBehind) {
    holdNote(0, 8, 999, 55);
    ExportWindow& window = shownFor(wav, "long");
    window.foot->exports->click();
    EXPECT_TRUE(window.isWorking());
    EXPECT_FALSE(window.name->isEnabled());
    EXPECT_FALSE(window.cards[wav]->isEnabled());
    EXPECT_TRUE(window.foot->cancel->isVisible());
    EXPECT_FALSE(window.foot->exports->isVisible());
    window.foot->cancel->click();
    processUntil([&] { return !window.isWorking(); });
    EXPECT_THAT(files(), IsEmpty());
    EXPECT_EQ(words(window).front(), "Stopped. Nothing was left behind.");
    EXPECT_TRUE(window.name->isEnabled());
}

TEST_F(ExportWindowTest, AClosedWindowGivesTheFileUp) {
    holdNote(0, 8, 999, 55);
    shownFor(wav, "long").foot->exports->click();
    tool.unload();
    processUntil([&] { return !tool.jobs.isRunning(1) && !tool.jobs.isRunning(2); });
    EXPECT_THAT(files(), IsEmpty());
    EXPECT_FALSE(shown().isWorking());
}

TEST_F(ExportWindowTest, AFullDiskIsOneSentenceAndTheOldFileStays) {
    std::ofstream(host.folder.path() / "boat.mid") << "mine";
    ExportWindow& window = shownFor(midi, "boat");
    {
        const host::test::FullDisk full(10);
        exportAll(window);
    }
    EXPECT_EQ(words(window).back(), "boat.mid cannot be written: File too large.");
    EXPECT_EQ(window.foot->exports->text(), "Replace");
    EXPECT_EQ(content("boat.mid"), "mine");
    EXPECT_THAT(files(), ElementsAre("boat.mid"));
}

TEST_F(ExportWindowTest, AMissingFolderIsOneSentence) {
    ExportWindow& window = shownFor(midi, "boat");
    window.folder->setText("/nowhere/at all");
    window.foot->exports->click();
    EXPECT_EQ(words(window).back(), "There is no folder \"/nowhere/at all\".");
    window.folder->setText(QString::fromStdString(host.folder.path().string()));
    EXPECT_EQ(words(window).front(), "The notes, for other music programs and instruments.");
    exportAll(window);
    EXPECT_THAT(files(), ElementsAre("boat.mid"));
}

TEST_F(ExportWindowTest, TheLastChoicesAreThereAgainInTheNextRun) {
    fs::create_directory(host.folder.path() / "Music");
    ExportWindow& window = shownFor(picture, "boat");
    window.folder->setText(QString::fromStdString((host.folder.path() / "Music").string()));
    window.quality->setCurrentIndex(1);
    Q_EMIT window.quality->activated(1);
    exportAll(window);
    tool.unload();
    ExportWindow& again = shown();
    EXPECT_TRUE(again.cards[picture]->isChecked());
    EXPECT_EQ(again.quality->currentText(), "True size");
    EXPECT_EQ(again.target().parent_path(), host.folder.path() / "Music");
    tool.unload();
    fs::remove_all(host.folder.path() / "Music");
    EXPECT_EQ(shown().target().parent_path(), host.folder.path()) << "the folder is gone";
}

TEST_F(ExportWindowTest, DamagedSettingsAreTheFirstChoices) {
    host.settings.SaveSetting("Settings", "export kind", "cassette");
    host.settings.SaveSetting("Settings", "export quality mp3", "17");
    host.settings.SaveSetting("Settings", "export quality wav", "x");
    ExportWindow& window = shown();
    EXPECT_TRUE(window.cards[0]->isChecked());
    EXPECT_EQ(window.quality->currentIndex(), 0);
}

TEST_F(ExportWindowTest, TheDialogGivesNameAndFolder) {
    ExportWindow& window = shownFor(midi, "boat");
    const std::string chosen = (host.folder.path() / "other.mid").string();
    host.dialogs.answers = {platform::FileDialogAnswer{chosen, 1}, std::nullopt};
    window.choose->click();
    EXPECT_EQ(window.name->text(), "other");
    EXPECT_EQ(window.target(), chosen);
    window.choose->click();
    EXPECT_EQ(window.target(), chosen) << "a dialog that is cancelled changes nothing";
}

TEST_F(ExportWindowTest, APictureIsOpenedAndShownByTheDesktopAndAMidiFileIsPlayedHere) {
    std::vector<std::string> played;
    tool.onPlay = [&](const std::string& path) { played.push_back(path); };
    ExportWindow& window = shownFor(picture, "boat");
    exportAll(window);
    const std::string path = (host.folder.path() / "boat").string();
    EXPECT_EQ(window.foot->play->text(), "Open");
    window.foot->play->click();
    window.foot->showInFolder->click();
    EXPECT_THAT(host.desktop.programs,
                ElementsAre("file " + path + ".png", "folder " + path + ".png"));
    window.cards[midi]->click();
    exportAll(window);
    EXPECT_EQ(window.foot->play->text(), "Play");
    window.foot->play->click();
    EXPECT_THAT(played, ElementsAre(path + ".mid"));
}

TEST_F(ExportWindowTest, ArrowKeysChooseAnotherCardAndEnterExports) {
    ExportWindow& window = shownFor(midi, "boat");
    window.cards[midi]->setFocus();
    QTest::keyClick(window.cards[midi], Qt::Key_Right);
    EXPECT_TRUE(window.cards[page]->isChecked());
    QTest::keyClick(window.cards[page], Qt::Key_Left);
    EXPECT_TRUE(window.cards[midi]->isChecked());
    EXPECT_EQ(window.cards[picture]->focusPolicy() & Qt::TabFocus, 0);
    QTest::keyClick(window.name, Qt::Key_Return);
    EXPECT_TRUE(window.isWorking());
    processUntil([&] { return !window.isWorking(); });
    EXPECT_THAT(files(), ElementsAre("boat.mid"));
}

TEST_F(ExportWindowTest, ASongPageAndASoundAreMade) {
    ExportWindow& window = shownFor(page, "boat");
    exportAll(window);
    window.cards[wav]->click();
    exportAll(window);
    EXPECT_THAT(files(), ElementsAre("boat.html", "boat.wav"));
    EXPECT_EQ(content("boat.wav").substr(0, 4), "RIFF");
}

} // namespace
} // namespace velorin
