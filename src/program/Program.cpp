// The program: start and end, and the windows by their names.
#include "program/Program.h"

#include "platform/Desktop.h"
#include "platform/Dialogs.h"
#include "platform/KeptState.h"
#include "platform/MidiOut.h"
#include "platform/Notices.h"
#include "program/Form1.h"
#include "program/HoldingLoop.h"
#include "shell/SetupToolbar.h"
#include "shell/ToolFrame.h"
#include "shell/openerF.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>
#include <QIcon>
#include <QThread>

#include <algorithm>
#include <iterator>

namespace velorin {

namespace {

constexpr char title[] = "Velorin";

std::string recoveryText(const platform::RecoveredText& recovered) {
    const std::string place =
        "in \"Songs\" as\r\n\"" + recovered.name + "\". Click here to open it.";
    if (recovered.endedInOrder)
        return "The score that was open when Velorin ended was not saved. It is " + place;
    return "Velorin did not end in order the last time. Nothing is lost: the score is " + place;
}

platform::Platform withLoop(const platform::Platform& host, platform::MessageLoop& loop) {
    return {host.clock,   loop,
            host.midi,    host.mci,
            host.dialogs, host.boxes,
            host.files,   host.settings,
            host.desktop, host.menus,
            host.timers,  host.systemFiles,
            host.encoder, host.programFolder,
            host.kept,    host.notices};
}

} // namespace

Program::Program(platform::Platform& host)
    : loop_(std::make_unique<HoldingLoop>(host.loop)),
      platform_(withLoop(host, *loop_)),
      hints(platform_, frames),
      group(*this, platform_.desktop),
      notices(platform_.desktop),
      setup_(std::make_unique<SetupToolbar>(studio_)),
      studio_(platform_, *setup_),
      kept_(platform_.kept, studio_.score, studio_.saved) {
    notices.openScore = [this](const std::string& path) { openFromNotice(path); };
    // Each round of the dispatcher, also one that is full of events and never sleeps: a timer, even
    // of no time, would wait for the end of those.
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    for (const auto signal :
         {&QAbstractEventDispatcher::awake, &QAbstractEventDispatcher::aboutToBlock})
        QObject::connect(dispatcher, signal, &dispatcherWatch_, [this] { destroyClosed(); });
}

Program::~Program() {
    notices.stop();
}

bool Program::start(const std::function<void()>& behindSplash) {
    if (IsProgramRunning()) {
        ended_ = true;
        return false;
    }
    showSplash();
    if (ended_) // from outside, by the events that painted the splash
        return true;
    if (behindSplash)
        behindSplash();
    if (!form1_)
        makeMainWindow();
    form1_->Form_Load();
    kept_.watch();
    recoverScores();
    if (platform_.notices != nullptr && !ended_)
        notices.start(*platform_.notices, *form1_->area->MusicBox);
    return true;
}

void Program::showSplash() {
    splash_ = std::make_unique<openerF>(frames);
    const platform::SizePx screen = platform_.desktop.screenSize();
    splash_->centreOn(screen.width, screen.height);
    splash_->show();
    // Painted before the main window is made; a yield is not due before the end of that.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

Form1& Program::makeMainWindow() {
    // Not for the splash: it has no frame that would show the icon, and drawing it takes a while.
    QGuiApplication::setWindowIcon(QIcon(":/look/velorin.svg"));
    form1_ = std::make_unique<Form1>(*this);
    setup_->attach(form1_->sounding, *form1_);
    return *form1_;
}

// After everything else: the folder for scores exists by then.
void Program::recoverScores() {
    if (platform_.kept == nullptr || ended_)
        return;
    const std::string& folder = studio_.run.SongsFolder;
    for (const platform::RecoveredText& recovered : platform_.kept->recoverInto(folder))
        platform::notify(platform_, {recoveryText(recovered), folder + "\\" + recovered.name});
}

void Program::openFromNotice(const std::string& path) {
    if (!form1_->files.openChosen(path))
        platform::notify(platform_, "The score is not there any more. Look for it in \"Songs\".");
}

bool Program::IsProgramRunning() {
    if (!platform_.desktop.isAnotherCopyRunning())
        return false;
    platform_.boxes.MsgBox(platform::BoxIcon::information, title, "Velorin is already running.");
    return true;
}

void Program::unloadSplash() {
    splash_.reset();
}

// The device falls silent first, then each window saves its own settings, the main window last.
void Program::Command3_Click() {
    if (ending_ || ended_)
        return;
    ending_ = true;
    kept_.end(); // before the windows change the score by their own end
    platform_.desktop.announceEnd();
    if (splash_)
        splash_->hide(); // and no more: its own showing may have let this through
    hints.unload();
    notices.stop();
    if (form1_) {
        form1_->hide();
        platform_.midi.midiOutClose(form1_->sounding.MidiHandle);
        for (const char* name : {"Form2", "Form3", "Record", "Wiz"})
            unloadWindow(name);
        form1_->Form_Unload();
    }
    ended_ = true;
    platform_.loop.end();
}

void Program::endWithError(const std::string& text) {
    if (ending_ || ended_)
        return;
    exitStatus_ = 1;
    kept_.setAside();
    platform_.boxes.MsgBox(platform::BoxIcon::critical, title, text);
    Command3_Click();
}

QWidget* Program::window(const QString& name, bool load) {
    if (name == "Form1")
        return form1_.get();
    if (name == "openerF")
        return splash_.get();
    if (name == "frminfo") {
        if (load && !ended_)
            hints.load();
        return load || hints.isLoaded() ? hints.window() : nullptr;
    }
    ToolWindow* tool = toolWindow(name);
    if (tool == nullptr)
        return nullptr;
    return load && !ended_ ? &tool->load() : tool->window();
}

void Program::addToolWindow(const QString& name, std::unique_ptr<ToolWindow> window) {
    toolWindows_.push_back({name, std::move(window)});
}

ToolWindow* Program::toolWindow(const QString& name) {
    if (name == "Form3")
        return setup_.get();
    for (const NamedWindow& known : toolWindows_)
        if (known.name == name)
            return known.window.get();
    return nullptr;
}

void Program::showWindow(const QString& name) {
    if (ending_)
        return;
    QWidget* const shown = window(name, true);
    // A load that lets events through may be overtaken by the window's own end, or the program's.
    if (shown == nullptr || ending_ || shown != window(name, false))
        return;
    if (auto* const tool = qobject_cast<ToolFrame*>(shown))
        group.standBeside(*tool);
    shown->show();
    shown->raise();
    group.noteHighest(name);
}

void Program::unloadWindow(const QString& name) {
    if (ToolWindow* tool = toolWindow(name))
        tool->unload();
}

void Program::noteMade(const QWidget& window) {
    madeAt_[&window] = loop_->now();
}

void Program::destroyLater(std::unique_ptr<QWidget> window) {
    if (!window)
        return;
    window->hide();
    const auto made = madeAt_.extract(window.get());
    closed_.push_back({std::move(window), made.empty() ? 0 : made.mapped()});
}

void Program::runHandler(const QWidget* window, const std::function<void()>& handler) {
    const HoldingLoop::Handler running(*loop_, window);
    handler();
}

// Called by the event dispatcher between two rounds, so what is below is the handlers that wait,
// and the loop of a dialog or a menu, of which nothing is known.
void Program::destroyClosed() {
    if (closed_.empty() || QThread::currentThread()->loopLevel() > 1)
        return;
    const auto free = std::partition(closed_.begin(), closed_.end(), [this](const auto& closed) {
        return loop_->mayHold(closed.window.get(), closed.madeAt);
    });
    const std::vector<ClosedWindow> destroyed(std::make_move_iterator(free),
                                              std::make_move_iterator(closed_.end()));
    closed_.erase(free, closed_.end());
}

} // namespace velorin
