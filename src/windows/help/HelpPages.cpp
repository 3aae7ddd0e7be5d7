// Reads the pages of the help from the resources.
#include "windows/help/HelpPages.h"

#include <QFile>
#include <QRegularExpression>

// Resources of a static library must be registered explicitly. The macro cannot be used in a
// namespace.
static void registerHelp() {
    Q_INIT_RESOURCE(help);
}

namespace velorin {

namespace {

constexpr const char* order[] = {
    "contents",          "drawing",         "chords",        "percussion",
    "editing",           "recording",       "files",         "export",
    "converter",         "history",         "keys",          "accessibility",
    "no-sound",          "main-window",     "setup-toolbar", "editing-toolbar",
    "recording-toolbar", "tutorial-wizard", "hint-window",
};

QString titleOf(const QString& html) {
    static const QRegularExpression title("<title>(.*?)</title>");
    return title.match(html).captured(1);
}

} // namespace

std::vector<HelpPage> helpPages() {
    registerHelp();
    std::vector<HelpPage> pages;
    for (const char* const name : order) {
        const QString file = QString::fromLatin1(name) + ".html";
        QFile stored(":/help/" + file);
        if (!stored.open(QIODevice::ReadOnly))
            continue;
        const QString html = QString::fromUtf8(stored.readAll());
        pages.push_back({file, titleOf(html), html});
    }
    return pages;
}

} // namespace velorin
