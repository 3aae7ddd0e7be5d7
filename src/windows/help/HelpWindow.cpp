// The help window.
#include "windows/help/HelpWindow.h"

#include "windows/frame/PlacedControls.h"
#include "windows/help/HelpHitPainter.h"
#include "windows/texts/DescribedControls.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QResizeEvent>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSizeGrip>

namespace velorin {

namespace {

constexpr QSize firstSize{860, 620};
constexpr QSize smallestSize{520, 320};
constexpr int margin = 8;
constexpr int top = toolTitleHeight + margin;
constexpr int contentsWidth = 230;
constexpr int fieldHeight = 26;
constexpr int gripSize = 16;
constexpr int fileRole = Qt::UserRole;

constexpr char browserLook[] =
    "QTextBrowser { background: #FFFFFF; color: #1E2246; border: 1px solid #868DC2;"
    " border-radius: 4px; selection-background-color: #2A62C4; selection-color: #FFFFFF; }"
    "QTextBrowser:focus { border: 2px solid #44CCFF; }";

constexpr char listLook[] =
    "QListWidget { background: #22264E; color: #E2E7F8; border: 1px solid #444A86; "
    "border-radius: 6px; padding: 4px; }"
    "QListWidget:focus { border: 2px solid #44CCFF; padding: 3px; }"
    "QListWidget::item { color: #E2E7F8; padding: 5px 8px; border-radius: 4px; }"
    "QListWidget::item:hover { background: #323768; }"
    "QListWidget::item:selected { background: #444A86; color: #FFFFFF; }";

constexpr char pageLook[] = "h1 { font-size: 20px; font-weight: 600; color: #262A56; }"
                            "h2 { font-size: 15px; font-weight: 600; color: #2A3890; }"
                            "p, li, td { font-size: 13px; color: #1E2246; }"
                            "td { padding: 6px; vertical-align: top; }"
                            "a { color: #2A62C4; text-decoration: underline; }"
                            "code { font-family: monospace; background-color: #F0F1FA; }";

} // namespace

HelpBrowser::HelpBrowser(const HelpBook& book, QWidget* parent)
    : QTextBrowser(parent), book_(book) {
    document()->setDefaultStyleSheet(pageLook);
    document()->setDocumentMargin(18);
    setOpenExternalLinks(false);
    setStyleSheet(browserLook);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (const HelpPage* page = book_.page(name.fileName()))
        return page->html;
    if (name.toString().startsWith(":/look/") || name.scheme() == "qrc")
        return QTextBrowser::loadResource(type, name);
    return {};
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    if (book_.page(name.fileName()) != nullptr || (name.path().isEmpty() && name.hasFragment()))
        QTextBrowser::doSetSource(name, type);
}

HelpWindow::HelpWindow(std::vector<HelpPage> pages)
    : ToolFrame({"Help", "Help", "main-13-help.svg", firstSize}, frames_),
      book_(std::move(pages)),
      grip_(new QSizeGrip(this)) {
    setWindowFlag(Qt::Tool, false);
    setWindowFlag(Qt::Window, true);
    setWindowTitle(QStringLiteral("Velorin Help"));
    setMinimumSize(smallestSize);
    search = new QLineEdit(this);
    search->setObjectName("search");
    setPlaceholder(*search, QStringLiteral("Search in all pages"));
    search->setClearButtonEnabled(true);
    contents = new QListWidget(this);
    contents->setObjectName("contents");
    contents->setStyleSheet(listLook);
    contents->setWordWrap(true);
    contents->setItemDelegate(new HelpHitPainter(contents));
    contents->setResizeMode(QListView::Adjust);
    contents->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    back = new QPushButton(QStringLiteral("Back"), this);
    back->setObjectName("back");
    back->setEnabled(false);
    browser = new HelpBrowser(book_, this);
    browser->setObjectName("page");
    grip_->setObjectName("grip");
    describeControls(*this, "Help");
    fillContents();
    connect(search, &QLineEdit::textChanged, this,
            [this] { search->text().trimmed().isEmpty() ? fillContents() : fillHits(); });
    connect(contents, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item != nullptr)
            openPage(item->data(fileRole).toString());
    });
    connect(back, &QPushButton::clicked, browser, &QTextBrowser::backward);
    connect(browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(browser, &QTextBrowser::sourceChanged, this,
            [this](const QUrl& page) { markCurrent(page.fileName()); });
    onClose = [this] { hide(); };
    makeKeys();
    frame.SkinToolWindow();
    resize(firstSize);
}

