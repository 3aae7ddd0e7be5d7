// The tables of contrasts in docs/accessibility.md.
#include "ContrastTable.h"

#include "StyleColours.h"
#include "support/contrast/Contrast.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

/// Rounded down, so that no figure is better than it is.
QString figure(double ratio) {
    return QString::number(std::floor(ratio * 10.0) / 10.0, 'f', 1);
}

QString tableOf(const std::vector<ColourPair>& pairs) {
    const bool hasOther = !pairs.empty() && !pairs.front().other.empty();
    QString table = hasOther ? "| What | On | Contrast | Needed | Another way to know it |\n"
                               "|---|---|---|---|---|\n"
                             : "| What | On | Contrast | Needed |\n|---|---|---|---|\n";
    for (const ColourPair& pair : pairs) {
        table += QStringLiteral("| %1 | %2 | %3 | %4 |")
                     .arg(QString::fromStdString(pair.what), QString::fromStdString(pair.ground),
                          figure(ratioOf(pair)), figure(pair.needed));
        table += hasOther ? " " + QString::fromStdString(pair.other) + " |\n" : "\n";
    }
    return table;
}

} // namespace

double ratioOf(const ColourPair& pair) {
    double worst = 21.0;
    for (const QColor& below : pair.below)
        worst = std::min(worst, contrast(pair.above, below));
    return worst;
}

void expectTable(const char* name, const std::vector<ColourPair>& pairs) {
    const QString document = sourceText("docs/accessibility.md");
    const QString begin = QStringLiteral("<!-- %1 -->\n").arg(QLatin1String(name));
    const auto from = document.indexOf(begin);
    ASSERT_GE(from, 0) << name;
    const auto first = from + begin.size();
    const QString found = document.mid(first, document.indexOf("<!-- end -->", first) - first);
    EXPECT_EQ(found.toStdString(), tableOf(pairs).toStdString())
        << "Put the second table into docs/accessibility.md.";
}

} // namespace velorin
