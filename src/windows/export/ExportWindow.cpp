// The Export window: choices, and the job that makes the file.
#include "windows/export/ExportWindow.h"

#include "convert/page/PageText.h"
#include "host/process/SystemClock.h"
#include "platform/Desktop.h"
#include "platform/Dialogs.h"
#include "platform/PathLookup.h"
#include "platform/Text.h"
#include "session/Session.h"
#include "windows/export/ExportPlace.h"
#include "windows/export/ExportTool.h"
#include "windows/export/ExportWork.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/ToolWindows.h"
#include "windows/texts/DescribedControls.h"

#include <QDir>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace velorin {

namespace fs = std::filesystem;

namespace {

constexpr ToolFrame::Face exportFace{"Export", "Export", "main-18-export.svg", QSize(572, 386)};
constexpr int nameWidth = 396;
constexpr int endingLeft = 502;
constexpr int endingWidth = 54;
constexpr int warningWidth = 28; ///< that "there already" is wider than an ending
constexpr int lengthLeft = 100;
constexpr int lengthWidth = 38;
constexpr int tailGap = 8;
constexpr char dot[] = "  \u00b7  ";

} // namespace

ExportWindow::ExportWindow(ExportTool& owner, Session& session, ToolWindows& windows)
    : ToolFrame(exportFace, windows.frames),
      owner_(owner),
      session_(session),
      windows_(windows),
      home_(QDir::homePath().toStdString()) {
    makeControls();
    describeControls(*this, exportFace.name);
    readChoices();
    proposeName();
    connectHandlers();
    chooseKind();
    frame.SkinToolWindow();
}

void ExportWindow::connectHandlers() {
    onClose = [this] { owner_.unload(); };
    onActivate = [this] {
        windows_.noteActive(Tool::exporting);
        measure();
        showTarget();
    };
    windows_.noteMade(*this);
    for (KindCard* const card : cards) {
        card->onStep = [this](int step) { stepKind(step); };
        connect(card, &QAbstractButton::toggled, this, [this](bool isChosen) {
            if (isChosen)
                chooseKind();
        });
    }
    connect(name, &QLineEdit::textChanged, this, [this] { choicesChanged(); });
    connect(folder, &QLineEdit::textChanged, this, [this] { choicesChanged(); });
    connect(quality, &QComboBox::activated, this, [this](int index) {
        qualities_[kindIndex()] = static_cast<std::size_t>(std::max(index, 0));
        choicesChanged();
    });
    connect(choose, &QPushButton::clicked, this, [this] { choosePlace(); });
    connect(foot->exports, &QPushButton::clicked, this, [this] { startExport(); });
    connect(foot->cancel, &QPushButton::clicked, this, [this] { cancelExport(); });
    connect(foot->close, &QPushButton::clicked, this, [this] { owner_.unload(); });
    connect(foot->play, &QPushButton::clicked, this, [this] { playMade(); });
    connect(foot->showInFolder, &QPushButton::clicked, this, [this] { showMade(); });
}

void ExportWindow::placeWindow() {
    platform::Desktop& desktop = session_.studio.platform.desktop;
    const platform::SizePx screen = desktop.screenSize();
    placeFrom(session_.studio.platform.settings, exportSetting, middleTwips(screen.width, width()),
              middleTwips(screen.height, height()), desktop);
    SetTopMost(*this, true);
}

std::size_t ExportWindow::kindIndex() const {
    const auto chosen =
        std::find_if(cards.begin(), cards.end(), [](KindCard* card) { return card->isChecked(); });
    return chosen != cards.end() ? static_cast<std::size_t>(chosen - cards.begin()) : 0;
}

std::size_t ExportWindow::qualityIndex() const {
    return qualities_[kindIndex()];
}

fs::path ExportWindow::typedFolder() const {
    return velorin::typedFolder(folder->text().toStdString(), home_);
}

fs::path ExportWindow::target() const {
    return exportTarget(typedFolder(), name->text().toStdString(), kind().ending);
}

void ExportWindow::chooseKind() {
    quality->clear();
    for (const ExportQuality& one : kind().qualities)
        quality->addItem(QString::fromLatin1(one.words));
    quality->setCurrentIndex(static_cast<int>(qualityIndex()));
    choicesChanged();
}

void ExportWindow::chooseKind(convert::Kind kind) {
    for (std::size_t i = 0; i < cards.size() && !isWorking(); ++i) {
        if (exportKinds()[i].kind == kind)
            cards[i]->setChecked(true);
    }
}

void ExportWindow::stepKind(int step) {
    const auto count = static_cast<int>(cards.size());
    const int next = (static_cast<int>(kindIndex()) + step + count) % count;
    KindCard* const card = cards[static_cast<std::size_t>(next)];
    card->setChecked(true);
    windows_.focus.give(card);
}

