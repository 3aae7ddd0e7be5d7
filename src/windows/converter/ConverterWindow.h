// The converter's window: files that the user drops or chooses become sound, MIDI files, pages,
// pictures or scores.
//
//   add, clear    add files; take all out of the list
//   kind, folder  what is made, and where it goes
//   files         a row for each file: its state, its progress, and what was made
//   report        what became of the MIDI file at the cursor
//   progress      of all files; `percent` and `words` say it
//   start         "Start", "Cancel" while it works
//   drop          instead of the list while there are no files
#pragma once

#include "platform/Settings.h"
#include "windows/converter/ConverterDesk.h"
#include "windows/converter/ConverterFrame.h"
#include "windows/converter/DropPanel.h"
#include "windows/converter/FileList.h"
#include "windows/converter/FileQueue.h"
#include "windows/converter/ReportPanel.h"
#include "windows/frame/PictureButton.h"
#include "windows/frame/ProgressBar.h"

#include <QComboBox>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace velorin {

class ConverterWindow : public ConverterFrame {
    Q_OBJECT

public:
    /// `settings` outlives it. SoundFonts are looked for beside the program, in `programFolder`.
    ConverterWindow(ConverterDesk desk, platform::Settings& settings,
                    std::filesystem::path programFolder);
    ~ConverterWindow() override;

    /// Adds files, and the files in folders. A thread looks for them.
    void add(std::vector<std::filesystem::path> paths);

    /// Shows a sentence in place of the total, until something changes.
    void say(const std::string& sentence);

    void start(); ///< the default button, while it does not work
    void cancel();

    FileQueue queue;

    QWidget* strip = nullptr;
    PictureButton* addButton = nullptr;
    PictureButton* clearButton = nullptr;
    QLabel* makeHeading = nullptr;
    QComboBox* kind = nullptr;
    QLabel* intoHeading = nullptr;
    QComboBox* folder = nullptr;
    FileList* files = nullptr;
    DropPanel* drop = nullptr;
    ReportPanel* report = nullptr;
    QLabel* note = nullptr; ///< in the foot of the empty window
    ProgressTrack* progress = nullptr;
    ProgressBar* bar = nullptr;
    QLabel* percent = nullptr;
    QLabel* words = nullptr;
    QPushButton* startButton = nullptr;

    static constexpr QSize firstSize{760, 572};
    static constexpr QSize leastSize{600, 420};

protected:
    void layOut() override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeControls();
    void makeStrip();
    void makeFoot();
    void orderTabs();
    void connectHandlers();
    void makeKeys();
    void layOutStrip(int y);
    void layOutFoot();

    void readChoices();
    void storeChoices();
    void fillFolders();
    void chooseTarget(int entry);
    void chooseFiles();
    void chooseFolder();
    void offerFolder(QPoint place);
    void refresh();
    void refreshTotal();
    void refreshReport();
    void moveFocus();
    void setHot(bool hot);
    void act(int row, RowButton button);
    void actOnCursor(RowButton button);
    void ended();
    [[nodiscard]] bool mayClose();
    [[nodiscard]] std::string totalWords() const;

    ConverterDesk desk_;
    platform::Settings& settings_;
    std::filesystem::path home_;
    std::filesystem::path target_;              ///< empty: the folder of each file
    std::vector<std::filesystem::path> recent_; ///< folders chosen last, the newest first
    std::string message_;                       ///< instead of the total; empty for none
    int closedReport_ = 0;                      ///< the file whose report was closed; 0 for none
    int shownReport_ = 0;                       ///< the file whose report is shown; 0 for none
    bool isCancelled_ = false;                  ///< the last run was
    bool hadFiles_ = false;
    ConversionJobs searches_; ///< that look for files in folders
};

} // namespace velorin
