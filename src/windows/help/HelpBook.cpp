// The pages of the help with the key table filled in, and the search in them.
#include "windows/help/HelpBook.h"

#include "windows/texts/KeyTable.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <algorithm>

namespace velorin {

namespace {

constexpr int aroundWord = 60; ///< letters shown before and after the word found

QString rowOf(const Key& key) {
    return QStringLiteral("<tr><td width=\"150\"><b>%1</b></td><td>%2</td></tr>")
        .arg(QLatin1String(key.keys), QLatin1String(key.meaning));
}

QString tablesOfKeys() {
    QString tables;
    for (const KeySection& section : keySections()) {
        tables += QStringLiteral("<h2>%1</h2>").arg(QLatin1String(section.heading));
        tables += "<table cellpadding=\"6\" cellspacing=\"0\" width=\"100%\">";
        for (const Key& key : section.keys)
            tables += rowOf(key);
        tables += "</table>";
    }
    return tables;
}

/// "<!-- keys of Form1.Cmd2(1) -->" becomes "Keys: Ctrl+N."
void fillInKeys(QString& html) {
    static const QRegularExpression mark("<!-- keys of (\\w+)\\.([\\w()]+) -->");
    for (auto found = mark.match(html); found.hasMatch(); found = mark.match(html)) {
        const std::string keys =
            keysOf(found.captured(1).toStdString(), found.captured(2).toStdString());
        html.replace(found.capturedStart(), found.capturedLength(),
                     QStringLiteral("Keys: %1.").arg(QString::fromStdString(keys)));
    }
    html.replace("<!-- keys -->", tablesOfKeys());
}

QStringList wordsOf(const QString& text) {
    return text.toLower().split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
}

bool hasAll(const QString& text, const QStringList& words) {
    return std::all_of(words.begin(), words.end(), [&text](const QString& word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

/// The number of words that are in headings and names of controls.
int wordsInHeadings(const QString& html, const QStringList& words) {
    static const QRegularExpression heading("<(h2|b)>(.*?)</\\1>");
    QString headings;
    for (auto found = heading.globalMatch(html); found.hasNext();)
        headings += found.next().captured(2) + '\n';
    return static_cast<int>(std::count_if(words.begin(), words.end(), [&](const QString& word) {
        return headings.contains(word, Qt::CaseInsensitive);
    }));
}

/// The start of the word at `place`, which is not before `least`.
qsizetype wordStart(const QString& text, qsizetype place, qsizetype least) {
    while (place > least && !text.at(place - 1).isSpace())
        --place;
    return place;
}

/// Whole words only.
QString lineAround(const QString& plain, const QString& word) {
    const qsizetype title = plain.indexOf('\n') + 1;
    const qsizetype place = std::max(title, plain.indexOf(word, title, Qt::CaseInsensitive));
    const qsizetype found = wordStart(plain, place, title);
    qsizetype from = std::max(title, place - aroundWord);
    while (from > title && from < found && !plain.at(from - 1).isSpace())
        ++from;
    from = std::min(from, found);
    qsizetype to = std::min(plain.size(), place + word.size() + aroundWord);
    if (to < plain.size())
        to = wordStart(plain, to, place + word.size());
    return (from > title ? QStringLiteral("...") : QString()) +
           plain.mid(from, to - from).simplified() +
           (to < plain.size() ? QStringLiteral("...") : QString());
}

} // namespace

HelpBook::HelpBook(std::vector<HelpPage> pages) : pages_(std::move(pages)) {
    for (HelpPage& page : pages_) {
        fillInKeys(page.html);
        // The title is stored once, before the body.
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