/// The dialog gives a name and a folder in one.
void ExportWindow::choosePlace() {
    const std::string pattern = std::string("*") + kind().ending;
    platform::FileDialogRequest request{"Export",
                                        std::string(kind().name) + " (" + pattern + ")|" + pattern};
    request.proposal = (typedFolder() / name->text().toStdString()).string();
    windows_.HideToolbars();
    const auto answer = session_.studio.platform.dialogs.GetSaveFileNameA(request);
    windows_.ShowToolbars();
    if (!answer || platform::trimBlanks(answer->name).empty())
        return;
    const fs::path file = platform::resolveForWriting(platform::trimBlanks(answer->name));
    const bool hasEnding = platform::endsWithIgnoringCase(file.string(), kind().ending);
    name->setText(QString::fromStdString((hasEnding ? file.stem() : file.filename()).string()));
    folder->setText(QString::fromStdString(shownFolder(file.parent_path(), home_)));
}

void ExportWindow::choicesChanged() {
    if (state_ == State::working)
        return;
    state_ = State::choosing;
    made_.clear();
    foot->showChoosing(kind().sentence);
    showTarget();
    showMeasure();
}

/// A file that was just made here is no surprise.
void ExportWindow::showTarget() {
    if (state_ == State::working)
        return;
    const bool isNamed = !platform::trimBlanks(name->text().toStdString()).empty();
    std::error_code failed;
    isReplacing_ = isNamed && target() != made_ && fs::exists(target(), failed);
    ending->setText(isReplacing_ ? QStringLiteral("there already")
                                 : QString::fromLatin1(kind().ending));
    name->resize(isReplacing_ ? nameWidth - warningWidth : nameWidth, name->height());
    ending->setGeometry(endingLeft - (isReplacing_ ? warningWidth : 0), ending->y(),
                        endingWidth + (isReplacing_ ? warningWidth : 0), ending->height());
    setStyled(*ending, "warns", isReplacing_);
    const bool isAgain = state_ == State::done;
    foot->exports->setText(isReplacing_ ? QStringLiteral("Replace")
                           : isAgain    ? QStringLiteral("Export again")
                                        : QStringLiteral("Export"));
    if (foot->exports->isEnabled() != isNamed)
        windows_.focus.enable(*foot->exports, isNamed);
}

void ExportWindow::songChanged() {
    isSongStale_ = true;
    proposeName();
    if (isVisible())
        measure();
}

/// A name that the user has typed stays.
void ExportWindow::proposeName() {
    const std::string current = session_.studio.score.CurrentFileName;
    const std::string asGiven = session_.studio.saved.fileNamed(current);
    const std::string proposal = proposedExportName(asGiven.empty() ? current : asGiven);
    const bool isTyped = name->text().toStdString() != proposed_;
    if (isTyped || proposal == proposed_)
        return;
    proposed_ = proposal;
    name->setText(QString::fromStdString(proposal));
}

/// The setup may have changed as well, of which nobody tells.
void ExportWindow::measure() {
    if (owner_.jobs.isRunning(measuring_)) {
        isSongStale_ = true;
        return;
    }
    isSongStale_ = false;
    const auto measured = std::make_shared<ExportMeasure>();
    measuring_ = owner_.jobs.start(measuringWork(songOf(session_), measured),
                                   {{}, [this, measured](const ConversionJobs::Result& result) {
                                        measuring_ = 0;
                                        if (result)
                                            measure_ = *measured;
                                        showMeasure();
                                        if (isSongStale_)
                                            measure();
                                    }});
}

void ExportWindow::showMeasure() {
    if (measure_.columns == 0)
        return;
    const bool isPicture = !kind().isSound;
    length->setText(isPicture ? QStringLiteral("%1 columns").arg(measure_.columns)
                              : QString::fromStdString(convert::clockText(measure_.seconds)));
    const int wide = std::max(length->sizeHint().width() + tailGap, lengthWidth + 2);
    length->resize(wide, length->height());
    tail->move(lengthLeft + wide, tail->y());
    const bool rings = kind().kind != convert::Kind::mid && !isPicture;
    tail->setText(rings ? QStringLiteral("then %1 seconds to ring out").arg(expectedTail)
                        : QString());
    size->setText(
        QString::fromStdString(sizeText(expectedBytes(kind(), qualityIndex(), measure_))));
}

void ExportWindow::enableChoices(bool enabled) {
    for (KindCard* const card : cards)
        windows_.focus.enable(*card, enabled);
    for (QWidget* const field : {static_cast<QWidget*>(name), static_cast<QWidget*>(folder),
                                 static_cast<QWidget*>(choose), static_cast<QWidget*>(quality)})
        windows_.focus.enable(*field, enabled);
    for (QLabel* const heading : headings_)
        heading->setEnabled(enabled);
    for (QLabel* const value : {length, tail, size, ending})
        value->setEnabled(enabled);
}

