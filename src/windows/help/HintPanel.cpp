// The window that shows hints and notices.
#include "windows/help/HintPanel.h"

#include "windows/frame/FramePaint.h"
#include "windows/frame/PaperPaint.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/SkinnedFrame.h"
#include "windows/frame/WindowDrag.h"
#include "windows/frame/WindowKeys.h"
#include "windows/texts/DescribedControls.h"

#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>

namespace velorin {

namespace {

constexpr int hintWidth = 360;
constexpr int lessonWidth = 460;
constexpr int lessonBand = 26;

// The text is dark on light paper; the program's style sheet makes labels light on dark ink.
const char* const paperStyle = "QLabel#Label1 { color: #1E2246; }"
                               "QLabel#title { color: #FFFFC0; font-size: 13px; font-weight: 600; }"
                               "QToolButton[paper=\"true\"]:focus { border: 2px solid #2A62C4; }";

} // namespace

HintPanel::HintPanel(const char* name, FrameState& frames)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      Label1(new QLabel(this)),
      imgTitleClose(new QToolButton(this)),
      Timer1(new QWidget(this)),
      place(*this),
      title_(new QLabel(QStringLiteral("Velorin Wizard"), this)),
      drag_(new WindowDrag(this)),
      frames_(frames) {
    setObjectName(name);
    setAccessibleName(QStringLiteral("Hint"));
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setStyleSheet(paperStyle);
    Label1->setObjectName("Label1");
    Label1->setTextFormat(Qt::PlainText);
    Label1->setWordWrap(true);
    Label1->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Label1->setAttribute(Qt::WA_TransparentForMouseEvents);
    title_->setObjectName("title");
    title_->setGeometry(14, 0, 400, lessonBand);
    title_->setAttribute(Qt::WA_TransparentForMouseEvents);
    imgTitleClose->setObjectName("imgTitleClose");
    imgTitleClose->setProperty("role", "title");
    imgTitleClose->setProperty("danger", true);
    imgTitleClose->setIconSize(QSize(16, 16));
    imgTitleClose->setFocusPolicy(Qt::TabFocus);
    Timer1->setObjectName("Timer1");
    Timer1->setEnabled(false);
    Timer1->hide();
    connect(imgTitleClose, &QToolButton::clicked, this, [this] { leave(HintEnd::button); });
    addWindowKeys(*this);
    setFocus(); // so that the button has no focus ring when the window becomes active
    layOut({});
    describeControls(*this, name);
}

void HintPanel::setText(const QString& text, bool lesson) {
    QString shown = text;
    shown.remove(QLatin1Char('\r'));
    if (lesson == lesson_ && shown == Label1->text())
        return;
    lesson_ = lesson;
    layOut(shown);
    frames_.countRegion();
}

void HintPanel::clear() {
    lesson_ = false;
    layOut({});
    frames_.countRegion();
}

void HintPanel::layOut(const QString& shown) {
    const bool lesson = lesson_;
    setWindowTitle(lesson ? title_->text() : QString());
    const int width = lesson ? lessonWidth : hintWidth;
    Label1->setContentsMargins(14, lesson ? 34 : 10, 34, lesson ? 14 : 10);
    Label1->setText(shown);
    Label1->setGeometry(0, 0, width, Label1->heightForWidth(width));
    title_->setVisible(lesson);
    imgTitleClose->setIcon(QIcon(lesson ? ":/look/title-close.svg" : ":/look/title-close-ink.svg"));
    setStyled(*imgTitleClose, "paper", !lesson); // the ring of the ink would be faint on paper
    imgTitleClose->setGeometry(lesson ? QRect(430, 3, 24, 20) : QRect(334, 4, 22, 20));
    resize(width, Label1->height() + 1);
    ApplyWindowRegion(*this, lesson ? lessonHintEllipse : toolbarHintEllipse);
    update();
}

void HintPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintPaper(painter, size(), (lesson_ ? lessonHintEllipse : toolbarHintEllipse) / 2.0,
               lesson_ ? lessonBand : 0);
}

void HintPanel::mousePressEvent(QMouseEvent* event) {
    // The label lets mouse events through. A press anywhere closes the window, except on the title
    // band of a lesson.
    if (isOnBand(*event)) {
        drag_->DragWindow(event->buttons(), event->globalPosition().toPoint());
        return;
    }
    secondClick_.follows(*event);
    leave(HintEnd::text);
}

void HintPanel::mouseMoveEvent(QMouseEvent* event) {
    drag_->move(*event);
}

void HintPanel::mouseReleaseEvent(QMouseEvent* event) {
    drag_->release(*event);
}

void HintPanel::mouseDoubleClickEvent(QMouseEvent*) {
    leave(HintEnd::text);
}

bool HintPanel::isOnBand(const QMouseEvent& pointer) const {
    return lesson_ && pointer.position().y() < lessonBand;
}

void HintPanel::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        leave(HintEnd::escape);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        leave(focusWidget() == imgTitleClose ? HintEnd::button : HintEnd::text);
        break;
    default:
        break;
    }
}

void HintPanel::closeEvent(QCloseEvent* event) {
    event->ignore();
    leave(HintEnd::button);
}

// The pointer was on the button when it closed the window the last time, and no leave event came.
void HintPanel::showEvent(QShowEvent* event) {
    imgTitleClose->setAttribute(Qt::WA_UnderMouse, false);
    QWidget::showEvent(event);
}

void HintPanel::leave(HintEnd end) {
    if (onClose) {
        onClose(end);
    }
}

} // namespace velorin
