// The keys of every window of the program.
#include "windows/frame/WindowKeys.h"

#include "windows/texts/KeyTable.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>

#include <algorithm>
#include <array>

namespace velorin {

namespace {

/// The order in which the keys go through the windows.
constexpr std::array<const char*, 11> windowOrder{"Form1",   "Form3",   "Form2",  "Record",
                                                  "Wiz",     "History", "Export", "Converter",
                                                  "frminfo", "Notice",  "Help"};

std::vector<QWidget*> shownWindows() {
    const QWidgetList all = QApplication::topLevelWidgets();
    std::vector<QWidget*> shown;
    for (const char* const name : windowOrder) {
        const auto found = std::find_if(all.begin(), all.end(), [name](const QWidget* window) {
            return window->objectName() == QLatin1String(name) && window->isVisible();
        });
        if (found != all.end())
            shown.push_back(*found);
    }
    return shown;
}

/// Activates the next or previous window. Its focused control is the one that the user left.
void goOnFrom(const QWidget& window, int step) {
    const auto shown = shownWindows();
    const auto here = std::find(shown.begin(), shown.end(), &window);
    if (here == shown.end())
        return;
    const auto count = static_cast<int>(shown.size());
    const int next = (static_cast<int>(here - shown.begin()) + step + count) % count;
    QWidget* const target = shown[static_cast<std::size_t>(next)];
    if (target->isMinimized())
        target->setWindowState(target->windowState() & ~Qt::WindowMinimized);
    target->raise();
    target->activateWindow();
}

} // namespace

void addWindowKeys(QWidget& window) {
    const auto add = [&window](const Key& key, int step) {
        auto* const keys = new QShortcut(QKeySequence(QLatin1String(key.keys)), &window);
        QObject::connect(keys, &QShortcut::activated, &window,
                         [&window, step] { goOnFrom(window, step); });
    };
    add(nextWindowKey, 1);
    add(previousWindowKey, -1);
}

bool pressButtonByEnter(QWidget& window, const QKeyEvent& event) {
    if (event.isAutoRepeat() || (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter))
        return false;
    auto* const button = qobject_cast<QAbstractButton*>(window.focusWidget());
    if (button == nullptr || button->isCheckable() || !button->isEnabled())
        return false;
    button->click();
    return true;
}

} // namespace velorin
