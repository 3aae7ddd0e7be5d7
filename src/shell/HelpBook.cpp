// The help as a book.
#include "shell/HelpBook.h"

#include "shell/Shortcuts.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <algorithm>

namespace velorin {

namespace {

constexpr int aroundWord = 60; ///< letters shown at each side of a word that was found

QString rowOf(const Shortcut& shortcut) {
    return QStringLiteral("<tr><td width=\"150\"><b>%1</b></td><td>%2</td></tr>")
        .arg(QLatin1String(shortcut.keys), QLatin1String(shortcut.meaning));
}

QString tableOfKeys() {
    QString table = "<table cellpadding=\"6\" cellspacing=\"0\" width=\"100%\">";
    for (const Shortcut& shortcut : shortcuts)
        table += rowOf(shortcut);
    for (const Shortcut& shortcut : editShortcuts)
        table += rowOf(shortcut);
    return table + "</table>";
}

QStringList wordsOf(const QString& text) {
    return text.toLower().split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
}

bool hasAll(const QString& text, const QStringList& words) {
    return std::all_of(words.begin(), words.end(), [&text](const QString& word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

/// How many of the words stand in headings and names of controls.
int wordsInHeadings(const QString& html, const QStringList& words) {
    static const QRegularExpression heading("<(h2|b)>(.*?)</\\1>");
    QString headings;
    for (auto found = heading.globalMatch(html); found.hasNext();)
        headings += found.next().captured(2) + '\n';
    return static_cast<int>(std::count_if(words.begin(), words.end(), [&](const QString& word) {
        return headings.contains(word, Qt::CaseInsensitive);
    }));
}

QString lineAround(const QString& plain, const QString& word) {
    const qsizetype title = plain.indexOf('\n') + 1;
    const qsizetype place = std::max(title, plain.indexOf(word, title, Qt::CaseInsensitive));
    const qsizetype from = std::max(title, place - aroundWord);
    QString line = plain.mid(from, word.size() + 2 * aroundWord).simplified();
    return (from > title ? QStringLiteral("...") : QString()) + line + "...";
}

} // namespace

HelpBook::HelpBook(std::vector<HelpPage> pages) : pages_(std::move(pages)) {
    for (HelpPage& page : pages_) {
        page.html.replace("<!-- keys -->", tableOfKeys());
        // The title stands for itself.
        const QString body = page.html.mid(page.html.indexOf("</h1>") + 5);
        plain_.push_back(page.title + '\n' + QTextDocumentFragment::fromHtml(body).toPlainText());
    }
}

const HelpPage* HelpBook::page(const QString& file) const {
    for (const HelpPage& page : pages_)
        if (page.file == file)
            return &page;
    return nullptr;
}

std::vector<HelpHit> HelpBook::search(const QString& text) const {
    const QStringList words = wordsOf(text);
    std::vector<HelpHit> hits;
    if (words.isEmpty())
        return hits;
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        const HelpPage& page = pages_[i];
        if (!hasAll(plain_[i], words))
            continue;
        const int inTitle = hasAll(page.title, words) ? 100 : 0;
        hits.push_back({page.file, page.title, lineAround(plain_[i], words.front()),
                        inTitle + wordsInHeadings(page.html, words)});
    }
    std::stable_sort(hits.begin(), hits.end(), [](const HelpHit& one, const HelpHit& other) {
        return one.rank > other.rank;
    });
    return hits;
}

} // namespace velorin
