// The native title of the main window: the score's name, and a mark while something is not saved.
#include "program/Program.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"
#include "windows/main/Form1.h"
#include "windows/strip/TitleLabel.h"

#include <gtest/gtest.h>

#include <QApplication>

using namespace velorin;

namespace {

class TitleTest : public testing::Test {
protected:
    void SetUp() override {
        applyLook(*qApp);
        ASSERT_TRUE(program.start());
    }
    void TearDown() override { program.Command3_Click(); }

    void draw(int column) {
        program.studio().score.NoteArray.write(0, column, 60);
        program.history.changeFinished();
    }
    void saveAs(const char* name) {
        program.session.files.SaveScoreFile((host.folder.path() / name).string());
        program.history.changeFinished();
    }
    [[nodiscard]] std::string title() { return program.form1().windowTitle().toStdString(); }

    scripted::ScriptedPlatform host;
    Program program{host.platform};
};

} // namespace

TEST_F(TitleTest, EmptySheetHasTheNameOfTheProgramAlone) {
    EXPECT_EQ(title(), "Velorin");
}

TEST_F(TitleTest, ScoreWithoutANameIsUntitledAndNotSaved) {
    draw(3);
    EXPECT_EQ(title(), "Untitled • - Velorin");
    program.history.undo();
    EXPECT_EQ(title(), "Velorin");
}

TEST_F(TitleTest, MarkGoesWithTheSaveAndComesWithTheNextChange) {
    draw(3);
    saveAs("paper-boat.sng");
    EXPECT_EQ(title(), "paper-boat - Velorin");
    draw(5);
    EXPECT_EQ(title(), "paper-boat • - Velorin");
    program.history.undo();
    EXPECT_EQ(title(), "paper-boat - Velorin");
}

TEST_F(TitleTest, NameWithThePlaceOfAMarkIsShownAsItIs) {
    draw(3);
    saveAs("[*]boat.sng");
    EXPECT_EQ(title(), "[*][*]boat - Velorin") << "as Qt writes it";
    EXPECT_FALSE(program.form1().isWindowModified());
}

TEST_F(TitleTest, DrawnCaptionStays) {
    draw(3);
    EXPECT_EQ(program.form1().lblTitle->text(), "Velorin");
}

TEST_F(TitleTest, DrawnTitleSaysTheSameAsTheNativeOne) {
    constexpr int wide = 600;
    EXPECT_EQ(program.form1().lblTitle->shown(wide), "Velorin");
    draw(3);
    saveAs("paper-boat.sng");
    draw(5);
    EXPECT_EQ(program.form1().lblTitle->shown(wide), "paper-boat \u2022 - Velorin");
    EXPECT_EQ(program.form1().lblTitle->accessibleName(), "paper-boat, not saved");
}
