// What a screen reader gets: the name, kind and state of every control.
#include "windows/texts/ScreenReader.h"
#include "WholeProgram.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QScrollBar>
#include <QTabWidget>

#include <functional>

using namespace velorin;

namespace {

using Node = QAccessibleInterface;

void visitShown(Node* node, const std::function<void(Node*)>& visit) {
    if (node == nullptr || node->state().invisible)
        return;
    visit(node);
    for (int i = 0; i < node->childCount(); ++i)
        visitShown(node->child(i), visit);
}

/// Every visible control of a window, on each of its tabs.
void visitAllTabs(QWidget& window, const std::function<void(Node*)>& visit) {
    auto* const tabs = window.findChild<QTabWidget*>("SSTab1");
    const int count = tabs != nullptr ? tabs->count() : 1;
    for (int tab = 0; tab < count; ++tab) {
        if (tabs != nullptr)
            tabs->setCurrentIndex(tab);
        visitShown(QAccessible::queryAccessibleInterface(&window), visit);
    }
}

/// The control is pressed when the pending events are processed.
void press(Node& control) {
    control.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
}

/// A container needs no name, nor does a text that is empty now.
bool needsName(const Node& node) {
    switch (node.role()) {
    case QAccessible::Border:
    case QAccessible::Client:
    case QAccessible::LayeredPane:
    case QAccessible::PageTabList:
    case QAccessible::Pane:
    case QAccessible::StaticText:
        return false;
    default:
        return true;
    }
}

std::string placeOf(const Node& node) {
    QStringList names;
    for (const QObject* object = node.object(); object != nullptr; object = object->parent())
        names.prepend(object->objectName());
    return names.join('/').toStdString();
}

Node* readerOf(QWidget* window, const char* control) {
    return QAccessible::queryAccessibleInterface(window->findChild<QWidget*>(control));
}

struct ScreenReaderTest : testing::Test {
    QWidget* window(const char* name) {
        QWidget* const loaded = whole.program.window(QLatin1String(name), true);
        loaded->show();
        return loaded;
    }
    WholeProgram whole;
};

} // namespace

TEST_F(ScreenReaderTest, EveryControlOfEveryWindowHasANameAndAKind) {
    for (QWidget* const shown : whole.windows())
        visitAllTabs(*shown, [](Node* node) {
            EXPECT_NE(node->role(), QAccessible::NoRole) << placeOf(*node);
            if (needsName(*node)) {
                EXPECT_FALSE(node->text(QAccessible::Name).isEmpty())
                    << placeOf(*node) << " of kind " << node->role();
            }
        });
}

TEST_F(ScreenReaderTest, WhatTakesTheKeyboardIsNoMereArea) {
    for (QWidget* const shown : whole.windows())
        visitAllTabs(*shown, [shown](Node* node) {
            const auto* control = qobject_cast<const QWidget*>(node->object());
            const bool handsOn = control != nullptr && control->focusProxy() != nullptr;
            if (node->state().focusable && control != shown && !handsOn) {
                EXPECT_NE(node->role(), QAccessible::Client) << placeOf(*node);
                // The help page is text in which the reader can move.
                EXPECT_TRUE(node->role() != QAccessible::StaticText || node->textInterface())
                    << placeOf(*node);
            }
        });
}

TEST_F(ScreenReaderTest, PaintedControlsReportTheirKinds) {
    EXPECT_EQ(readerOf(window("Form1"), "MusicBox")->role(), QAccessible::Canvas);
    EXPECT_EQ(readerOf(window("Form1"), "Cmd2(6)")->role(), QAccessible::PushButton);
    EXPECT_EQ(readerOf(window("Form3"), "TrackSel(0)")->role(), QAccessible::RadioButton);
    EXPECT_EQ(readerOf(window("Form3"), "Ch(0)")->role(), QAccessible::CheckBox);
    EXPECT_EQ(readerOf(window("Record"), "rec")->role(), QAccessible::PushButton);
    EXPECT_EQ(readerOf(window("Record"), "P2")->role(), QAccessible::ProgressBar);
    EXPECT_EQ(readerOf(window("Wiz"), "L1(0)")->role(), QAccessible::PushButton);
}

TEST_F(ScreenReaderTest, ListTellsWhatItIsForByItsLabel) {
    Node* const list = readerOf(window("Form3"), "Combo1");
    EXPECT_EQ(list->role(), QAccessible::ComboBox);
    EXPECT_EQ(list->text(QAccessible::Value), "24 Nylon Guitar");
    const auto labels = list->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0].first->text(QAccessible::Name), "Instrument");
}

