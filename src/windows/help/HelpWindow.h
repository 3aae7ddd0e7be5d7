// The help window: contents and search at the left, the page at the right.
#pragma once

#include "windows/frame/ToolFrame.h"
#include "windows/help/HelpBook.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextBrowser>

namespace velorin {

/// Shows the pages of the book only: links to anything else do nothing.
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

/// Can be resized; closing hides it. The tool windows are above all other windows, so the help is
/// top-most while it is the active window. Keys: Ctrl+F goes to the search, Alt+Left to the page
/// before, Esc closes.
class HelpWindow : public ToolFrame {
    Q_OBJECT

public:
    explicit HelpWindow(std::vector<HelpPage> pages);

    /// False if there is no page to show.
    [[nodiscard]] bool hasPages() const { return !book_.pages().empty(); }

    /// Shows the first page. The first time, the window is in the middle of the screen.
    void openFirstPage();
    /// The same with another page.
    void openAt(const QString& file);
    void openPage(const QString& file);

    HelpBrowser* browser;
    QLineEdit* search;
    QListWidget* contents; ///< the pages, or the hits of a search
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

    FrameState frames_; ///< its own; the other frames share the program's
    HelpBook book_;
    QWidget* grip_;
};

} // namespace velorin
