// The open list of instruments.
#include "windows/lists/InstrumentPopup.h"

#include "platform/Timers.h"
#include "playback/InstrumentSample.h"
#include "windows/frame/FramePaint.h"
#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/RowFont.h"
#include "windows/frame/WindowDrag.h"
#include "windows/lists/InstrumentRowPainter.h"
#include "windows/lists/InstrumentRows.h"
#include "windows/lists/PopupPlace.h"
#include "windows/texts/DescribedControls.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace velorin {

namespace {

constexpr int popupWidth = 296;
constexpr int headHeight = 38;
constexpr int footHeight = 26;
constexpr int footPx = 11;  ///< of its text
constexpr int ellipse = 10; ///< of the corners; their radius is half of it
constexpr double radius = ellipse / 2.0;
constexpr QRect searchPlace(6, 6, 284, 26);
constexpr QRect clearPlace(259, 2, 22, 22); // in the search
constexpr int scrollBarLeft = 281;
constexpr int scrollBarWidth = 14;
constexpr QRect footIcon(12, 5, 16, 16); // in the foot
constexpr int footTextLeft = 34;

} // namespace

InstrumentPopup::InstrumentPopup(QWidget* field, std::vector<Instrument> instruments,
                                 InstrumentSample& sample, platform::Timers& timers)
    : QWidget(field, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      model(std::move(instruments)),
      field_(*field),
      sample_(sample),
      timers_(timers) {
    setObjectName("InstrumentList");
    setAttribute(Qt::WA_TranslucentBackground);
    // A press elsewhere only closes the list. Sent on, it would open the list again from its field,
    // or draw a note.
    setAttribute(Qt::WA_NoMouseReplay);
    makeSearch();
    rows = named(new InstrumentRows(model, this), "rows", QRect());
    rows->emptyText = QStringLiteral("No instrument has that in its name.");
    rows->onPointed = [this](int place) { restAt(place); };
    rows->onTaken = [this](int place) { take(place); };
    sample_.onEnd = [this] { rows->showSounding(-1); };
    describeControls(*this, "InstrumentList");
    setAccessibleName(field->accessibleName());
}

InstrumentPopup::~InstrumentPopup() {
    stopSound();
    sample_.onEnd = nullptr;
}

void InstrumentPopup::makeSearch() {
    search = named(new QLineEdit(this), "search", searchPlace);
    search->setProperty("role", "search");
    setPlaceholder(*search, QStringLiteral("Type any part of a name"));
    search->installEventFilter(this);
    auto* const glass = new QLabel(search);
    glass->setGeometry(7, 5, 16, 16);
    glass->setPixmap(lookIcon("glyph-search-ink").pixmap(QSize(16, 16), devicePixelRatioF()));
    glass->setAttribute(Qt::WA_TransparentForMouseEvents);
    clear = named(new QToolButton(search), "clear", clearPlace);
    clear->setProperty("role", "row");
    clear->setIcon(lookIcon("title-close-ink"));
    clear->setIconSize(QSize(16, 16));
    clear->setFocusPolicy(Qt::NoFocus);
    clear->setCursor(Qt::ArrowCursor);
    clear->hide();
    search->setTextMargins(0, 0, clearPlace.width(), 0);
    connect(search, &QLineEdit::textChanged, this, &InstrumentPopup::showTyped);
    connect(clear, &QToolButton::clicked, search, &QLineEdit::clear);
}

void InstrumentPopup::open(int place) {
    chosen_ = place;
    search->clear();
    layOut();
    rows->showChosen(place);
    search->setFocus(Qt::PopupFocusReason);
    show();
}

void InstrumentPopup::layOut() {
    const QRect field(field_.mapToGlobal(QPoint(0, 0)), field_.size());
    const PopupPlace place = placeOfPopup(field, field_.screen()->availableGeometry(), popupWidth,
                                          headHeight + footHeight, InstrumentRowPainter::rowHeight);
    setGeometry(place.rect);
    rows->setGeometry(1, headHeight, popupWidth - 2, place.rows * InstrumentRowPainter::rowHeight);
    ApplyWindowRegion(*this, ellipse);
}

QString InstrumentPopup::hint() const {
    return sample_.isOff() ? QStringLiteral("Sound is off while a song plays")
                           : QStringLiteral("Rest the pointer on a name to hear it");
}

void InstrumentPopup::showTyped(const QString& text) {
    clear->setVisible(!text.isEmpty());
    stopSound();
    model.setTyped(text);
    if (model.typed().isEmpty())
        rows->showChosen(chosen_);
    else
        rows->setCursorToFirst();
}

void InstrumentPopup::restAt(int place) {
    stopSound();
    update(); // the hint: a song may have begun or ended
    if (place >= 0)
        restTimer_ = timers_.after(restMs, [this, place] { hear(place); });
}

void InstrumentPopup::hear(int place) {
    const Instrument* const instrument = model.instrument(model.rowOf(place));
    if (instrument == nullptr)
        return;
    sample_.start(instrument->number);
    rows->showSounding(sample_.current() ? place : -1);
}

void InstrumentPopup::stopSound() {
    timers_.cancel(restTimer_);
    sample_.stop();
    rows->showSounding(-1);
}

void InstrumentPopup::take(int place) {
    hide();
    if (onTaken)
        onTaken(place);
}

bool InstrumentPopup::eventFilter(QObject* watched, QEvent* event) {
    if (watched == search && event->type() == QEvent::KeyPress)
        return passKey(static_cast<const QKeyEvent&>(*event));
    return QWidget::eventFilter(watched, event);
}

/// True for the keys that are not for the search.
bool InstrumentPopup::passKey(const QKeyEvent& event) {
    const bool isEmpty = search->text().isEmpty();
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        moveBy(event.key() == Qt::Key_Up ? -1 : 1);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        moveBy(event.key() == Qt::Key_PageUp ? -rows->rowsOfAPage() : rows->rowsOfAPage());
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        if (!isEmpty)
            return false;
        rows->moveCursorToEnd(event.key() == Qt::Key_End);
        restAt(rows->cursor());
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (rows->cursor() >= 0)
            take(rows->cursor());
        return true;
    case Qt::Key_Escape:
        if (isEmpty)
            hide();
        else
            search->clear();
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true; // the keyboard stays in the search
    default:
        return false;
    }
}

void InstrumentPopup::moveBy(int rowCount) {
    rows->moveCursorBy(rowCount);
    restAt(rows->cursor());
}

void InstrumentPopup::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    stopSound();
    if (onClosed)
        onClosed();
}

void InstrumentPopup::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(framePath(size(), radius), look::paper);
    painter.setPen(QPen(look::edge2, 1.0));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5,
                            radius - 0.5);
    const int foot = height() - footHeight;
    painter.fillRect(QRect(1, foot, width() - 2, 1), look::rule);
    painter.fillRect(QRect(scrollBarLeft, headHeight, scrollBarWidth, foot - headHeight),
                     look::ink900); // behind the round corners of its arrows
    lookIcon("play-small-ink").paint(&painter, footIcon.translated(0, foot));
    painter.setFont(rowFont(font(), footPx));
    painter.setPen(look::ink3);
    painter.drawText(QRect(footTextLeft, foot + 1, width() - footTextLeft, footHeight),
                     Qt::AlignVCenter, hint());
}

} // namespace velorin
