// The frame of a tool window.
#include "windows/frame/ToolFrame.h"

#include "platform/Settings.h"
#include "windows/frame/SettingValues.h"
#include "windows/frame/WindowKeys.h"

#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>

namespace velorin {

namespace {

/// The control before another one in the Tab order; the window if there is none.
QWidget* stopBefore(const QWidget& control) {
    QWidget* stop = control.previousInFocusChain();
    while (!stop->isWindow() && stop->focusPolicy() == Qt::NoFocus) {
        stop = stop->previousInFocusChain();
    }
    return stop;
}

} // namespace

ToolFrame::ToolFrame(const Face& face, FrameState& state, Qt::WindowFlags stacking)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | stacking),
      lblTitle(new QLabel(QString::fromLatin1(face.title), this)),
      imgTitleClose(new QToolButton(this)),
      frame(*this, FrameKind::tool, toolWindowEllipse, state),
      place(*this) {
    setObjectName(face.name);
    setWindowTitle(QString::fromLatin1(face.title).trimmed());
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_AlwaysShowToolTips); // even if another window is active
    const QString icon = QStringLiteral(":/look/") + face.icon;
    setWindowIcon(QIcon(icon));
    resize(face.size);

    auto* const picture = new QLabel(this);
    picture->setAccessibleName(windowTitle());
    picture->setPixmap(QIcon(icon).pixmap(QSize(16, 16), devicePixelRatioF()));
    picture->setGeometry(12, 6, 16, 16);
    lblTitle->setObjectName("lblTitle");
    lblTitle->setGeometry(34, 0, face.size.width() - 76, toolTitleHeight);
    lblTitle->setStyleSheet("color: #FFFFC0; font-size: 13px; font-weight: 600;");
    imgTitleClose->setObjectName("imgTitleClose");
    imgTitleClose->setProperty("role", "title");
    imgTitleClose->setProperty("danger", true);
    imgTitleClose->setIcon(QIcon(":/look/title-close.svg"));
    imgTitleClose->setIconSize(QSize(16, 16));
    imgTitleClose->setGeometry(face.size.width() - 34, 4, 26, 20);
    imgTitleClose->setFocusPolicy(Qt::TabFocus);
    connect(imgTitleClose, &QToolButton::clicked, this, [this] {
        if (onClose) {
            onClose();
        }
    });
    addWindowKeys(*this);
    setFocus(); // so that no control has the focus ring when the window becomes active
    makeDragHandle(*lblTitle);
    makeDragHandle(*picture);
    makeDragHandle(*this); // every part of the window that accepts no press
}

void ToolFrame::placeFrom(platform::Settings& settings, const std::string& key, float defaultLeft,
                          float defaultTop, platform::Desktop& desktop) {
    const auto read = [&settings](const std::string& name, float fallback) {
        return settingTwips(settings.GetSetting(settingsSection, name, settingText(fallback)))
            .value_or(fallback);
    };
    const float left = read(key + " left", defaultLeft);
    const float top = read(key + " top", defaultTop);
    if (isPlaceOfADesktop(left, top)) {
        place.moveTo(left, top);
    } else {
        place.moveTo(defaultLeft, defaultTop);
    }
    comeIntoReach(desktop.screens());
    const auto isStored = [&settings](const std::string& name) {
        return settings.GetSetting(settingsSection, name, "1") ==
               settings.GetSetting(settingsSection, name, "0");
    };
    unplaced_ = !isStored(key + " left") && !isStored(key + " top");
}

void ToolFrame::savePlace(platform::Settings& settings, const std::string& key) const {
    settings.SaveSetting(settingsSection, key + " left", settingText(place.Left()));
    settings.SaveSetting(settingsSection, key + " top", settingText(place.Top()));
}

QRect ToolFrame::grip() const {
    return {0, 0, imgTitleClose->x(), toolTitleHeight};
}

void ToolFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    frame.paintFrameGround(painter);
}

void ToolFrame::closeEvent(QCloseEvent* event) {
    // The window system's close does the same as the close button.
    event->ignore();
    if (onClose) {
        onClose();
    }
}

void ToolFrame::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && onActivate) {
        onActivate();
    }
    QWidget::changeEvent(event);
}

void ToolFrame::keyPressEvent(QKeyEvent* event) {
    if (!pressButtonByEnter(*this, *event) && (!onKey || !onKey(*event))) {
        QWidget::keyPressEvent(event);
    }
}

/// Puts the close button last in the Tab order, as in the main window.
void ToolFrame::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    unplaced_ = false;
    QWidget* const last = stopBefore(*this);
    if (last == imgTitleClose || last == this) {
        return;
    }
    // Setting it directly after the last control would change nothing: the order is a ring, in
    // which the first control follows the last one.
    setTabOrder(stopBefore(*last), imgTitleClose);
    setTabOrder(last, imgTitleClose);
}

float middleTwips(int screenPx, int windowPx) {
    return static_cast<float>((screenPx - windowPx) * platform::twipsPerPixel) / 2.0F;
}

float endTwips(int screenPx, int windowPx, float fromEnd) {
    return static_cast<float>((screenPx - windowPx) * platform::twipsPerPixel) - fromEnd;
}

} // namespace velorin
