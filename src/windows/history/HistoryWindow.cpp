// The History window: its controls, and when they change.
#include "windows/history/HistoryWindow.h"

#include "history/History.h"
#include "history/OpenedFiles.h"
#include "platform/Settings.h"
#include "session/Session.h"
#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/SettingValues.h"
#include "windows/frame/ToolWindows.h"
#include "windows/history/HistoryTool.h"
#include "windows/texts/DescribedControls.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QTimer>

#include <algorithm>

namespace velorin {

namespace {

constexpr ToolFrame::Face historyFace{"History", "History", "main-17-history.svg", QSize(672, 456)};
constexpr QSize leastSize{560, 360};
constexpr char settingKey[] = "history";
constexpr int underTitle = 36;
constexpr int listTop = 70;
constexpr int footHeight = 48; ///< below list and panel
constexpr int panelGap = 8;

} // namespace

HistoryWindow::HistoryWindow(HistoryTool& owner, Session& session, ToolWindows& windows,
                             History& history)
    : ToolFrame(historyFace, windows.frames),
      model(history),
      owner_(owner),
      session_(session),
      windows_(windows),
      history_(history),
      summaries_(history, session.studio) {
    makeControls();
    describeControls(*this, historyFace.name);
    connectHandlers();
    setMinimumSize(leastSize);
    resize(historyFace.size);
}

void HistoryWindow::makeControls() {
    using Side = WindowEdge::Side;
    edges_ = {new WindowEdge(this, Side::right), new WindowEdge(this, Side::foot),
              new WindowEdge(this, Side::corner)};
    filter = named(new QLineEdit(this), "filter", QRect(8, underTitle, 246, 26));
    filter->setProperty("role", "search");
    setPlaceholder(*filter, QStringLiteral("Filter: a word, a channel, a file"));
    filter->installEventFilter(this);
    auto* const glass = new QLabel(filter);
    glass->setAccessibleName(QStringLiteral("Filter"));
    glass->setGeometry(7, 5, 16, 16);
    glass->setPixmap(lookIcon("glyph-search-ink").pixmap(QSize(16, 16), devicePixelRatioF()));
    glass->setAttribute(Qt::WA_TransparentForMouseEvents);
    opened = named(new OpenedLast(this), "opened", QRect(262, underTitle, 142, 26));
    states = named(new HistoryList(model, this), "states", QRect(8, listTop, 396, 338));
    panel = new StatePanel(this);
    use = named(makeLabel(this, QRect(), QString(), "note"), "use", QRect(16, 416, 300, 32));
    clear = named(new QPushButton(QStringLiteral("Clear history..."), this), "clear",
                  QRect(542, 420, 122, 28));
}

void HistoryWindow::connectHandlers() {
    onClose = [this] { owner_.unload(); };
    onActivate = [this] {
        windows_.noteActive(Tool::history);
        lockChanged();
    };
    windows_.noteMade(*this);
    states->onShown = [this] { showState(); };
    states->onChosen = [this] { goBack(); };
    states->onTyped = [this](const QString& text) {
        windows_.focus.give(filter);
        filter->setText(filter->text() + text);
    };
    opened->onChosen = [this](const std::string& path) { openScore(path); };
    connect(filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        states->keepPlaceDuring([&] { model.setFilter(text); });
    });
    connect(panel->goBack, &QPushButton::clicked, this, [this] { goBack(); });
    connect(panel->save, &QPushButton::clicked, this, [this] { saveAsScore(); });
    connect(clear, &QPushButton::clicked, this, [this] { clearHistory(); });
}

// A size below the least one becomes the least one.
void HistoryWindow::placeWindow() {
    platform::Settings& settings = session_.studio.platform.settings;
    platform::Desktop& desktop = session_.studio.platform.desktop;
    const auto stored = [&settings](const char* name, int fallback, int most) {
        const auto initial = static_cast<float>(fallback * platform::twipsPerPixel);
        const auto twips = settingTwips(settings.GetSetting(
            settingsSection, std::string(settingKey) + name, settingText(initial)));
        const auto widest = static_cast<float>(most * platform::twipsPerPixel);
        return std::min(twips.value_or(initial), widest);
    };
    QSize largest = leastSize; // damaged settings may say anything
    for (const platform::Screen& screen : desktop.screens())
        largest = largest.expandedTo(QSize(screen.whole.width, screen.whole.height));
    place.resizeTo(stored(" width", width(), largest.width()),
                   stored(" height", height(), largest.height()));
    const platform::SizePx screen = desktop.screenSize();
    placeFrom(settings, settingKey, middleTwips(screen.width, width()),
              middleTwips(screen.height, height()), desktop);
    SetTopMost(*this, true);
}

void HistoryWindow::storePlace() {
    platform::Settings& settings = session_.studio.platform.settings;
    savePlace(settings, settingKey);
    const std::string key = settingKey;
    settings.SaveSetting(settingsSection, key + " width", settingText(place.Width()));
    settings.SaveSetting(settingsSection, key + " height", settingText(place.Height()));
}

