// The states of the lower end of the Export window.
#include "windows/export/ExportFoot.h"

#include "convert/page/PageText.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/PlacedControls.h"
#include "windows/making/TimeLeft.h"
#include "windows/texts/ScreenReader.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr int announcedSteps = 10; ///< per cent; more often would disturb a reader
constexpr QRect plateRect{8, 304, 556, 34};
constexpr int resultLeft = 44;
constexpr int resultEnd = 554;
constexpr int noteGap = 12;
constexpr int markSize = 16;

QString shown(const std::string& text) {
    return QString::fromStdString(text);
}

QLabel* plainLabel(QWidget* window, QRect place, const char* role) {
    QLabel* const label = makeLabel(window, place, QString(), role);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

ExportFoot::ExportFoot(QWidget* window) {
    makeNotes(window);
    makeProgress(window);
    makeResult(window);
    makeButtons(window);
}

void ExportFoot::makeNotes(QWidget* window) {
    sentence_ = plainLabel(window, QRect(16, 304, 540, 18), "note");
    meanwhile_ = makeLabel(window, QRect(16, 346, 300, 30),
                           QStringLiteral("The song can play meanwhile."), "note");
}

void ExportFoot::makeProgress(QWidget* window) {
    work_ = plainLabel(window, QRect(16, 302, 360, 20), "heading");
    left_ = plainLabel(window, QRect(356, 302, 200, 20), "secondary");
    left_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    track_ = named(new ProgressTrack(window), "progress", QRect(8, 326, 556, 12));
    bar_ = new ProgressBar(track_, announcedSteps);
    percent_ = plainLabel(window, QRect(16, 346, 38, 30), "value");
    played_ = plainLabel(window, QRect(54, 346, 262, 30), "note");
}

void ExportFoot::makeResult(QWidget* window) {
    plate_ = named(new QFrame(window), "result", plateRect);
    plate_->setProperty("role", "plate");
    mark_ = new QLabel(window);
    mark_->setGeometry(20, 313, markSize, markSize);
    heading_ = plainLabel(window, QRect(), "heading");
    note_ = plainLabel(window, QRect(), "note");
}

void ExportFoot::makeButtons(QWidget* window) {
    play =
        named(new PicturedPush(QStringLiteral("Play"), "play-small", QRect(12, 7, 16, 16), window),
              "play", QRect(8, 346, 84, 30));
    play->setDefault(true);
    showInFolder = named(new PicturedPush(QStringLiteral("Show in folder"), "show-in-folder",
                                          QRect(12, 5, 20, 20), window),
                         "showInFolder", QRect(100, 346, 146, 30));
    close =
        named(new QPushButton(QStringLiteral("Close"), window), "close", QRect(334, 346, 100, 30));
    exports = named(new QPushButton(QStringLiteral("Export"), window), "export",
                    QRect(442, 346, 122, 30));
    cancel = named(new QPushButton(QStringLiteral("Cancel"), window), "cancel",
                   QRect(442, 346, 122, 30));
    cancel->setDefault(true);
}

void ExportFoot::show(Part part) {
    const bool isChoosing = part == Part::choosing;
    const bool isWorking = part == Part::working;
    const bool isDone = part == Part::done;
    const bool hasResult = isDone || part == Part::failed;
    sentence_->setVisible(isChoosing);
    meanwhile_->setVisible(isChoosing || part == Part::failed);
    for (QWidget* const widget : {static_cast<QWidget*>(work_), static_cast<QWidget*>(left_),
                                  static_cast<QWidget*>(track_), static_cast<QWidget*>(percent_),
                                  static_cast<QWidget*>(played_), static_cast<QWidget*>(cancel)})
        widget->setVisible(isWorking);
    plate_->setVisible(hasResult);
    mark_->setVisible(hasResult);
    heading_->setVisible(isDone);
    note_->setVisible(hasResult);
    play->setVisible(isDone);
    showInFolder->setVisible(isDone);
    close->setVisible(!isWorking);
    exports->setVisible(!isWorking);
    exports->setDefault(!isDone);
    exports->setText(isDone ? QStringLiteral("Export again") : QStringLiteral("Export"));
}

void ExportFoot::showChoosing(const std::string& sentence) {
    sentence_->setText(shown(sentence));
    show(Part::choosing);
}

void ExportFoot::showWorking(const std::string& work) {
    work_->setText(shown(work));
    left_->clear();
    played_->clear();
    showProgress(0.0, 0.0, std::nullopt);
    show(Part::working);
}

void ExportFoot::showProgress(double share, double of, std::optional<int> secondsLeft) {
    bar_->setShare(share);
    percent_->setText(QStringLiteral("%1 %").arg(static_cast<int>(share * 100.0)));
    if (of > 0.0)
        played_->setText(shown(convert::clockText(share * of) + " of " + convert::clockText(of)));
    if (secondsLeft)
        left_->setText(shown(timeLeftText(*secondsLeft)));
}

void ExportFoot::showDone(const std::string& heading, const std::string& note, bool isPlayed) {
    mark_->setPixmap(
        lookIcon("row-done").pixmap(QSize(markSize, markSize), plate_->devicePixelRatioF()));
    const QString whole = shown(heading);
    heading_->ensurePolished();
    constexpr int mostWide = 300;
    heading_->setText(heading_->fontMetrics().elidedText(whole, Qt::ElideMiddle, mostWide));
    const int wide = heading_->sizeHint().width();
    heading_->setGeometry(resultLeft, plateRect.top(), wide, plateRect.height());
    const int noteLeft = resultLeft + wide + noteGap;
    note_->setGeometry(noteLeft, plateRect.top(), resultEnd - noteLeft, plateRect.height());
    setStyled(*note_, "plain", false);
    note_->ensurePolished();
    note_->setText(note_->fontMetrics().elidedText(shown(note), Qt::ElideRight, note_->width()));
    play->setText(isPlayed ? QStringLiteral("Play") : QStringLiteral("Open"));
    play->setAccessibleName(play->text());
    show(Part::done);
    announce(heading);
}

void ExportFoot::showFailed(const std::string& sentence) {
    mark_->setPixmap(
        lookIcon("row-failed").pixmap(QSize(markSize, markSize), plate_->devicePixelRatioF()));
    note_->setGeometry(resultLeft, plateRect.top(), resultEnd - resultLeft, plateRect.height());
    setStyled(*note_, "plain", true);
    note_->ensurePolished();
    const QString whole = shown(sentence);
    const QString fits = note_->fontMetrics().elidedText(whole, Qt::ElideMiddle, note_->width());
    note_->setText(fits);
    note_->setToolTip(fits == whole ? QString() : whole);
    show(Part::failed);
    announce(sentence);
}

void ExportFoot::announce(const std::string& text) {
    plate_->setAccessibleName(shown(text));
    announceAlert(*plate_);
}

} // namespace velorin
