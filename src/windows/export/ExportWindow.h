// The Export window: makes a file of the song on the tableaux, while the song may play and change.
//
//   cards            the five kinds of files: one of them is chosen
//   name, ending     the name of the new file; "there already" if there is such a file
//   folder, choose   where it goes
//   quality          the list of the kind's qualities
//   length, size     of what will be made
//   foot             what goes on: the sentence of the kind, progress, result; and the buttons
#pragma once

#include "windows/export/ExportFoot.h"
#include "windows/export/ExportKinds.h"
#include "windows/export/KindCard.h"
#include "windows/frame/ToolFrame.h"
#include "windows/making/TimeLeft.h"

#include <QComboBox>
#include <QLineEdit>

#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace velorin {

class ExportTool;
class Session;
class ToolWindows;

/// The beginning of its settings.
constexpr char exportSetting[] = "export";

class ExportWindow : public ToolFrame {
    Q_OBJECT

public:
    ExportWindow(ExportTool& owner, Session& session, ToolWindows& windows);

    void placeWindow();  ///< where it was when it was closed; it stays hidden
    void storeChoices(); ///< also the place

    /// The score has changed, or got another name.
    void songChanged();

    /// Chooses a card, as a click does. Does nothing while a file is being made.
    void chooseKind(convert::Kind kind);

    void startExport();  ///< the default button: "Export", "Replace", "Export again"
    void cancelExport(); ///< what is being made is dropped
    void giveUp();       ///< the same, and without an answer: the window is about to close

    [[nodiscard]] bool isWorking() const { return job_ != 0; }
    [[nodiscard]] std::filesystem::path target() const;

    std::array<KindCard*, 5> cards{};
    QLineEdit* name = nullptr;
    QLabel* ending = nullptr;
    QLineEdit* folder = nullptr;
    QPushButton* choose = nullptr;
    QComboBox* quality = nullptr;
    QLabel* length = nullptr;
    QLabel* tail = nullptr;
    QLabel* size = nullptr;
    std::unique_ptr<ExportFoot> foot;

protected:
    void enterEvent(QEnterEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    enum class State { choosing, working, done, failed };

    void makeControls();
    void makeFields();
    void makeHeading(const char* text, QRect place);
    void connectHandlers();
    void readChoices();
    void chooseKind();
    void stepKind(int step);
    void choosePlace();
    void choicesChanged();
    void showTarget();
    void showMeasure();
    void measure();
    void proposeName();
    void enableChoices(bool enabled);
    void moveFocus(QWidget* to);
    void playMade();
    void showMade();
    void fail(const std::string& sentence);
    void finished(const std::string& reason);
    void showDone();

    [[nodiscard]] std::size_t kindIndex() const;
    [[nodiscard]] const ExportKind& kind() const { return exportKinds()[kindIndex()]; }
    [[nodiscard]] std::size_t qualityIndex() const;
    [[nodiscard]] std::filesystem::path typedFolder() const;

    ExportTool& owner_;
    Session& session_;
    ToolWindows& windows_;
    std::filesystem::path home_;
    std::vector<QLabel*> headings_; ///< of the panel
    State state_ = State::choosing;
    int job_ = 0;              ///< 0 for none
    int measuring_ = 0;        ///< the job that measures; 0 for none
    bool isSongStale_ = true;  ///< the song was changed since `measure` began
    bool isStopped_ = false;   ///< the user has cancelled the job
    bool isReplacing_ = false; ///< the button says "Replace"
    ExportMeasure measure_;
    std::filesystem::path made_; ///< the last file made here; "Export again" replaces it
    std::string proposed_;       ///< the name that was proposed last
    std::array<std::size_t, 5> qualities_{}; ///< chosen, of each kind
    TimeLeft timeLeft_;
};

} // namespace velorin
