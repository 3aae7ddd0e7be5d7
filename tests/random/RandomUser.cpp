// A session: one event after another, with checks of the score between them.
#include "RandomUser.h"

#include "studio/Studio.h"
#include "windows/main/Form1.h"

#include <QApplication>
#include <QTimer>

namespace randomly {

using namespace velorin;

namespace {

/// The limit of nested handlers, which use stack. A real user does not reach it in one session.
constexpr int deepestHandlers = 100;

constexpr long eventsBetweenLooks = 50;

} // namespace

RandomUser::RandomUser(RealHost& host, Chance& chance, Tally& tally, long events)
    : host_(host), chance_(chance), tally_(tally), last_(tally.events + events) {}

// The tool windows are open from the start in most runs, since their buttons are small.
void RandomUser::begin() {
    for (const Tool tool : {Tool::editing, Tool::recording, Tool::recording, Tool::tutorial}) {
        if (chance_.percent(60))
            QTimer::singleShot(1, this, [this, tool] { host_.program.windows.show(tool); });
    }
    host_.program.form1().area->MusicBox->installEventFilter(this);
    planTick();
}

bool RandomUser::eventFilter(QObject* watched, QEvent* event) {
    const bool isEnabled = qobject_cast<QWidget*>(watched)->isEnabled();
    if (isEnabled &&
        (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease))
        hasArrived_ = true;
    return false;
}

// A new timer for each event: a timer does not fire again inside its own handler.
void RandomUser::planTick() {
    QTimer::singleShot(1, this, [this] { tick(); });
}

void RandomUser::tick() {
    if (ended_ || host_.program.hasEnded())
        return;
    if (tally_.events >= last_ || depth_ >= deepestHandlers || !tally_.trouble.empty()) {
        ended_ = true;
        host_.program.Command3_Click();
        return;
    }
    planTick();
    ++ticks_;
    ++depth_;
    tally_.deepest = std::max(tally_.deepest, depth_);
    const long own = ticks_;
    expected_.reset();
    needsArrival_ = false;
    hasArrived_ = false;
    act();
    // The prediction does not include the effect of an event inside this one.
    if (own == ticks_ && !host_.program.hasEnded())
        compare();
    --depth_;
    if (host_.program.hasEnded())
        return;
    const Run& run = host_.program.studio().run;
    tally_.whilePlaying += run.IsPlaying.isSet() ? 1 : 0;
    tally_.whileRecording += run.RecordingFlag.isSet() ? 1 : 0;
    if (tally_.events % eventsBetweenLooks == 0)
        look();
}

void RandomUser::expect(std::optional<Grids> grids, const char* what) {
    expected_ = std::move(grids);
    what_ = what;
}

void RandomUser::compare() {
    if (!expected_)
        return;
    // A window that opens during a drag takes the release, and nothing is drawn.
    const Grids actual = gridsOf(host_.program.studio().score);
    const std::string wrong = differences(actual, *expected_);
    if (!wrong.empty() && needsArrival_ && (!hasArrived_ || differences(actual, before_).empty())) {
        ++tally_.lost;
        return;
    }
    ++tally_.checks;
    if (needsArrival_ && !differences(*expected_, before_).empty())
        ++tally_.changes;
    if (!wrong.empty())
        tally_.trouble = std::string("after ") + what_ + wrong;
    expected_.reset();
}

void RandomUser::look() {
    const Studio& studio = host_.program.studio();
    if (tally_.trouble.empty())
        tally_.trouble = wrongValue(studio);
    if (tally_.trouble.empty() && !comesBackFromItsFile(studio.score))
        tally_.trouble = "the score changes when it is saved and opened";
}

void RandomUser::act() {
    if (QWidget* popup = QApplication::activePopupWidget())
        actInPopup(*popup);
    else if (QWidget* dialog = QApplication::activeModalWidget())
        actInDialog(*dialog);
    else
        actOnWindows();
}

void RandomUser::actOnWindows() {
    Form1& form1 = host_.program.form1();
    if (form1.isMinimized())
        form1.showNormal();
    if (held_ != Qt::NoButton) {
        if (heldIn_ == nullptr || !heldIn_->isVisible())
            held_ = Qt::NoButton;
        else if (chance_.percent(65))
            drag();
        else
            release();
        return;
    }
    const int share = chance_.below(100);
    if (share < 50)
        press();
    else if (share < 75)
        hover();
    else if (share < 84)
        turnWheel();
    else if (share < 99)
        typeKey(*anyWindow());
    else
        resize();
}

bool RandomUser::isOnMusicBox(const Place& place) const {
    const QWidget* box = host_.program.form1().area->MusicBox;
    return place.hit == box && box->isEnabled();
}

QPoint RandomUser::inMusicBox(const QWidget& window, QPoint point) const {
    return host_.program.form1().area->MusicBox->mapFromGlobal(window.mapToGlobal(point));
}

// The grids change only at the release, except for a right press, which erases at once.
void RandomUser::press() {
    const Place place = anyPlace();
    const int share = chance_.below(100);
    const Qt::MouseButton button = share < 75   ? Qt::LeftButton
                                   : share < 96 ? Qt::RightButton
                                                : Qt::MiddleButton;
    if (place.window == nullptr)
        return;
    const Studio& studio = host_.program.studio();
    heldOnMusicBox_ = isOnMusicBox(place);
    drawn_.reset();
    if (heldOnMusicBox_ && studio.score.CurrentRow < musicRows) {
        const QPoint cell = inMusicBox(*place.window, place.point);
        if (button == Qt::LeftButton) {
            drawn_ = DrawnNote::pressed(studio, cell.x(), cell.y());
            expect(gridsOf(studio.score), "a left press on the tableau");
        } else if (button == Qt::RightButton) {
            expect(erased(studio, cell.x(), cell.y()), "a right press on the tableau");
            needsArrival_ = true;
            before_ = gridsOf(studio.score);
        }
    }
    held_ = button;
    heldIn_ = place.window;
    heldAt_ = place.point;
    ++tally_.presses;
    sendMouse(QEvent::MouseButtonPress, *place.window, place.point, button);
}

void RandomUser::drag() {
    heldAt_ += QPoint(chance_.between(-30, 60), chance_.between(-20, 20));
    const bool isDrawing = heldOnMusicBox_ && held_ == Qt::LeftButton;
    if (isDrawing)
        expect(gridsOf(host_.program.studio().score), "a drag on the tableau");
    ++tally_.moves;
    sendMouse(QEvent::MouseMove, *heldIn_, heldAt_, Qt::NoButton);
}

void RandomUser::release() {
    const Studio& studio = host_.program.studio();
    const bool draws = held_ == Qt::LeftButton && drawn_ && studio.drag.MouseHeld == flagSet &&
                       drawn_->isStillIn(studio);
    needsArrival_ = draws;
    before_ = gridsOf(studio.score);
    if (draws)
        expect(drawn_->released(studio, gridsOf(studio.score), inMusicBox(*heldIn_, heldAt_).x()),
               "the release of a drawn note");
    drawn_.reset();
    const Qt::MouseButton button = held_;
    held_ = Qt::NoButton;
    ++tally_.releases;
    sendMouse(QEvent::MouseButtonRelease, *heldIn_, heldAt_, button);
}

void RandomUser::hover() {
    const Place place = anyPlace();
    if (place.window == nullptr)
        return;
    expect(gridsOf(host_.program.studio().score), "a move without a button");
    ++tally_.moves;
    sendMouse(QEvent::MouseMove, *place.window, place.point, Qt::NoButton);
}

void RandomUser::resize() {
    ++tally_.sizes;
    ++tally_.events;
    expect(gridsOf(host_.program.studio().score), "a change of size");
    host_.program.form1().resize(chance_.between(420, 1000), chance_.between(360, 740));
}

} // namespace randomly
