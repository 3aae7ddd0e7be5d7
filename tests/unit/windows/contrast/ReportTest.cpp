// The tests that docs/accessibility.md names are there.
#include "StyleColours.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

namespace velorin {
namespace {

/// "Suite.Name" of all unit tests, their suites, and the names of the files of tests.
QSet<QString> namesOfTests() {
    const QRegularExpression test("TEST(?:_F|_P)?\\(\\s*(\\w+),\\s*(\\w+)\\)");
    const QRegularExpression function("^def (\\w+)\\(", QRegularExpression::MultilineOption);
    QSet<QString> names;
    QDirIterator files(QStringLiteral(VELORIN_SOURCES "/tests"), {"*.cpp", "*.py"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        names.insert(files.fileName());
        names.insert(files.fileInfo().completeBaseName());
        const QString content = QString::fromUtf8(file.readAll());
        for (auto found = test.globalMatch(content); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            names.insert(match.captured(1));
            names.insert(match.captured(1) + "." + match.captured(2));
        }
        for (auto found = function.globalMatch(content); found.hasNext();)
            names.insert(found.next().captured(1));
    }
    return names;
}

TEST(AccessibilityReport, NamesOnlyTestsThatExist) {
    const QSet<QString> names = namesOfTests();
    const QRegularExpression named(
        "\\b([A-Z]\\w*Test(?:\\.\\w+)?|\\w+_test\\.py|[a-z]+_[a-z_]+)\\b");
    int found = 0;
    for (auto match = named.globalMatch(sourceText("docs/accessibility.md")); match.hasNext();) {
        const QString name = match.next().captured(1);
        EXPECT_TRUE(names.contains(name)) << name.toStdString();
        ++found;
    }
    EXPECT_GT(found, 50);
}

} // namespace
} // namespace velorin