void HistoryWindow::historyChanged() {
    isStale_ = true;
    summaries_.forget();
    if (isVisible())
        refresh();
}

/// A cursor on the current state goes along with it, so that undo is seen in the list.
void HistoryWindow::refresh() {
    if (!isStale_)
        return;
    isStale_ = false;
    const bool isFirst = model.lines().empty();
    const bool follows = isFirst || states->cursorId() == model.nowId();
    states->keepPlaceDuring([this] { model.refresh(); });
    if (follows && model.rowOf(model.nowId()) >= 0)
        states->setCursorTo(model.nowId());
    states->viewport()->update();
    states->emptyText = model.lines().empty() ? QStringLiteral("What you change is kept here.")
                                              : QStringLiteral("No state says that.");
    opened->setScores(openedFiles(history_.entries()));
    clear->setEnabled(!model.lines().empty());
    showUse();
    showState();
}

void HistoryWindow::showState() {
    panel->showLine(model, model.find(states->shownId()));
    showSummarySoon();
    lockChanged();
}

// A pointer that crosses many rows leaves them before their pictures are due.
void HistoryWindow::showSummarySoon() {
    if (isSummaryDue_)
        return;
    isSummaryDue_ = true;
    QTimer::singleShot(0, this, [this] { showSummary(); });
}

void HistoryWindow::showSummary() {
    isSummaryDue_ = false;
    const HistoryModel::Line* const line = model.find(states->shownId());
    if (line != nullptr && isVisible())
        panel->showSummary(summaries_.of(line->state, panel->picture->imageSize()));
}

void HistoryWindow::lockChanged() {
    const bool hasState = model.find(states->shownId()) != nullptr;
    panel->save->setEnabled(hasState);
    const bool isOpen = hasState && history_.canStep();
    if (panel->goBack->isEnabled() != isOpen)
        windows_.focus.enable(*panel->goBack, isOpen);
}

void HistoryWindow::showUse() {
    const auto& lines = model.lines();
    const auto count = std::count_if(lines.begin(), lines.end(),
                                     [](const auto& line) { return line.id == line.state; });
    constexpr double mebibyte = 1024.0 * 1024.0;
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    QString text = english.toString(static_cast<qlonglong>(count)) +
                   QLatin1String(count == 1 ? " state" : " states");
    if (!lines.empty())
        text += QStringLiteral(" since ") +
                QLocale::c().toString(HistoryModel::dayOf(lines.front()), QStringLiteral("d MMMM"));
    use->setText(text + QStringLiteral("  \u00b7  %1 of %2 MiB")
                            .arg(static_cast<double>(history_.bytesUsed()) / mebibyte, 0, 'f', 1)
                            .arg(history_.mostBytes() / (1024 * 1024)));
}

bool HistoryWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched != filter)
        return ToolFrame::eventFilter(watched, event);
    if (event->type() == QEvent::ShortcutOverride) {
        // Esc first clears the filter. In an empty one it does what it does elsewhere.
        const bool isEsc = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        if (isEsc && !filter->text().isEmpty())
            event->accept();
        return false;
    }
    return event->type() == QEvent::KeyPress && passKey(static_cast<QKeyEvent&>(*event));
}

/// The keys that move in the list do so from the filter too.
bool HistoryWindow::passKey(QKeyEvent& event) {
    states->forgetPointer();
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(states, &event);
        return true;
    case Qt::Key_Escape:
        filter->clear();
        return true;
    default:
        return false;
    }
}

void HistoryWindow::enterEvent(QEnterEvent* event) {
    ToolFrame::enterEvent(event);
    lockChanged();
}

/// Enter is "Go back to this", but on a button that has the focus.
void HistoryWindow::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || qobject_cast<QAbstractButton*>(focusWidget()) != nullptr)
        return ToolFrame::keyPressEvent(event);
    if (!event->isAutoRepeat() && panel->goBack->isEnabled())
        goBack();
}

void HistoryWindow::resizeEvent(QResizeEvent* event) {
    ToolFrame::resizeEvent(event);
    const int w = width();
    const int h = height();
    lblTitle->resize(w - 76, toolTitleHeight);
    imgTitleClose->move(w - 34, 4);
    const int panelLeft = w - 8 - StatePanel::panelWidth;
    const int listEnd = panelLeft - panelGap;
    opened->move(listEnd - opened->width(), underTitle);
    filter->resize(opened->x() - panelGap - filter->x(), filter->height());
    states->setGeometry(8, listTop, listEnd - 8, h - footHeight - listTop);
    panel->setGeometry(panelLeft, underTitle, StatePanel::panelWidth, h - footHeight - underTitle);
    use->move(16, h - 40);
    clear->move(w - 130, h - 36);
    for (WindowEdge* const edge : edges_)
        edge->follow();
    frame.SkinToolWindow();
}

void HistoryWindow::showEvent(QShowEvent* event) {
    ToolFrame::showEvent(event);
    refresh();
}

} // namespace velorin
