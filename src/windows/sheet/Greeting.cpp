// The greeting on the empty sheet at the start.
#include "windows/sheet/Greeting.h"

#include "model/Score.h"
#include "windows/main/Picmain.h"
#include "windows/sheet/GreetingWidgets.h"
#include "windows/texts/KeyTable.h"
#include "windows/texts/SheetTexts.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace velorin {

namespace {

/// Grows with every change of notes and marks.
std::uint64_t changesOf(const Score& score) {
    return score.NoteArray.changes() + score.PolyArray.changes();
}

/// A key of the toolbars. One that types text is the text's own in another window.
bool isCommand(const QKeyEvent& event, bool isOfMainWindow) {
    const auto isPressed = [&](const Key& key) {
        return (isOfMainWindow || !key.isTyped()) &&
               QKeySequence(event.keyCombination()) == QKeySequence(QLatin1String(key.keys));
    };
    return std::ranges::any_of(mainKeys, isPressed) || std::ranges::any_of(editKeys, isPressed);
}

QRect shownRect(const QWidget& control) {
    return control.isHidden() ? QRect() : control.geometry();
}

} // namespace

Greeting::Greeting(QWidget& mainWindow, Picmain& area, const Score& score)
    : mainWindow_(mainWindow),
      area_(area),
      score_(score),
      changes_(changesOf(score)),
      overlay_(new GreetingOverlay(&area)),
      open_(new OpenSongButton(&area)) {
    connect(open_, &QPushButton::clicked, this, [this] {
        end();
        if (onOpenSong)
            onOpenSong();
    });
    QWidget::setTabOrder(area_.Beatbox, open_);
    QWidget::setTabOrder(open_, area_.Pic1);
    place();
    overlay_->show();
    mainWindow_.setAccessibleDescription(spoken());
    QCoreApplication::instance()->installEventFilter(this);
}

Greeting::~Greeting() {
    end();
}

// The widgets are destroyed later: one of their own handlers may be running.
void Greeting::end() {
    if (overlay_ == nullptr)
        return;
    QCoreApplication::instance()->removeEventFilter(this);
    mainWindow_.setAccessibleDescription({});
    if (open_->hasFocus())
        mainWindow_.setFocus(Qt::OtherFocusReason); // not the next control in the order
    for (QWidget* const widget : {static_cast<QWidget*>(std::exchange(overlay_, nullptr)),
                                  static_cast<QWidget*>(std::exchange(open_, nullptr))}) {
        widget->hide();
        widget->deleteLater();
    }
}

void Greeting::sheetDrawn() {
    if (overlay_ != nullptr && changes_ != changesOf(score_))
        end();
}

QString Greeting::spoken() {
    QStringList sentences;
    for (const char* const words : {greetingNote, greetingLonger, greetingBeat, greetingChords})
        sentences.append(QString::fromLatin1(words) + QLatin1Char('.'));
    return sentences.join(QLatin1Char(' '));
}

bool Greeting::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress || type == QEvent::ShortcutOverride ||
        type == QEvent::KeyPress) {
        if (endsGreeting(*watched, *event))
            end();
        return false;
    }
    const bool isPlaced = type == QEvent::Resize || type == QEvent::Move ||
                          type == QEvent::ShowToParent || type == QEvent::HideToParent;
    if (isPlaced &&
        (watched == area_.MusicBox || watched == area_.Beatbox || watched == area_.Pic1))
        place();
    return false;
}

/// The button's own press and its own keys are not those of the sheet.
bool Greeting::endsGreeting(const QObject& watched, const QEvent& event) const {
    const auto* const widget = qobject_cast<const QWidget*>(&watched);
    if (widget == nullptr || widget == open_)
        return false;
    const bool isOfMainWindow = widget->window() == &mainWindow_;
    if (event.type() == QEvent::MouseButtonPress)
        return isOfMainWindow;
    return !open_->hasFocus() && isCommand(static_cast<const QKeyEvent&>(event), isOfMainWindow);
}

void Greeting::place() {
    const GreetingPlaces places =
        placeGreeting({mainWindow_.size(), area_.MusicBox->geometry(), shownRect(*area_.Beatbox),
                       shownRect(*area_.Pic1)});
    overlay_->setGeometry(area_.MusicBox->geometry() | shownRect(*area_.Beatbox) |
                          shownRect(*area_.Pic1));
    overlay_->setPlaces(places);
    overlay_->raise();
    open_->setGeometry(places.open);
    open_->setVisible(!places.open.isEmpty());
    open_->raise();
}

} // namespace velorin
