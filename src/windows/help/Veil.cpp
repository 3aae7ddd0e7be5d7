// The panes over the windows that take no clicks.
#include "windows/help/Veil.h"

#include "windows/frame/LookColors.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QWidget>

namespace velorin {

namespace {

constexpr int veilAlpha = 110; ///< of 255: colours that the hint names can still be told apart

class Pane : public QWidget {
public:
    explicit Pane(QWidget& window) : QWidget(&window) {
        setObjectName(QStringLiteral("veil"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
        setFocusPolicy(Qt::NoFocus);
        setGeometry(window.rect());
        raise();
        show();
    }

protected:
    // The corners of the window, outside its frame, stay transparent.
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        QColor dark = look::ink950;
        dark.setAlpha(veilAlpha);
        painter.fillRect(rect(), dark);
    }
};

/// A window with a frame: no menu, tool tip or list.
bool isFramed(const QWidget& window) {
    const Qt::WindowType type = window.windowType();
    return type == Qt::Window || type == Qt::Tool || type == Qt::Dialog;
}

} // namespace

Veil::Veil(QWidget& bright) : bright_(bright) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            cover(*window);
    }
    qApp->installEventFilter(this);
}

Veil::~Veil() {
    for (const QPointer<QWidget>& pane : panes_)
        delete pane.data();
}

void Veil::cover(QWidget& window) {
    if (&window == &bright_ || !isFramed(window))
        return;
    for (const QPointer<QWidget>& pane : panes_) {
        if (pane && pane->parentWidget() == &window)
            return;
    }
    panes_.emplace_back(new Pane(window));
}

bool Veil::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType())
        return false;
    auto& window = static_cast<QWidget&>(*watched);
    if (event->type() == QEvent::Show && window.isWindow())
        cover(window);
    if (event->type() == QEvent::Resize && window.isWindow()) {
        for (const QPointer<QWidget>& pane : panes_) {
            if (pane && pane->parentWidget() == &window)
                pane->setGeometry(window.rect());
        }
    }
    return false;
}

} // namespace velorin
