// The save dialog asks about the file that will be written.
#include "host/desktop/SaveDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

namespace velorin::host {
namespace {

class SaveDialogTest : public testing::Test {
protected:
    void put(const QString& name) const {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    /// Types the name and saves. `answer` is the button for the first question, Yes or No; after a
    /// No the dialog is cancelled.
    bool save(const QString& name, int filter, QMessageBox::StandardButton answer) {
        dialog.selectNameFilter(filters.at(filter));
        const auto answerQuestion = [this, answer] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                asked.push_back(box->text().section('\n', 0, 0));
                box->button(answer)->click();
            }
        };
        QTimer::singleShot(0, &dialog, [this, name, answerQuestion] {
            QTimer::singleShot(0, &dialog, answerQuestion); // runs in the loop of the question
            dialog.findChild<QLineEdit*>()->setText(name);
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
            if (dialog.isVisible())
                dialog.reject();
        });
        return dialog.choose();
    }
    bool save(const QString& name, int filter) { return save(name, filter, QMessageBox::No); }

    QTemporaryDir folder;
    const QStringList filters{"Midi (*.mid)", "score (*.sng)"};
    SaveDialog dialog{"Save music file", folder.path(), filters, {"*.mid", "*.sng"}, true};
    QStringList asked;
};

TEST(SavedName, HasTheEndingOfItsPattern) {
    EXPECT_EQ(nameForPattern("/a/song", "*.sng"), "/a/song.sng");
    EXPECT_EQ(nameForPattern("/a/song.SNG", "*.sng"), "/a/song.SNG");
    EXPECT_EQ(nameForPattern("/a/song.sng", "*.mid"), "/a/song.sng.mid");
    EXPECT_EQ(nameForPattern("/a/song no. 3", "*.mid"), "/a/song no. 3.mid");
    EXPECT_EQ(nameForPattern("/a/song  ", "*.sng"), "/a/song.sng");
    EXPECT_EQ(nameForPattern("/a/song", "*.wav *.mp3"), "/a/song.wav");
    EXPECT_EQ(nameForPattern("/a/song", "*.*"), "/a/song");
    EXPECT_EQ(nameForPattern("/a/song", "*"), "/a/song");
    EXPECT_EQ(nameForPattern("", "*.sng"), "");
}

TEST_F(SaveDialogTest, NameWithoutItsEndingIsAskedAboutAsTheFileThatIsThere) {
    put("song.sng");
    put("song.mid");
    EXPECT_FALSE(save("song", 1));
    EXPECT_FALSE(save("song", 0));
    EXPECT_EQ(asked, QStringList({"song.sng already exists.", "song.mid already exists."}));
}

TEST_F(SaveDialogTest, YesTakesTheNameWithItsEnding) {
    put("song.mid");
    EXPECT_TRUE(save("song", 0, QMessageBox::Yes));
    EXPECT_EQ(dialog.chosenName(), folder.filePath("song.mid"));
    EXPECT_EQ(asked.size(), 1);
}

TEST_F(SaveDialogTest, NewNameIsNotAskedAbout) {
    put("song.sng");
    EXPECT_TRUE(save("song", 0)) << "the other kind";
    EXPECT_EQ(dialog.chosenName(), folder.filePath("song.mid"));
    EXPECT_TRUE(save("Song", 1)) << "another case is another file";
    EXPECT_TRUE(asked.isEmpty());
}

TEST_F(SaveDialogTest, AnotherEndingAndADotArePartOfTheName) {
    put("song.sng.mid");
    put("no. 3.sng");
    put("song.sng");
    EXPECT_FALSE(save("song.sng", 0));
    EXPECT_FALSE(save("no. 3", 1));
    EXPECT_EQ(asked, QStringList({"song.sng.mid already exists.", "no. 3.sng already exists."}));
}

TEST_F(SaveDialogTest, FileWithoutAnEndingIsNotTheOneThatIsReplaced) {
    put("song");
    EXPECT_TRUE(save("song", 1));
    EXPECT_EQ(dialog.chosenName(), folder.filePath("song.sng"));
    EXPECT_TRUE(asked.isEmpty());
}

TEST_F(SaveDialogTest, ProposesANameThatTypingReplaces) {
    QTemporaryDir other;
    dialog.propose(other.filePath("My Song"));
    EXPECT_EQ(dialog.directory().absolutePath(), QDir(other.path()).absolutePath());
    auto* const field = dialog.findChild<QLineEdit*>();
    EXPECT_EQ(field->text(), "My Song");
    EXPECT_EQ(field->selectedText(), "My Song");
    dialog.selectNameFilter(filters.at(1));
    EXPECT_EQ(dialog.chosenName(), other.filePath("My Song.sng"));
}

TEST_F(SaveDialogTest, ProposesTheNameAloneIfItsFolderIsGone) {
    dialog.propose("/nowhere/at/all/song");
    EXPECT_EQ(dialog.directory().absolutePath(), QDir(folder.path()).absolutePath());
    EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "song");
    dialog.propose("");
    EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "song");
}

} // namespace
} // namespace velorin::host
