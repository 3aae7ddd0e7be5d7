// The file dialogs: what they show, and that they read no file.
#include "host/IconsByName.h"
#include "host/QtDialogs.h"
#include "host/QtMessageLoop.h"
#include "host/SystemClock.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/inotify.h>
#include <unistd.h>

#include <functional>

namespace velorin::host {
namespace {

/// Tells whether anybody has opened the file since.
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
        QFile file(path()); // no table of endings knows it, so only its content would tell its kind
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("60\r\n24\r\n");
    }

    [[nodiscard]] QString path() const { return folder.filePath("song.of-no-kind"); }

    /// Opens a dialog, waits until it lists the file, looks, and cancels it.
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
    QtDialogs dialogs{loop, folder.path()};
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

} // namespace
} // namespace velorin::host
