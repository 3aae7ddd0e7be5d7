// The converter's window: choices, drops, and what the buttons do.
#include "windows/converter/ConverterWindow.h"

#include "platform/CountedText.h"
#include "windows/converter/ConverterKinds.h"
#include "windows/converter/UsableFiles.h"
#include "windows/frame/PlacedControls.h"
#include "windows/making/MadeFile.h"
#include "windows/texts/DescribedControls.h"
#include "windows/texts/ScreenReader.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace velorin {

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> pathsOf(const QMimeData& data) {
    std::vector<fs::path> paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths.emplace_back(url.toLocalFile().toStdString());
    return paths;
}

/// "0:09"
std::string minutesText(int seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%d:%02d", seconds / 60, seconds % 60);
    return text;
}

} // namespace

ConverterWindow::ConverterWindow(ConverterDesk desk, platform::Settings& settings,
                                 fs::path programFolder)
    : queue(std::move(programFolder)),
      desk_(std::move(desk)),
      settings_(settings),
      home_(QDir::homePath().toStdString()) {
    makeControls();
    describeControls(*this, "Converter");
    readChoices();
    connectHandlers();
    makeKeys();
    setAcceptDrops(true);
    setMinimumSize(leastSize);
    report->hide();
    refresh();
    moveFocus();
}

ConverterWindow::~ConverterWindow() {
    queue.onChanged = nullptr;
    queue.onEnded = nullptr;
    delete files; // it shows the queue, which is destroyed before the other controls
}

void ConverterWindow::connectHandlers() {
    onHelp = desk_.openHelp;
    onClose = [this] { return mayClose(); };
    queue.onChanged = [this] {
        message_.clear();
        refresh();
    };
    queue.onEnded = [this] { ended(); };
    files->onButton = [this](int row, RowButton button) { act(row, button); };
    files->onCursor = [this] {
        closedReport_ = 0;
        refreshReport();
    };
    report->onClose = [this] {
        closedReport_ = shownReport_;
        refreshReport();
        files->setFocus();
    };
    connect(addButton, &QToolButton::clicked, this, [this] { chooseFiles(); });
    connect(addButton, &QWidget::customContextMenuRequested, this,
            [this](QPoint place) { offerFolder(addButton->mapToGlobal(place)); });
    connect(clearButton, &QToolButton::clicked, this, [this] { queue.clear(); });
    connect(drop->chooseFiles, &QPushButton::clicked, this, [this] { chooseFiles(); });
    connect(drop->chooseFolder, &QPushButton::clicked, this, [this] { chooseFolder(); });
    connect(kind, &QComboBox::activated, this, [this] {
        storeChoices();
        queue.makeAllWait();
    });
    connect(folder, &QComboBox::activated, this, [this](int entry) { chooseTarget(entry); });
    connect(startButton, &QPushButton::clicked, this,
            [this] { queue.isWorking() ? cancel() : start(); });
}

void ConverterWindow::makeKeys() {
    const auto key = [this](const char* keys, auto action) {
        connect(new QShortcut(QKeySequence(QLatin1String(keys)), this), &QShortcut::activated, this,
                action);
    };
    key("Ctrl+O", [this] { chooseFiles(); });
    key("Ctrl+Shift+O", [this] { chooseFolder(); });
    key("Ctrl+Return", [this] { actOnCursor(RowButton::openInVelorin); });
    key("Ctrl+Enter", [this] { actOnCursor(RowButton::openInVelorin); });
    key("Ctrl+P", [this] { actOnCursor(RowButton::play); });
    key("Ctrl+F", [this] { actOnCursor(RowButton::showInFolder); });
    key("F1", [this] {
        if (onHelp)
            onHelp();
    });
}

/// Enter is the default button, but on another button that has the focus.
void ConverterWindow::keyPressEvent(QKeyEvent* event) {
    if (event->isAutoRepeat())
        return;
    if (event->key() == Qt::Key_Escape)
        return cancel();
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QWidget::keyPressEvent(event);
    if (auto* const button = qobject_cast<QAbstractButton*>(focusWidget()))
        button->click();
    else if (drop->isVisible())
        drop->chooseFiles->click();
    else
        startButton->click();
}

void ConverterWindow::add(std::vector<fs::path> paths) {
    const auto found = std::make_shared<std::vector<fs::path>>();
    const auto search = [paths = std::move(paths), found](const convert::ConversionCallbacks&) {
        *found = usableFiles(paths);
        return ConversionJobs::Result();
    };
    const auto finish = [this, found](const ConversionJobs::Result&) {
        if (found->empty())
            say("There is no score, MIDI file or WAV file.");
        else if (queue.add(*found) == 0)
            say("It is in the list already.");
    };
    searches_.start(search, {{}, finish});
}

void ConverterWindow::chooseFiles() {
    std::vector<fs::path> paths;
    for (const std::string& file : desk_.chooseFiles())
        paths.emplace_back(file);
    if (!paths.empty())
        add(std::move(paths));
}

void ConverterWindow::chooseFolder() {
    if (const auto chosen = desk_.chooseFolder("Add a folder"))
        add({*chosen});
}

void ConverterWindow::offerFolder(QPoint place) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("Add a folder..."), this, [this] { chooseFolder(); });
    menu->popup(place);
}

void ConverterWindow::start() {
    if (!queue.canStart())
        return;
    isCancelled_ = false;
    queue.start({static_cast<std::size_t>(std::max(kind->currentIndex(), 0)), target_});
    moveFocus();
}

