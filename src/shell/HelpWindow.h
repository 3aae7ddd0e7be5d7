// The help window: contents and search at the left, the page at the right.
#pragma once

#include "shell/HelpBook.h"
#include "shell/ToolFrame.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextBrowser>

namespace velorin {

/// Shows the pages of the book and nothing from anywhere else: no link leads out of it.
class HelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    HelpBrowser(const HelpBook& book, QWidget* parent);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

private:
    const HelpBook& book_;
};

/// It can be sized, and closes by hiding. The tool windows are always above others, so it opens
/// above all of them and stays there for as long as it is the active window. All of it works with
/// the keyboard: Ctrl+F to the search, Alt+Left to the page before, Esc to close.
class HelpWindow : public ToolFrame {
    Q_OBJECT

public:
    explicit HelpWindow(std::vector<HelpPage> pages);

    /// False if there is no page to show.
    [[nodiscard]] bool hasPages() const { return !book_.pages().empty(); }

    /// Shows the first page, in the middle of the screen at the first time.
    void openFirstPage();
    void openPage(const QString& file);

    HelpBrowser* browser;
    QLineEdit* search;
    QListWidget* contents; ///< the pages, or while something is searched for the hits
    QPushButton* back;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeKeys();
    void fillContents();
    void fillHits();
    void markCurrent(const QString& file);
    void add(const QString& file, const QString& text);

    FrameState frames_; ///< its own: the state of the other frames is the program's
    HelpBook book_;
    QWidget* grip_;
};

} // namespace velorin