TEST_F(ScreenReaderTest, LabelThatIsAButtonIsCalledByItsCaption) {
    auto* const label = window("Record")->findChild<QLabel*>("Label1");
    Node* const reader = QAccessible::queryAccessibleInterface(label);
    EXPECT_EQ(reader->text(QAccessible::Name), "Start Recording");
    label->setText("Stop Recording");
    EXPECT_EQ(reader->text(QAccessible::Name), "Stop Recording");
}

TEST_F(ScreenReaderTest, PressOfAReaderSelectsARow) {
    QWidget* const setup = window("Form3");
    Node* const row = readerOf(setup, "TrackSel(3)");
    EXPECT_EQ(row->text(QAccessible::Name), "Channel 4");
    EXPECT_FALSE(row->state().checked);
    press(*row);
    EXPECT_TRUE(row->state().checked);
    EXPECT_EQ(whole.program.studio().score.CurrentRow, 3);
}

TEST_F(ScreenReaderTest, PressOfAReaderIsNoKeyOfTheActiveWindow) {
    Node* const row = readerOf(window("Form3"), "TrackSel(5)");
    QWidget* const mainWindow = window("Form1");
    mainWindow->activateWindow();
    QCoreApplication::processEvents();
    ASSERT_TRUE(mainWindow->isActiveWindow()); // where the space bar plays the song
    press(*row);
    EXPECT_TRUE(row->state().checked);
}

TEST_F(ScreenReaderTest, ReaderHasItsAnswerBeforeWhatItPressesIsDone) {
    Node* const row = readerOf(window("Form3"), "TrackSel(2)");
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(row->state().checked);
    QCoreApplication::processEvents();
    EXPECT_TRUE(row->state().checked);
}

TEST_F(ScreenReaderTest, PressOfAReaderOnADisabledButtonDoesNothing) {
    Node* const row = readerOf(window("Form3"), "TrackSel(2)");
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    static_cast<QWidget*>(row->object())->setEnabled(false);
    QCoreApplication::processEvents();
    EXPECT_FALSE(row->state().checked);
}

TEST_F(ScreenReaderTest, DisabledControlSaysSo) {
    Node* const copy = readerOf(window("Form2"), "Cmd2(12)");
    EXPECT_TRUE(copy->state().disabled);
    auto* const mode = window("Form2")->findChild<QAbstractButton*>("Cmd2(11)");
    mode->click();
    EXPECT_FALSE(copy->state().disabled);
}

TEST_F(ScreenReaderTest, PictureThatTellsOnAndOffIsAToggle) {
    auto* const loop = window("Form2")->findChild<QAbstractButton*>("Cmd2(10)");
    Node* const reader = QAccessible::queryAccessibleInterface(loop);
    EXPECT_TRUE(reader->state().checkable);
    EXPECT_FALSE(reader->state().checked);
    loop->click();
    EXPECT_TRUE(reader->state().checked);
}

TEST_F(ScreenReaderTest, ProgressIsAnnouncedInPercent) {
    QWidget* const track = window("Record")->findChild<QWidget*>("P2");
    QAccessibleValueInterface* const value =
        QAccessible::queryAccessibleInterface(track)->valueInterface();
    ASSERT_NE(value, nullptr);
    announceProgress(*track, 40);
    EXPECT_EQ(value->currentValue().toInt(), 40);
}

TEST_F(ScreenReaderTest, ScrollBarTellsItsValue) {
    auto* const tempo = window("Form3")->findChild<QScrollBar*>("HScroll1");
    Node* const reader = QAccessible::queryAccessibleInterface(tempo);
    EXPECT_EQ(reader->text(QAccessible::Name), "Tempo (playing speed)");
    tempo->setValue(70);
    EXPECT_EQ(reader->valueInterface()->currentValue().toInt(), 70);
}

TEST_F(ScreenReaderTest, NewsStaysForAReaderThatAsksAfterTheReport) {
    QWidget* const line = window("Form1")->findChild<QWidget*>("stripState");
    Node* const reader = QAccessible::queryAccessibleInterface(line);
    describeStatus(*line, "Before", false);
    announceStatus(*line, "News");
    EXPECT_EQ(reader->text(QAccessible::Name), "News");
    describeStatus(*line, "After", false);
    EXPECT_EQ(reader->text(QAccessible::Name), "News");
    describeStatus(*line, "Later news", true);
    EXPECT_EQ(reader->text(QAccessible::Name), "Later news");
}

TEST_F(ScreenReaderTest, ReaderHasItsAnswerBeforeTheHandlerOfAToolbarButtonRuns) {
    Node* const setup = readerOf(window("Form1"), "Cmd2(10)");
    EXPECT_EQ(setup->role(), QAccessible::PushButton);
    setup->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(whole.program.window("Form2", false), nullptr);
    QCoreApplication::processEvents();
    EXPECT_NE(whole.program.window("Form2", false), nullptr);
}
