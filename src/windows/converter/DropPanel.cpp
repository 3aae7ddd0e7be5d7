// The empty state of the converter's window.
#include "windows/converter/DropPanel.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/PlacedControls.h"

#include <QPainter>

namespace velorin {

namespace {

constexpr int lineInset = 21;
constexpr double lineRadius = 10.0;
constexpr int fullHeight = 426; ///< for which the places are given
constexpr double panelRadius = 6.0;

} // namespace

DropPanel::DropPanel(QWidget* parent) : QFrame(parent) {
    setObjectName("drop");
    heading_ =
        makeLabel(this, QRect(), QStringLiteral("Drop scores, MIDI files or sound here"), "lesson");
    note_ = makeLabel(this, QRect(),
                      QStringLiteral("Single files or whole folders. Nothing is changed; what is "
                                     "made stands beside them."),
                      "secondary");
    heading_->setAlignment(Qt::AlignCenter);
    note_->setAlignment(Qt::AlignCenter);
    chooseFiles =
        named(new QPushButton(QStringLiteral("Choose files..."), this), "chooseFiles", QRect());
    chooseFolder =
        named(new QPushButton(QStringLiteral("Choose a folder..."), this), "chooseFolder", QRect());
    chooseFiles->setDefault(true);
}

void DropPanel::setHot(bool hot) {
    isHot_ = hot;
    update();
}

void DropPanel::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    const int w = width();
    const int down = (height() - fullHeight) / 2;
    picture_ = QRect((w - 72) / 2, 109 + down, 72, 72);
    heading_->setGeometry(0, 193 + down, w, 24);
    note_->setGeometry(0, 221 + down, w, 20);
    chooseFiles->setGeometry(w / 2 - 138, 259 + down, 134, 30);
    chooseFolder->setGeometry(w / 2 + 4, 259 + down, 134, 30);
}

void DropPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::line, 1.0));
    painter.setBrush(isHot_ ? look::ink650 : look::ink800);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), panelRadius,
                            panelRadius);
    QPen broken(isHot_ ? look::sky : look::edge2, 2.0, Qt::CustomDashLine, Qt::FlatCap);
    broken.setDashPattern({4.0, 3.0}); // in widths of the pen: 8 on, 6 off
    painter.setPen(broken);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(lineInset, lineInset, -lineInset, -lineInset),
                            lineRadius, lineRadius);
    lookIcon("drop-files").paint(&painter, picture_);
}

} // namespace velorin
