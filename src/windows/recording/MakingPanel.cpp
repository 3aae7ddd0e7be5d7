// The states of the panel.
#include "windows/recording/MakingPanel.h"

#include "convert/page/PageText.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/ProgressBar.h"
#include "windows/making/MadeFile.h"
#include "windows/texts/ScreenReader.h"

namespace velorin {

namespace {

constexpr QRect panelRect{166, 122, 340, 44};
constexpr int tickMs = 250;
constexpr int paintMs = 100;
constexpr int announcedSteps = 10; ///< per cent
constexpr double headerBytes = 44.0;
constexpr int markSize = 16;
constexpr int textLeft = 36; ///< after the mark
constexpr int folderLeft = 194;
constexpr int exportLeft = 206;
constexpr char dot[] = "  \xC2\xB7  ";

// A state has two lines of text, in pixels of the panel:
//
//   12   36                       194                      332
//   (v)  heading, 600            [ Show in folder          ]
//        note, 11 px
constexpr int headingTop = 5;
constexpr int headingHeight = 18;
constexpr int noteTop = 22;
constexpr int noteHeight = 16;

std::string sizeOf(const std::filesystem::path& file) {
    std::error_code failed;
    const auto bytes = std::filesystem::file_size(file, failed);
    return sizeText(failed ? 0.0 : static_cast<double>(bytes));
}

QLabel* plainLabel(QWidget* panel, const char* role) {
    QLabel* const label = makeLabel(panel, QRect(), QString(), role);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

// In the order of the Tab key.
MakingPanel::MakingPanel(QWidget* page)
    : QFrame(page),
      showInFolder(new PicturedPush(QStringLiteral("Show in folder"), "show-in-folder",
                                    QRect(10, 5, 20, 20), this)),
      exports(
          new PicturedPush(QStringLiteral("Export"), "main-18-export", QRect(8, 5, 20, 20), this)),
      folder(new PictureButton(this, "folder", "show-in-folder")),
      mark_(new QLabel(this)),
      elapsed_(plainLabel(this, "value")),
      heading_(plainLabel(this, "heading")),
      note_(plainLabel(this, "note")),
      left_(plainLabel(this, "note")),
      track_(named(new ProgressTrack(this), "encoding", QRect(12, 26, 316, 12))),
      bar_(new ProgressBar(track_, announcedSteps)) {
    setObjectName("making");
    setProperty("role", "panel");
    setGeometry(panelRect);
    named(showInFolder, "showInFolder", QRect(folderLeft, 7, 138, 30));
    named(exports, "export", QRect(exportLeft, 7, 88, 30));
    folder->setGeometry(298, 5, 34, 34);
    folder->setIconSize(QSize(20, 20));
    mark_->setGeometry(12, 14, markSize, markSize);
    elapsed_->setGeometry(12, 4, 66, 36);
    elapsed_->setStyleSheet(QStringLiteral("font-size: 16px;"));
    left_->setGeometry(188, 4, 140, 20);
    left_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    ticks_.setInterval(tickMs);
    connect(&ticks_, &QTimer::timeout, this, [this] { showElapsed(); });
    show(State::nothing);
}

void MakingPanel::show(State state) {
    state_ = state;
    if (state != State::made)
        file_.clear();
    mark_->setVisible(state == State::made);
    elapsed_->setVisible(state == State::recording);
    left_->setVisible(state == State::encoding);
    track_->setVisible(state == State::encoding);
    note_->setVisible(state != State::encoding);
    showButtons(false, false);
    if (state == State::recording)
        ticks_.start();
    else
        ticks_.stop();
    setToolTip(QString());
    setVisible(state != State::nothing && !givesWay_);
}

void MakingPanel::giveWay(bool gives) {
    givesWay_ = gives;
    setVisible(state_ != State::nothing && !givesWay_);
}

/// A text that is too long loses its middle, so the ending of a name stays.
void MakingPanel::place(QLabel* label, QRect rect, const std::string& text) {
    label->setGeometry(rect);
    label->ensurePolished();
    label->setText(label->fontMetrics().elidedText(QString::fromStdString(text), Qt::ElideMiddle,
                                                   rect.width()));
}

void MakingPanel::showButtons(bool isExport, bool isFolder) {
    exports->setVisible(isExport);
    folder->setVisible(isFolder);
    showInFolder->setVisible(state_ == State::made && !isFolder);
}

void MakingPanel::announce(const std::string& sentence) {
    setAccessibleName(QString::fromStdString(sentence));
    announceAlert(*this);
}

void MakingPanel::showNothing() {
    show(State::nothing);
}

void MakingPanel::showRecording(const std::string& name, int bytesPerSecond) {
    bytesPerSecond_ = bytesPerSecond;
    since_.start();
    constexpr int left = 84;
    place(heading_, QRect(left, headingTop, 244, headingHeight), name);
    note_->setGeometry(left, noteTop, 244, noteHeight);
    showElapsed();
    show(State::recording);
}

void MakingPanel::showElapsed() {
    const double seconds = static_cast<double>(since_.elapsed()) / 1000.0;
    elapsed_->setText(QString::fromStdString(convert::clockText(seconds)));
    note_->setText(
        QString::fromStdString(sizeText(headerBytes + seconds * bytesPerSecond_) + " so far"));
}

void MakingPanel::showRecorded(const std::filesystem::path& wav) {
    std::error_code failed;
    const auto bytes = static_cast<double>(std::filesystem::file_size(wav, failed));
    std::string note = sizeOf(wav);
    if (!failed && bytesPerSecond_ > 0)
        note = convert::clockText((bytes - headerBytes) / bytesPerSecond_) + dot + note;
    show(State::made);
    file_ = wav;
    constexpr int wide = folderLeft - 6 - textLeft;
    mark_->setPixmap(lookIcon("row-done").pixmap(QSize(markSize, markSize), devicePixelRatioF()));
    const std::string heading = wav.filename().string() + " is ready";
    place(heading_, QRect(textLeft, headingTop, wide, headingHeight), heading);
    place(note_, QRect(textLeft, noteTop, wide, noteHeight), note);
    setToolTip(QString::fromStdString(wav.string()));
    announce(heading);
}

void MakingPanel::showEncoding(const std::string& name) {
    since_.start();
    sinceBar_.start();
    timeLeft_.start(0);
    left_->clear();
    bar_->setShare(0.0);
    place(heading_, QRect(12, 4, 176, 20), "Encoding " + name);
    show(State::encoding);
}

void MakingPanel::showShare(double share) {
    if (state_ != State::encoding || (share < 1.0 && sinceBar_.elapsed() < paintMs))
        return;
    sinceBar_.start();
    bar_->setShare(share);
    if (const auto seconds = timeLeft_.seconds(share, since_.nsecsElapsed()))
        left_->setText(QString::fromStdString(timeLeftText(*seconds)));
}

void MakingPanel::showMade(const ShownMp3& mp3) {
    showRecorded(mp3.file);
    const std::string name = mp3.file.filename().string();
    const bool isFlawed = !mp3.flaw.empty();
    const bool isExport = isFlawed && mp3.isOfScore;
    showButtons(isExport, isFlawed);
    const int end = isExport ? exportLeft : isFlawed ? folder->x() : folderLeft;
    const QRect line(textLeft, headingTop, end - 6 - textLeft, headingHeight);
    const std::string heading = isFlawed        ? "This MP3 sounds wrong"
                                : mp3.isStopped ? name + " ends early"
                                                : name + " is ready";
    const std::string words = isFlawed ? mp3.flaw : sizeOf(mp3.file);
    place(heading_, line, heading);
    place(note_, QRect(textLeft, noteTop, line.width(), noteHeight),
          isFlawed && !isExport ? mp3.advice : words);
    if (!isFlawed)
        return announce(heading);
    mark_->setPixmap(lookIcon("row-failed").pixmap(QSize(markSize, markSize), devicePixelRatioF()));
    const std::string help =
        isExport ? "Export makes an MP3 that sounds as you hear the song." : mp3.advice;
    setToolTip(QString::fromStdString(name + ": " + mp3.flaw + " " + help));
    announce(heading + ". " + mp3.flaw + " " + help);
}

} // namespace velorin