/// Keeps the keyboard in the foot when its buttons change.
void ExportWindow::moveFocus(QWidget* to) {
    if (isActiveWindow() && (focusWidget() == nullptr || !focusWidget()->isVisibleTo(this) ||
                             !focusWidget()->isEnabled()))
        windows_.focus.give(to);
}

void ExportWindow::startExport() {
    if (isWorking() || platform::trimBlanks(name->text().toStdString()).empty())
        return;
    const fs::path file = target();
    if (const std::string why = whyNoTarget(name->text().toStdString(), typedFolder(), home_);
        !why.empty())
        return fail(why);
    std::error_code failed;
    if (!isReplacing_ && file != made_ && fs::exists(file, failed))
        return showTarget(); // it has appeared meanwhile: the user decides first
    storeChoices();
    isStopped_ = false;
    const ExportOrder order{kindIndex(), qualityIndex(), file};
    job_ = owner_.jobs.start(
        exportWork(songOf(session_), order, owner_.programFolder),
        {[this](double share) {
             const double of = kind().isSound ? measure_.seconds : 0.0;
             foot->showProgress(share, of, timeLeft_.seconds(share, host::steadyNs()));
         },
         [this](const ConversionJobs::Result& result) { finished(result.reason()); }});
    timeLeft_.start(host::steadyNs());
    state_ = State::working;
    made_ = file;
    foot->showWorking(std::string(kind().work) + " " + file.filename().string());
    enableChoices(false);
    moveFocus(foot->cancel);
}

void ExportWindow::cancelExport() {
    if (!isWorking())
        return;
    isStopped_ = true;
    owner_.jobs.stop(job_);
}

void ExportWindow::giveUp() {
    owner_.jobs.drop(job_);
    owner_.jobs.drop(measuring_);
    job_ = 0;
    measuring_ = 0;
}

void ExportWindow::finished(const std::string& reason) {
    job_ = 0;
    state_ = State::choosing;
    enableChoices(true);
    const fs::path file = std::exchange(made_, {});
    if (reason.empty()) {
        made_ = file;
        return showDone();
    }
    if (!isStopped_)
        return fail(failureSentence(reason, file));
    foot->showChoosing("Stopped. Nothing was left behind.");
    showTarget();
    moveFocus(foot->exports);
}

void ExportWindow::fail(const std::string& sentence) {
    state_ = State::failed;
    foot->showFailed(sentence);
    showTarget();
    moveFocus(foot->exports);
}

void ExportWindow::showDone() {
    state_ = State::done;
    std::error_code failed;
    const auto bytes = static_cast<double>(fs::file_size(made_, failed));
    const bool rings = kind().kind == convert::Kind::mp3 || kind().kind == convert::Kind::wav;
    const double seconds = measure_.seconds + (rings ? expectedTail : 0);
    std::string note;
    if (kind().isSound)
        note = convert::clockText(seconds) + dot;
    note += sizeText(failed ? 0.0 : bytes) + dot + "in " + shownFolder(made_.parent_path(), home_);
    foot->showDone(made_.filename().string() + " is ready", note, kind().isSound);
    showTarget();
    moveFocus(foot->play);
}

void ExportWindow::playMade() {
    const std::string file = made_.string();
    const bool isPage = kind().kind == convert::Kind::html;
    if (!kind().isSound || isPage)
        static_cast<void>(session_.studio.platform.desktop.openFile(file));
    else if (owner_.onPlay)
        owner_.onPlay(file);
}

void ExportWindow::showMade() {
    session_.studio.platform.desktop.showInFolder(made_.string());
}

void ExportWindow::enterEvent(QEnterEvent* event) {
    ToolFrame::enterEvent(event);
    showTarget();
}

/// Enter is the default button, but on another button that has the focus.
void ExportWindow::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isOnCard = qobject_cast<KindCard*>(focusWidget()) != nullptr;
    const bool isOnButton = qobject_cast<QAbstractButton*>(focusWidget()) != nullptr && !isOnCard;
    if (!isEnter || isOnButton)
        return ToolFrame::keyPressEvent(event);
    if (event->isAutoRepeat())
        return;
    if (state_ == State::working)
        cancelExport();
    else if (state_ == State::done)
        playMade();
    else if (foot->exports->isEnabled())
        startExport();
}

void ExportWindow::showEvent(QShowEvent* event) {
    ToolFrame::showEvent(event);
    measure();
    showTarget();
}

} // namespace velorin