void ConverterWindow::cancel() {
    if (!queue.isWorking())
        return;
    isCancelled_ = true;
    queue.cancel();
}

void ConverterWindow::ended() {
    refresh();
    announceAlert(*words);
}

bool ConverterWindow::mayClose() {
    if (!queue.isWorking())
        return true;
    const QueueTotal total = queue.total();
    const bool stops =
        desk_.ask({"Velorin Converter",
                   "Made: " + std::to_string(total.made) + " of " +
                       platform::counted(total.all, "file") + ". Stop before the rest?",
                   "Stop", "Go on"});
    return stops || !queue.isWorking();
}

void ConverterWindow::act(int row, RowButton button) {
    const QueuedFile* const file = queue.file(row);
    if (file == nullptr)
        return;
    if (button == RowButton::takeOut)
        return queue.takeOut(row);
    if (file->state != FileState::done)
        return;
    const fs::path made = file->result->made.front();
    const bool isSound = convert::sourceKindOf(file->source) == convert::Kind::wav;
    if (button == RowButton::showInFolder)
        desk_.showInFolder(made.string());
    else if (button == RowButton::play)
        desk_.openFile(made.string());
    else
        desk_.openInVelorin((made.extension() == ".sng" || isSound ? made : file->source).string());
}

void ConverterWindow::actOnCursor(RowButton button) {
    act(files->currentIndex().row(), button);
}

void ConverterWindow::say(const std::string& sentence) {
    message_ = sentence;
    refreshTotal();
    announceAlert(*words);
}

void ConverterWindow::refresh() {
    const bool hasFiles = queue.rowCount() > 0;
    const bool isWorking = queue.isWorking();
    drop->setVisible(!hasFiles);
    files->setVisible(hasFiles);
    kind->setEnabled(!isWorking);
    folder->setEnabled(!isWorking);
    clearButton->setEnabled(hasFiles && !isWorking);
    startButton->setText(isWorking ? QStringLiteral("Cancel") : QStringLiteral("Start"));
    startButton->setEnabled(isWorking || queue.canStart());
    startButton->setDefault(hasFiles);
    refreshTotal();
    refreshReport();
    if (std::exchange(hadFiles_, hasFiles) != hasFiles)
        moveFocus();
}

/// A sentence is shown in the empty window as well.
void ConverterWindow::refreshTotal() {
    const bool hasTotal = queue.rowCount() > 0;
    const QueueTotal total = queue.total();
    note->setVisible(!hasTotal && message_.empty());
    progress->setVisible(hasTotal);
    percent->setVisible(hasTotal);
    words->setVisible(hasTotal || !message_.empty());
    bar->setShare(total.share);
    const QString share = QStringLiteral("%1 %").arg(static_cast<int>(total.share * 100.0));
    percent->setText(total.all > 0 ? share : QString());
    const QString text = QString::fromStdString(message_.empty() ? totalWords() : message_);
    words->setText(text);
    words->setToolTip(words->fontMetrics().horizontalAdvance(text) > words->width() ? text
                                                                                    : QString());
    const QString title = lblTitle->text();
    setWindowTitle(queue.isWorking() ? share + " - " + title : title);
}

std::string ConverterWindow::totalWords() const {
    const QueueTotal total = queue.total();
    if (total.all == 0)
        return platform::counted(queue.rowCount(), "file");
    std::string text = std::to_string(total.made) + " of " + std::to_string(total.all) + " made";
    if (total.failed > 0)
        text += ", " + std::to_string(total.failed) + " failed";
    if (isCancelled_)
        text += queue.isWorking() ? ", stopping" : ", stopped";
    else if (total.secondsLeft)
        text += betweenParts + minutesText(*total.secondsLeft) + " left";
    return text;
}

void ConverterWindow::refreshReport() {
    const QueuedFile* const file = queue.file(files->currentIndex().row());
    const bool hasReport = file != nullptr && file->state == FileState::done &&
                           !file->result->report.empty() && file->id != closedReport_;
    const int shown = hasReport ? file->id : 0;
    if (shown == shownReport_)
        return;
    shownReport_ = shown;
    if (hasReport)
        report->show(file->source.filename().string(), file->result->report);
    else
        report->hide();
    layOut();
    files->scrollTo(files->currentIndex());
}

/// To the list, or to the first button of the empty window.
void ConverterWindow::moveFocus() {
    QWidget* const now = focusWidget();
    if (now == nullptr || now == this || !now->isVisibleTo(this) || !now->isEnabled())
        (queue.rowCount() > 0 ? static_cast<QWidget*>(files) : drop->chooseFiles)->setFocus();
}

void ConverterWindow::setHot(bool hot) {
    drop->setHot(hot);
    files->setHot(hot);
}

void ConverterWindow::dragEnterEvent(QDragEnterEvent* event) {
    const auto paths = pathsOf(*event->mimeData());
    if (std::none_of(paths.begin(), paths.end(), isUsable))
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    setHot(true);
}

void ConverterWindow::dragMoveEvent(QDragMoveEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void ConverterWindow::dragLeaveEvent(QDragLeaveEvent*) {
    setHot(false);
}

void ConverterWindow::dropEvent(QDropEvent* event) {
    setHot(false);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    add(pathsOf(*event->mimeData()));
}

} // namespace velorin
