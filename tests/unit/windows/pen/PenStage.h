// The tableaux with their mouse handlers, and a pen on them.
#pragma once

#include "support/TableauStage.h"
#include "windows/main/MusicMouse.h"
#include "windows/pen/Pen.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTest>

namespace velorin {

/// 640 by 480: columns [0, 46) and, without the strip, lines [0, 24) of the music tableau.
struct PenStage : scripted::TableauStage {
    PenStage() {
        const auto connect = [](PictureBox& box, auto& target, auto down, auto move, auto up) {
            box.onMouseDown = [&target, down](int b, int s, double x, double y) {
                (target.*down)(b, s, x, y);
            };
            box.onMouseMove = [&target, move](int b, int s, double x, double y) {
                (target.*move)(b, s, x, y);
            };
            box.onMouseUp = [&target, up](int b, int s, double x, double y) {
                (target.*up)(b, s, x, y);
            };
        };
        connect(*area.MusicBox, mouse, &MusicMouse::MusicBox_MouseDown,
                &MusicMouse::MusicBox_MouseMove, &MusicMouse::MusicBox_MouseUp);
        connect(*area.Beatbox, percussion, &PercussionTableau::Beatbox_MouseDown,
                &PercussionTableau::Beatbox_MouseMove, &PercussionTableau::Beatbox_MouseUp);
        connect(*area.Pic1, poly, &PolyTableau::Pic1_MouseDown, &PolyTableau::Pic1_MouseMove,
                &PolyTableau::Pic1_MouseUp);
        pen.onFocusNeeded = [](QWidget& box) { box.setFocus(Qt::OtherFocusReason); };
        area.Beatbox->hide();
        resize(640, 480);
        area.show();
        QApplication::setActiveWindow(&area);
        area.MusicBox->setFocus(Qt::TabFocusReason);
    }

    /// Presses the key and keeps it down.
    void hold(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        sendKey(QEvent::KeyPress, key, modifiers, false);
    }
    void repeat(int key) { sendKey(QEvent::KeyPress, key, Qt::NoModifier, true); }
    void lift(int key) { sendKey(QEvent::KeyRelease, key, Qt::NoModifier, false); }
    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        hold(code, modifiers);
        lift(code);
    }
    void keys(int code, int count) {
        for (int i = 0; i < count; ++i)
            key(code);
    }

    void sendKey(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, bool isRepeat) {
        QWidget* const target = area.focusWidget() != nullptr ? area.focusWidget() : &area;
        QKeyEvent event(type, key, modifiers, {}, isRepeat);
        QApplication::sendEvent(target, &event);
    }

    MusicMouse mouse{studio, area, music, poly, sounding, desk};
    Pen pen{PenSheet{*area.MusicBox, *area.Beatbox, *area.Pic1, *area.HScroll1, *area.VScroll1}};
};

} // namespace velorin
