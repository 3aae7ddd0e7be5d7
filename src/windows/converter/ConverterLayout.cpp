// The controls of the converter's window and their places.
#include "windows/converter/ConverterKinds.h"
#include "windows/converter/ConverterWindow.h"
#include "windows/frame/FramePaint.h"
#include "windows/frame/PlacedControls.h"

#include <QPainter>

#include <algorithm>

namespace velorin {

namespace {

constexpr int side = 8;
constexpr int gapBelowTitle = 8;
constexpr int stripHeight = 46;
constexpr int reportHeight = 126;
constexpr int footHeight = 58;
constexpr int gap = 8;
constexpr int fullWidth = 760;
constexpr int kindWidth = 240;
constexpr int folderWidth = 286;
constexpr int leastList = 160;
constexpr int widthForAllButtons = 640;
constexpr int announcedSteps = 10; ///< per cent; more often would disturb a reader

class Strip : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintRoundStrip(painter, rect());
        paintSeparator(painter, 91, 10, 26);
    }
};

} // namespace

// In the order of the Tab key, but for the buttons of the title.
void ConverterWindow::makeControls() {
    makeStrip();
    files = named(new FileList(queue, this), "files", QRect());
    report = new ReportPanel(this);
    drop = new DropPanel(this);
    makeFoot();
    // The window's own pointer shows its edges.
    for (QWidget* const part : {strip, static_cast<QWidget*>(files), static_cast<QWidget*>(report),
                                static_cast<QWidget*>(drop), static_cast<QWidget*>(startButton)})
        part->setCursor(Qt::ArrowCursor);
    orderTabs();
}

void ConverterWindow::makeStrip() {
    strip = named(new Strip(this), "strip", QRect());
    addButton = new PictureButton(strip, "add", "main-02-open");
    clearButton = new PictureButton(strip, "clear", "edit-01-clear");
    for (PictureButton* const button : {addButton, clearButton})
        button->setIconSize(QSize(24, 24));
    addButton->setGeometry(6, 5, 36, 36);
    clearButton->setGeometry(44, 5, 36, 36);
    addButton->setContextMenuPolicy(Qt::CustomContextMenu);
    makeHeading =
        makeLabel(strip, QRect(108, 0, 40, stripHeight), QStringLiteral("Make"), "heading");
    kind = named(new QComboBox(strip), "kind", QRect());
    for (const ConverterKind& one : converterKinds())
        kind->addItem(QLatin1String(one.words));
    intoHeading = makeLabel(strip, QRect(), QStringLiteral("into"), "heading");
    folder = named(new QComboBox(strip), "folder", QRect());
    folder->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void ConverterWindow::makeFoot() {
    note = makeLabel(this, QRect(),
                     QStringLiteral("MP3, WAV, MIDI as it plays, song page, picture; and MIDI "
                                    "files become scores."),
                     "note");
    progress = named(new ProgressTrack(this), "progress", QRect(0, 0, 380, 12));
    bar = new ProgressBar(progress, announcedSteps);
    percent = makeLabel(this, QRect(), QString(), "value");
    words = named(makeLabel(this, QRect(), QString(), "note"), "words", QRect());
    words->setTextFormat(Qt::PlainText);
    startButton = named(new QPushButton(QStringLiteral("Start"), this), "start", QRect());
}

void ConverterWindow::orderTabs() {
    QWidget* before = startButton;
    for (QWidget* const button :
         {imgTitleHelp, imgTitleMinimize, imgTitleMaxRestore, imgTitleClose}) {
        setTabOrder(before, button);
        before = button;
    }
}

// A narrower window takes from the list of folders first, then from the list of kinds.
void ConverterWindow::layOutStrip(int y) {
    const int more = width() - fullWidth;
    strip->setGeometry(side, y, width() - 2 * side, stripHeight);
    const int wide = std::max(folderWidth + more, leastList);
    const int missing = std::min(folderWidth + more - leastList, 0);
    const int kindWide = std::max(kindWidth + missing, leastList);
    kind->setGeometry(148, 10, kindWide, 26);
    intoHeading->setGeometry(172 + kindWide, 0, 32, stripHeight);
    folder->setGeometry(204 + kindWide, 10, wide, 26);
}

void ConverterWindow::layOutFoot() {
    const int w = width();
    const int y = height() - footHeight + 11;
    note->setGeometry(16, y, w - 140, 40);
    progress->setGeometry(side, y + 14, w - 380, 12);
    bar->setShare(queue.total().share);
    percent->setGeometry(w - 362, y + 2, 38, 36);
    words->setGeometry(w - 322, y + 2, 204, 36);
    startButton->setGeometry(w - 110, y + 5, 102, 30);
}

void ConverterWindow::layOut() {
    if (startButton == nullptr)
        return;
    const int top = contentsTop() + gapBelowTitle;
    layOutStrip(top);
    const int listTop = top + stripHeight + gap;
    const int listEnd = height() - footHeight;
    drop->setGeometry(side, listTop, width() - 2 * side, listEnd + 2 - listTop);
    const int reportTop = listEnd - reportHeight;
    report->setGeometry(side, reportTop, width() - 2 * side, reportHeight);
    const int end = report->isHidden() ? listEnd : reportTop - gap;
    files->setGeometry(side, listTop, width() - 2 * side, end - listTop);
    files->showAllButtons(width() >= widthForAllButtons);
    layOutFoot();
}

} // namespace velorin
