// `Picmain`, the work area of the main window: makes its controls.
#include "windows/main/Picmain.h"

#include "platform/CheckedArray.h"
#include "windows/frame/ScrollBar.h"
#include "windows/main/LaneChip.h"
#include "windows/texts/DescribedControls.h"

#include <QFile>
#include <QIcon>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>

namespace velorin {

namespace {

constexpr Colour navy = rgb(0, 0, 64);
constexpr Colour cream = rgb(255, 255, 192);
constexpr int missingBar = 14;

/// The legend's colours.
/// Rule: the chip of lane 7 is paler than the marks in the lane. Held by shell/setup_toolbar.
constexpr platform::CheckedArray<Colour, 8> legendColors{
    rgb(255, 0, 0),   rgb(0, 0, 255),   rgb(0, 255, 0),     rgb(255, 0, 255),
    rgb(0, 255, 255), rgb(255, 128, 0), rgb(255, 255, 128), rgb(192, 192, 255)};

QCursor penCursor(const QWidget& shown) {
    const QString file = ":/look/cursor-pen.svg";
    if (!QFile::exists(file))
        return Qt::CrossCursor;
    const QPixmap pen = QIcon(file).pixmap(QSize(32, 32), shown.devicePixelRatioF());
    return pen.isNull() ? QCursor(Qt::CrossCursor) : QCursor(pen, 3, 28);
}

} // namespace

// Controls stack in the order in which they are made: Shape2, TopBar, Label10, TopBarOverlay, PicX,
// Pt1, MusicBox, Pic1, Beatbox, scroll bars.
Picmain::Picmain(QWidget* parent)
    : QWidget(parent),
      SwapScreen(white),
      BlueBox(rgb(0, 0, 255)),
      RedBox(rgb(255, 0, 0)),
      GreenBox(rgb(0, 255, 0)) {
    setObjectName("Picmain");
    setAttribute(Qt::WA_OpaquePaintEvent);
    Picture11 = new QWidget(this);
    Picture11->setObjectName("Picture11");
    Picture11->hide();
    makeBarNumbers();
    makeTableaux();
    makeScrollBars();
    describeControls(*this, "Form1");
}

void Picmain::makeBarNumbers() {
    Shape2 = new Ruler(this);
    Shape2->setObjectName("Shape2");
    Shape2->setGeometry(9, 2, 518, 18);
    const QFont font = barNumberFont();
    for (int k = 0; k < TopBar.size(); ++k) {
        if (k == missingBar)
            continue;
        auto* label = new InkLabel(this, elementName("TopBar", k), font, barNumberColour);
        label->setGeometry(32 + 48 * k, 2, 26, 18);
        label->hide();
        TopBar[k] = label;
    }
    QFont tight = inkFont(9, 500, 8);
    tight.setLetterSpacing(QFont::AbsoluteSpacing, -0.3);
    Label10 = new InkLabel(this, "Label10", tight, cream);
    Label10->setText("Note #");
    Label10->setGeometry(1, 2, 30, 18);
    TopBarOverlay = new PictureBox(this, "TopBarOverlay", navy);
    TopBarOverlay->paintNothing();
    TopBarOverlay->place(29, 2, 497, 18);
}

void Picmain::makeTableaux() {
    PicX = new PictureBox(this, "PicX", navy);
    makeLegend();
    MusicBox =
        new PictureBox(this, "MusicBox", white, FillStyle::horizontalLines, rgb(192, 255, 255));
    Pic1 = new PictureBox(this, "Pic1", white, FillStyle::solid, rgb(224, 224, 224));
    Beatbox = new PictureBox(this, "Beatbox", rgb(192, 255, 192));
    PicX->place(3, 23, 26, 209);
    MusicBox->place(29, 25, 498, 208);
    Pic1->place(32, 232, 477, 58);
    Beatbox->place(29, 23, 498, 12);
    const double ratio = devicePixelRatioF();
    SwapScreen.resize(498, 208, ratio);
    BlueBox.resize(498, 208, ratio);
    RedBox.resize(12, 208, ratio);
    GreenBox.resize(12, 208, ratio);

    const QCursor pen = penCursor(*this);
    MusicBox->setOwnCursor(pen);
    Beatbox->setOwnCursor(pen);
    Pic1->setFocusPolicy(Qt::TabFocus);
    for (PictureBox* box : {MusicBox, Beatbox}) {
        box->setFocusPolicy(Qt::TabFocus);
        box->setMousePointer(pointerUpArrow); // as in draw mode, in which the program starts
    }
}

void Picmain::makeLegend() {
    Pt1 = new QWidget(this);
    Pt1->setObjectName("Pt1");
    Pt1->setGeometry(15, 232, 16, 70);
    for (int k = 0; k < 8; ++k) {
        auto* chip = new LaneChip(Pt1, legendColors[k]);
        chip->setObjectName(elementName("Label8", k));
        chip->setGeometry(1, 7 * k + 1, 12, 6);
        Label8[k] = chip;
    }
}

void Picmain::makeScrollBars() {
    HScroll1 = new ScrollBar(Qt::Horizontal, this);
    HScroll1->setObjectName("HScroll1");
    HScroll1->setGeometry(29, 291, 499, 14);
    HScroll1->setRange(20, 980);
    HScroll1->setPageStep(40);
    HScroll1->setValue(20);
    VScroll1 = new ScrollBar(Qt::Vertical, this);
    VScroll1->setObjectName("VScroll1");
    VScroll1->setGeometry(528, 25, 14, 208);
    VScroll1->setRange(6, 121);
    VScroll1->setPageStep(13);
    VScroll1->setValue(61);
    for (QScrollBar* bar : {HScroll1, VScroll1})
        bar->setFocusPolicy(Qt::TabFocus);
}

void Picmain::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(event->rect(), toQColor(navy));
}

} // namespace velorin
