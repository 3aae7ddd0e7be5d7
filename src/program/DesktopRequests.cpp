// Queues the desktop's requests, and looks before each sleep of the event loop whether one can be
// carried out.
#include "program/DesktopRequests.h"

#include "program/Program.h"
#include "windows/main/Form1.h"

#include <QAbstractEventDispatcher>
#include <QApplication>

#include <utility>

namespace velorin {

void DesktopRequests::begin() {
    hasBegun_ = true;
    watch();
    lookSoon();
}

void DesktopRequests::add(Request request) {
    requests_.push_back(std::move(request));
    watch();
    lookSoon();
}

bool DesktopRequests::isReady() const {
    const Studio& studio = program_.studio();
    return hasBegun_ && !program_.hasEnded() && !studio.run.LoadingMain.isSet() &&
           !studio.drag.MouseHeld.isSet() && !program_.isPenHeld() &&
           QGuiApplication::mouseButtons() == Qt::NoButton &&
           QApplication::activeModalWidget() == nullptr &&
           QApplication::activePopupWidget() == nullptr;
}

// A request that must wait is looked at again before each sleep. The dialog or the drag that it
// waits for ends with an event, so the loop comes by here then.
void DesktopRequests::watch() {
    if (requests_.empty() || watching_)
        return;
    watching_ = connect(QAbstractEventDispatcher::instance(),
                        &QAbstractEventDispatcher::aboutToBlock, this, [this] {
                            if (isReady())
                                lookSoon();
                        });
}

// Queued: the caller of a request waits for the answer, and a loop that is about to sleep must not
// run a handler.
void DesktopRequests::lookSoon() {
    QMetaObject::invokeMethod(
        this, [this] { carryOut(); }, Qt::QueuedConnection);
}

void DesktopRequests::carryOut() {
    while (!requests_.empty() && isReady()) {
        const Request request = std::move(requests_.front());
        requests_.pop_front();
        comeToFront(request.token);
        if (!request.files.empty())
            program_.fileOpening.open(request.files);
    }
    if (requests_.empty())
        disconnect(std::exchange(watching_, {}));
}

void DesktopRequests::comeToFront(const std::string& token) {
    Form1& window = program_.form1();
    if (window.isMinimized())
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    if (activateWindow)
        activateWindow(window, token);
}

} // namespace velorin
