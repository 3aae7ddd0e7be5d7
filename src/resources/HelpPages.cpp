// The pages of the help, read from the program's own resources.
#include "resources/HelpPages.h"

#include <QFile>
#include <QRegularExpression>

// A library's resources are registered by hand; the macro cannot stand in a namespace.
static void registerHelp() {
    Q_INIT_RESOURCE(help);
}

namespace velorin {

namespace {

constexpr const char* order[] = {
    "contents",          "drawing",         "chords",        "percussion",
    "editing",           "recording",       "files",         "keys",
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
