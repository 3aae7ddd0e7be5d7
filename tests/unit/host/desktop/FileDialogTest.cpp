// The file dialogs: what they show, and that they read no file.
#include "host/desktop/IconsByName.h"
#include "host/desktop/QtDialogs.h"
#include "host/loop/QtMessageLoop.h"
#include "host/process/SystemClock.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QStyledItemDelegate>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/inotify.h>
#include <unistd.h>

#include <functional>

namespace velorin::host {
namespace {

/// Detects that the file was opened.
class OpenWatch {
public:
    explicit OpenWatch(const QString& file) : queue_(inotify_init1(IN_NONBLOCK)) {
        inotify_add_watch(queue_, file.toUtf8().constData(), IN_OPEN);
    }
    ~OpenWatch() { close(queue_); }
    OpenWatch(const OpenWatch&) = delete;
    OpenWatch& operator=(const OpenWatch&) = delete;

    [[nodiscard]] bool wasOpened() const {
        char events[4096];
        return read(queue_, events, sizeof events) > 0;
    }

private:
    int queue_;
};

class FileDialogTest : public testing::Test {
protected:
    FileDialogTest() {
        QFile file(path()); // an unknown extension: only the content would tell the kind
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("60\r\n24\r\n");
    }

    [[nodiscard]] QString path() const { return folder.filePath("song.of-no-kind"); }

    /// Opens a dialog, waits until it lists the file, calls `look`, and cancels it.
    void look(const std::string& filter, const std::function<void(QDialog&)>& atDialog) {
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            const auto* const list = dialog->findChild<QAbstractItemView*>("treeView");
            const QAbstractItemModel& rows = *list->model();
            const QModelIndex top = list->rootIndex();
            if (rows.rowCount(top) == 0 ||
                rows.index(0, kindColumn, top).data().toString().isEmpty())
                return;
            atDialog(*dialog);
            dialog->reject();
        });
        poll.start(1);
        EXPECT_EQ(dialogs.GetOpenFileNameA({"Open", filter, 1, 0}), std::nullopt);
    }

    static constexpr int kindColumn = 2;
    const QTemporaryDir folder;
    SystemClock clock;
    QtMessageLoop loop{clock};
    scripted::ScriptedSettings settings;
    QtDialogs dialogs{loop, settings, folder.path()};
};

TEST_F(FileDialogTest, FilterIsShownAsTheProgramHasIt) {
    QString shown;
    look("Midi, all(*.mid;*)|*.mid;*", [&shown](QDialog& dialog) {
        shown = dialog.findChild<QComboBox*>("fileTypeCombo")->currentText();
    });
    EXPECT_EQ(shown, "Midi, all(*.mid;*)");
}

TEST_F(FileDialogTest, FilesAreListedWithoutBeingRead) {
    const OpenWatch watch(path());
    QString name;
    look("All(*)|*", [&name](QDialog& dialog) {
        const auto* const list = dialog.findChild<QAbstractItemView*>("treeView");
        name = list->model()->index(0, 0, list->rootIndex()).data().toString();
        dialog.grab(); // with the icon
    });
    EXPECT_EQ(name, "song.of-no-kind");
    EXPECT_FALSE(watch.wasOpened());
}

TEST_F(FileDialogTest, FilesHaveTheIconAndTheKindOfTheirEnding) {
    const IconsByName icons;
    const OpenWatch watch(path());
    EXPECT_FALSE(icons.type(QFileInfo(path())).isEmpty());
    EXPECT_FALSE(icons.icon(QFileInfo(path())).isNull());
    EXPECT_FALSE(watch.wasOpened());
    EXPECT_FALSE(icons.icon(QFileInfo(folder.path())).isNull());
    EXPECT_EQ(icons.type(QFileInfo(folder.path())),
              QFileIconProvider().type(QFileInfo(folder.path())));
}

TEST_F(FileDialogTest, ScoresHaveTheProgramsIconWhereTheDesktopDoesNotKnowThem) {
    const IconsByName icons;
    EXPECT_EQ(icons.type(QFileInfo("/nowhere/song.sng")), "Velorin score");
    EXPECT_EQ(icons.type(QFileInfo("/nowhere/SONG.SNG")), "Velorin score");
    EXPECT_NE(icons.type(QFileInfo("/nowhere/song.txt")), "Velorin score");
    applyLook(*qApp);
    const QImage score = icons.icon(QFileInfo("/nowhere/song.sng")).pixmap(32, 32).toImage();
    const QImage drawn = QIcon(":/look/score-file.svg").pixmap(32, 32).toImage();
    EXPECT_FALSE(drawn.isNull());
    EXPECT_EQ(score, drawn);
}

TEST_F(FileDialogTest, CannotBeMinimisedAndItsListsHaveHighRows) {
    look("All(*)|*", [](QDialog& dialog) {
        EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
        EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
        const auto* const list = dialog.findChild<QComboBox*>("fileTypeCombo");
        EXPECT_EQ(list->maxVisibleItems(), 18);
        EXPECT_NE(qobject_cast<QStyledItemDelegate*>(list->itemDelegate()), nullptr);
    });
}

TEST(FileDialogFilters, AreWrittenInTheFormOfTheDialog) {
    EXPECT_EQ(nameFilters("Midi(*.mid)|*.mid|score(*.sng)|*.sng"),
              QStringList({"Midi(*.mid)", "score(*.sng)"}));
    EXPECT_EQ(nameFilters("Score Files (*.sng) |*.sng|"), QStringList({"Score Files (*.sng)"}));
    EXPECT_EQ(nameFilters("Midi, wav(*.mid;*.wav)|*.mid;*.wav"),
              QStringList({"Midi, wav (*.mid *.wav)"}));
    EXPECT_EQ(nameFilters("Sound|*.wav;*.mp3|odd"), QStringList({"Sound (*.wav *.mp3)"}));
}

} // namespace
} // namespace velorin::host
