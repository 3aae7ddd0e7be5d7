// Reads colours out of style sheets and sources.
#include "StyleColours.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

#include <utility>

namespace velorin {

StyleColours::StyleColours(QString sheet) {
    sheet.remove(QRegularExpression("/\\*.*?\\*/", QRegularExpression::DotMatchesEverythingOption));
    const QRegularExpression rule("([^{}]+)\\{([^{}]*)\\}");
    for (auto found = rule.globalMatch(sheet); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        for (const QString& selector : match.captured(1).split(','))
            for (const QString& line : match.captured(2).split(';')) {
                const auto colon = line.indexOf(':');
                if (colon > 0)
                    rules_[selector.simplified()][line.left(colon).simplified()] =
                        line.mid(colon + 1).simplified();
            }
    }
}

std::vector<QColor> StyleColours::all(const char* selector, const char* property) const {
    const QString value = rules_[QLatin1String(selector)][QLatin1String(property)];
    const QRegularExpression colour("(#[0-9A-Fa-f]{6})|var\\((--[a-z0-9-]+)\\)");
    std::vector<QColor> colours;
    for (auto found = colour.globalMatch(value); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        const QString name = match.captured(2);
        colours.emplace_back(name.isEmpty() ? match.captured(1) : rules_[":root"][name]);
    }
    EXPECT_FALSE(colours.empty()) << selector << " " << property;
    return colours.empty() ? std::vector{QColor()} : colours;
}

QColor StyleColours::one(const char* selector, const char* property) const {
    return all(selector, property).front();
}

QString sourceText(const char* path) {
    QFile file(QStringLiteral(VELORIN_SOURCES "/") + QLatin1String(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return QString::fromUtf8(file.readAll());
}

QColor constantOf(const char* path, const char* name) {
    const QRegularExpression numbers(
        QStringLiteral("\\b%1(?:\\{| = rgb\\()(\\d+), (\\d+), (\\d+)").arg(QLatin1String(name)));
    const QRegularExpressionMatch match = numbers.match(sourceText(path));
    EXPECT_TRUE(match.hasMatch()) << path << " " << name;
    return {match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
}

} // namespace velorin
