// The window of the Recording Toolbar: its load and its end, its clicks, and its controls as the
// logic uses them.
#include "recording/Record.h"

#include "RecordingStage.h"
#include "recording/RecordingToolbar.h"
#include "support/QuietToolDesk.h"

#include <QTest>

#include <gtest/gtest.h>

namespace velorin {
namespace {

class RecordWindow : public testing::Test {
protected:
    scripted::ScriptedPlatform host;
    PlainSetup setup;
    Studio studio{host.platform, setup};
    StopWatch watch{host.time, host.time};
    LoggedRecordCommands commands;
    scripted::QuietToolDesk desk;
    RecordingToolbar toolbar{studio, watch, commands, desk};

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
    EXPECT_TRUE(commands.check1);
}

TEST_F(RecordWindow, ClosesEveryDeviceWithItself) {
    (void)toolbar.load();
    host.mci.log.clear();
    click(toolbar.form().imgTitleClose);
    EXPECT_EQ(host.mci.log, (Lines{"0.000 stop sound", "0.000 close sound", "0.000 stop capture",
                                   "0.000 close capture", "0.000 stop midi", "0.000 close midi",
                                   "0.000 Stop audiomp3", "0.000 Close audiomp3"}));
    EXPECT_EQ(toolbar.window(), nullptr);
    EXPECT_EQ(desk.gone.size(), 1U);
    EXPECT_EQ(studio.run.RecordToolbarOpen, flagClear);
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
    QTest::mousePress(rec, Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(rec->picture(), RecordPicture::RecDN);
    QTest::mouseRelease(rec, Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(rec->picture(), RecordPicture::RecUP);
    EXPECT_EQ(commands.log, Lines{"StopallSound"});
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