void HelpWindow::makeKeys() {
    const auto key = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    key(QKeySequence::Find, [this] {
        search->setFocus();
        search->selectAll();
    });
    key(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { browser->backward(); });
    setTabOrder(search, contents);
    setTabOrder(contents, back);
    setTabOrder(back, browser);
    setTabOrder(browser, imgTitleClose);
}

void HelpWindow::openFirstPage() {
    if (hasPages())
        openAt(book_.pages().front().file);
}

void HelpWindow::openAt(const QString& file) {
    if (!hasPages())
        return;
    if (browser->source().isEmpty()) {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        move(screen.center() - rect().center());
        browser->setFocus();
    }
    openPage(file);
    SetTopMost(*this, true);
    show();
    raise();
    activateWindow();
}

void HelpWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange)
        SetTopMost(*this, isActiveWindow());
    ToolFrame::changeEvent(event);
}

void HelpWindow::openPage(const QString& file) {
    if (browser->source().fileName() != file)
        browser->setSource(QUrl(file));
}

void HelpWindow::add(const QString& file, const QString& text) {
    auto* const item = new QListWidgetItem(text, contents);
    item->setData(fileRole, file);
}

void HelpWindow::fillContents() {
    const QSignalBlocker quiet(contents);
    contents->clear();
    for (const HelpPage& page : book_.pages())
        add(page.file, page.title);
    markCurrent(browser->source().fileName());
}

// The page does not change until the user chooses a hit.
void HelpWindow::fillHits() {
    const QSignalBlocker quiet(contents);
    contents->clear();
    for (const HelpHit& hit : book_.search(search->text()))
        add(hit.file, hit.title + '\n' + hit.line);
    if (contents->count() == 0) {
        auto* const nothing = new QListWidgetItem(QStringLiteral("Nothing was found."), contents);
        nothing->setFlags(Qt::NoItemFlags);
    }
    contents->setCurrentRow(-1);
}

void HelpWindow::markCurrent(const QString& file) {
    const QSignalBlocker quiet(contents);
    for (int row = 0; row < contents->count(); ++row)
        if (contents->item(row)->data(fileRole).toString() == file) {
            contents->setCurrentRow(row);
            return;
        }
    contents->setCurrentRow(-1);
}

void HelpWindow::resizeEvent(QResizeEvent* event) {
    ToolFrame::resizeEvent(event);
    lblTitle->resize(width() - 76, toolTitleHeight);
    imgTitleClose->move(width() - 34, 4);
    const int foot = height() - margin - gripSize;
    search->setGeometry(margin, top, contentsWidth, fieldHeight);
    const int listTop = top + fieldHeight + margin;
    const int backTop = foot - fieldHeight - 2;
    contents->setGeometry(margin, listTop, contentsWidth, backTop - margin - listTop);
    back->setGeometry(margin, backTop, contentsWidth, fieldHeight + 2);
    const int pageLeft = margin + contentsWidth + margin;
    browser->setGeometry(pageLeft, top, width() - pageLeft - margin, foot - top);
    grip_->setGeometry(width() - margin - gripSize, foot, gripSize, gripSize);
    frame.SkinToolWindow();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        hide();
    else if (event->key() == Qt::Key_Return && contents->count() > 0 && search->hasFocus()) {
        contents->setFocus();
        contents->setCurrentRow(0);
    } else
        ToolFrame::keyPressEvent(event);
}

} // namespace velorin
