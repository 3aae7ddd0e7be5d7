// The window of the Recording Toolbar: its load and its end, its clicks, and its controls as the
// logic uses them.
#include "windows/recording/Record.h"

#include "../../recording/RecordingStage.h"
#include "support/ToolStage.h"
#include "windows/frame/PictureButton.h"
#include "windows/frame/PicturedPush.h"
#include "windows/recording/MakingPanel.h"
#include "windows/recording/RecordingToolbar.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include <fstream>

namespace velorin {
namespace {

class RecordWindow : public testing::Test, protected scripted::ToolStage {
protected:
    RecordWindow() { studio.desk = &mainDesk; }

    LoggedDesk mainDesk;
    RecordingToolbar toolbar{session, windows};

    void click(QWidget* control) {
        QTest::mouseClick(control, Qt::LeftButton, {}, control->rect().center());
    }
    [[nodiscard]] std::string setting(const char* key) {
        return host.settings.find("Settings", key).value_or("none");
    }
};

TEST_F(RecordWindow, IsLoadedByTheFirstUseOfAControlAndStaysHidden) {
    EXPECT_EQ(toolbar.window(), nullptr);
    EXPECT_EQ(toolbar.caption(RecordCaption::Label1), "Start Recording");
    ASSERT_NE(toolbar.window(), nullptr);
    EXPECT_FALSE(toolbar.window()->isVisible());
    EXPECT_EQ(studio.run.RecordToolbarOpen, flagSet);
}

TEST_F(RecordWindow, BeginsEveryRunWithTheEighthFormat) {
    EXPECT_EQ(toolbar.listIndex(RecordList::cbxFormat), 7);
    EXPECT_EQ(toolbar.form().cbxFormat->count(), 9);
    EXPECT_EQ(setting("WAV format"), "7");
    toolbar.form().cbxFormat->setCurrentIndex(2);
    EXPECT_EQ(setting("WAV format"), "2");
}

TEST_F(RecordWindow, TrackHasALineAroundItAndTheBarFillsItsPart) {
    toolbar.form().L2->setBarWidth(126);
    const QImage shown = toolbar.form().P2->grab().toImage();
    const QRgb line = qRgb(68, 74, 134);
    EXPECT_EQ(shown.pixel(60, 0), line);
    EXPECT_EQ(shown.pixel(200, 0), line);
    EXPECT_EQ(shown.pixel(200, 6), qRgb(25, 28, 64));
    EXPECT_GT(qBlue(shown.pixel(60, 6)), 200);
    EXPECT_EQ(shown.pixel(126, 6), qRgb(25, 28, 64));
}

TEST_F(RecordWindow, WritesBothBoxesUnderOneKey) {
    toolbar.form().Check2->setChecked(false);
    toolbar.unload();
    EXPECT_EQ(setting("Delete WAV"), "1");
    EXPECT_EQ(setting("autoencode"), "none");
    EXPECT_TRUE(toolbar.isChecked(RecordCheck::Check2));
    EXPECT_TRUE(mainDesk.check1);
}

TEST_F(RecordWindow, ClosesEveryDeviceWithItself) {
    const QPointer<QWidget> closed = &toolbar.load();
    host.mci.log.clear();
    click(toolbar.form().imgTitleClose);
    EXPECT_EQ(host.mci.log, (Lines{"0.000 stop sound", "0.000 close sound", "0.000 stop capture",
                                   "0.000 close capture", "0.000 stop midi", "0.000 close midi",
                                   "0.000 Stop audiomp3", "0.000 Close audiomp3"}));
    EXPECT_EQ(toolbar.window(), nullptr);
    EXPECT_EQ(studio.run.RecordToolbarOpen, flagClear);
    EXPECT_NE(closed, nullptr) << "the handler of its own button is done first";
    QCoreApplication::processEvents();
    EXPECT_EQ(closed, nullptr);
}

TEST_F(RecordWindow, RecordsByItsLabelWithMouseOrKey) {
    click(toolbar.form().Label1);
    EXPECT_EQ(toolbar.caption(RecordCaption::Label1), "Stop Recording");
    EXPECT_EQ(toolbar.form().rec->picture(), RecordPicture::RecNT);
    toolbar.form().Check2->setChecked(false);
    QTest::keyClick(toolbar.form().Label1, Qt::Key_Space);
    EXPECT_EQ(toolbar.caption(RecordCaption::Label1), "Start Recording");
    EXPECT_EQ(toolbar.form().rec->picture(), RecordPicture::RecUP);
}

TEST_F(RecordWindow, DoesNotRecordOnAPressThatIsReleasedElsewhere) {
    LabelButton* label = toolbar.form().Label1;
    QTest::mousePress(label, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseRelease(label, Qt::LeftButton, {}, QPoint(5, 500));
    EXPECT_EQ(toolbar.caption(RecordCaption::Label1), "Start Recording");
}

TEST_F(RecordWindow, ShowsItsImagePressedWhileItIsHeld) {
    RecordImage* rec = toolbar.form().rec;
    host.mci.log.clear();
    QTest::mousePress(rec, Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(rec->picture(), RecordPicture::RecDN);
    QTest::mouseRelease(rec, Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(rec->picture(), RecordPicture::RecUP);
    EXPECT_EQ(host.mci.log, (Lines{"0.000 stop capture", "0.000 save capture ",
                                   "0.000 close capture", "0.000 stop sound", "0.000 close sound",
                                   "0.000 stop midi", "0.000 close midi", "0.000 close all"}));
    EXPECT_TRUE(mainDesk.log.empty()) << "the output is not renewed";
}

TEST_F(RecordWindow, MovesTheBarInItsTrack) {
    const std::string caption = "50 %";
    toolbar.showProgress(0.5, &caption);
    EXPECT_EQ(toolbar.form().L2->width(), 150);
    EXPECT_EQ(toolbar.caption(RecordCaption::Status), "50 %");
    toolbar.showProgress(2.0, nullptr);
    EXPECT_EQ(toolbar.form().L2->width(), 600);
    toolbar.setL2Share(-1.0);
    EXPECT_EQ(toolbar.form().L2->width(), 600);
    toolbar.endProgress();
    EXPECT_EQ(toolbar.form().L2->width(), 1);
    EXPECT_EQ(toolbar.caption(RecordCaption::Status), "");
}

TEST_F(RecordWindow, TakesTheWordAwayAfterFiveSeconds) {
    toolbar.setCaption(RecordCaption::Label8, "Stopped");
    toolbar.enableTimer10();
    host.time.pass(4 * scripted::nanosecondsPerSecond);
    toolbar.enableTimer10(); // it runs already
    EXPECT_EQ(toolbar.caption(RecordCaption::Label8), "Stopped");
    host.time.pass(scripted::nanosecondsPerSecond);
    EXPECT_EQ(toolbar.caption(RecordCaption::Label8), "");
}

TEST_F(RecordWindow, HasOneTimerHoweverOftenItIsEnabled) {
    toolbar.setCaption(RecordCaption::Label8, "Stopped");
    toolbar.enableTimer10();
    host.time.pass(3 * scripted::nanosecondsPerSecond);
    toolbar.enableTimer10(); // a recording that is stopped by hand ends twice
    host.time.pass(2 * scripted::nanosecondsPerSecond);
    EXPECT_EQ(toolbar.caption(RecordCaption::Label8), "");
    toolbar.setCaption(RecordCaption::Label8, "Stopped"); // by the next recording
    toolbar.enableTimer10();
    host.time.pass(4 * scripted::nanosecondsPerSecond);
    EXPECT_EQ(toolbar.caption(RecordCaption::Label8), "Stopped") << "its own five seconds";
    toolbar.enableTimer10();
    toolbar.unload();
    host.time.pass(6 * scripted::nanosecondsPerSecond);
    EXPECT_EQ(toolbar.window(), nullptr) << "a timer that was left would have loaded it";
}

TEST_F(RecordWindow, ShowsTheTimeOfAFileInLargerLettersThanItsOtherValues) {
    Record& form = toolbar.form();
    form.lblTime->ensurePolished();
    form.lblmode->ensurePolished();
    EXPECT_EQ(QFontInfo(form.lblTime->font()).pixelSize(), 16);
    EXPECT_LT(QFontInfo(form.lblmode->font()).pixelSize(), 16);
}

TEST_F(RecordWindow, HasItsPreferencesInTwoPanelsOverTheNamesOfTheFiles) {
    Record& form = toolbar.form();
    const QRect options = form.Check2->parentWidget()->geometry();
    const QRect formats = form.cbxFormat->parentWidget()->geometry();
    EXPECT_EQ(form.Combo4->parentWidget(), form.cbxFormat->parentWidget());
    EXPECT_EQ(options.left(), form.InputPath->x());
    EXPECT_EQ(formats.left(), options.right() + 1 + options.left()) << "one margin between them";
    EXPECT_EQ(formats.right(), form.OutPutPath->geometry().right());
    EXPECT_EQ(formats.top(), options.top());
    EXPECT_EQ(formats.bottom(), options.bottom());
    EXPECT_LT(formats.bottom(), form.OutPutPath->y());
    for (const QWidget* control : {form.cbxFormat, form.Combo4, form.Combo3})
        EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()));
}

TEST_F(RecordWindow, LeavesNoTimerBehind) {
    toolbar.enableTimer10();
    toolbar.unload();
    host.time.pass(6 * scripted::nanosecondsPerSecond);
    EXPECT_EQ(toolbar.window(), nullptr); // the timer would have loaded it
}

TEST_F(RecordWindow, LocksWhatLiesInItsPanels) {
    toolbar.enablePanel(RecordPanel::Picture7, false);
    EXPECT_FALSE(toolbar.form().Cmd2[1]->isEnabled());
    EXPECT_TRUE(toolbar.form().Optsourcesng->isEnabled());
}

TEST_F(RecordWindow, SetsNothingUpInAProgramThatEnds) {
    host.time.end();
    EXPECT_EQ(toolbar.listIndex(RecordList::cbxFormat), -1);
    EXPECT_EQ(studio.run.RecordToolbarOpen, flagClear);
    toolbar.unload();
    EXPECT_EQ(setting("Delete WAV"), "none");
}

class MakingWindow : public RecordWindow {
protected:
    MakingPanel& panel() { return *toolbar.form().making; }
    [[nodiscard]] std::string texts() {
        std::string all;
        for (const QLabel* label : panel().findChildren<QLabel*>()) {
            if (label->isHidden() || label->text().isEmpty())
                continue;
            if (!all.empty())
                all += '|';
            all += label->text().toStdString();
        }
        return all;
    }
    std::string write(const std::string& name, std::size_t bytes) {
        const std::string path = (host.folder.path() / name).string();
        std::ofstream(path) << std::string(bytes, 's');
        return path;
    }
    void make(const std::string& flaw) {
        const std::string wav = write("7tmp.wav", 400);
        toolbar.recordingBegun(wav, 176400, true);
        toolbar.recordingEnded(wav);
        toolbar.encodingBegun(write("7tmp.mp3", 123'000));
        toolbar.encodingEnded({wav, (host.folder.path() / "7tmp.mp3").string(), flaw, true, false});
    }
};

TEST_F(MakingWindow, ShowsTheTimeAndTheSizeOfARecording) {
    EXPECT_TRUE(panel().isHidden());
    toolbar.recordingBegun("Songs\\7tmp.wav", 176400, true);
    EXPECT_FALSE(panel().isHidden());
    EXPECT_EQ(texts(), "0:00|7tmp.wav|1 KB so far");
    toolbar.recordingEnded("Songs\\7tmp.wav"); // it could not be saved
    EXPECT_TRUE(panel().isHidden());
}

TEST_F(MakingWindow, ShowsARecordingThatIsReadyInItsFolder) {
    const std::string wav = write("7tmp.wav", 44 + 2 * 176400);
    toolbar.form();
    toolbar.recordingBegun(wav, 176400, true);
    toolbar.recordingEnded(wav);
    EXPECT_EQ(texts(), "7tmp.wav is ready|0:02  \xC2\xB7  0.4 MB");
    panel().showInFolder->click();
    EXPECT_EQ(host.desktop.programs, Lines{"folder " + wav});
}

TEST_F(MakingWindow, OffersNoExportForAnMp3ThatSoundsRight) {
    toolbar.form();
    make("");
    EXPECT_EQ(texts(), "7tmp.mp3 is ready|0.1 MB");
    EXPECT_TRUE(panel().exports->isHidden());
    EXPECT_EQ(panel().accessibleName(), "7tmp.mp3 is ready");
}

TEST_F(MakingWindow, OffersTheExportOfTheScoreForAnMp3ThatSoundsWrong) {
    int asked = 0;
    toolbar.onExport = [&asked] { ++asked; };
    toolbar.form();
    make("Half speed, an octave too low.");
    EXPECT_EQ(
        panel().accessibleName(),
        "This MP3 sounds wrong. Half speed, an octave too low. Export makes an MP3 that sounds "
        "as you hear the song.");
    EXPECT_FALSE(panel().exports->isHidden());
    panel().exports->click();
    EXPECT_EQ(asked, 1);
    panel().folder->click();
    EXPECT_EQ(host.desktop.programs.size(), 1U);
}

TEST_F(MakingWindow, NamesTheRightFormatForARecordingOfAnotherSource) {
    toolbar.form();
    const std::string mp3 = write("8tmp.mp3", 100);
    toolbar.encodingBegun(mp3);
    toolbar.encodingEnded({"8tmp.wav", mp3, "It is noise.", true, false});
    EXPECT_EQ(texts(), "This MP3 sounds wrong|Record as 22.050Hz, 16bit Stereo instead.");
    EXPECT_TRUE(panel().exports->isHidden());
}

TEST_F(MakingWindow, GivesWayToTheValuesOfAnMp3ThatPlays) {
    toolbar.form();
    make("");
    toolbar.showPicture5(true);
    EXPECT_TRUE(panel().isHidden());
    toolbar.showPicture5(false);
    EXPECT_FALSE(panel().isHidden());
}

TEST_F(MakingWindow, LoadsNothingForNews) {
    make("");
    toolbar.encodingAt(0.5);
    EXPECT_EQ(toolbar.window(), nullptr);
}

TEST_F(RecordWindow, NamesEveryControlForReaders) {
    for (const QWidget* control : toolbar.form().findChildren<QWidget*>()) {
        const bool takesKeys = control->focusPolicy() != Qt::NoFocus && !control->isHidden();
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const auto* label = qobject_cast<const QLabel*>(control);
        const bool hasText = (button != nullptr && !button->text().isEmpty()) ||
                             (label != nullptr && !label->text().isEmpty());
        const bool isOurs = !control->objectName().isEmpty() &&
                            !control->objectName().startsWith("qt_") &&
                            control->objectName() != "SSTab1";
        if (takesKeys && isOurs && !hasText) {
            EXPECT_NE(control->accessibleName(), "") << control->objectName().toStdString();
        }
    }
}

} // namespace
} // namespace velorin
