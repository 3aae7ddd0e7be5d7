// Reads colours out of style sheets and sources, so that a test sees those that are really used.
#pragma once

#include <QColor>
#include <QMap>
#include <QString>

#include <vector>

namespace velorin {

/// The rules of a style sheet of Qt or of a web page.
class StyleColours {
public:
    explicit StyleColours(QString sheet);

    /// The colours that a selector gives a property, those of a gradient in their order. A variable
    /// of a web page is replaced by its colour. A test failure if there are none.
    [[nodiscard]] std::vector<QColor> all(const char* selector, const char* property) const;
    [[nodiscard]] QColor one(const char* selector, const char* property) const;

private:
    QMap<QString, QMap<QString, QString>> rules_;
};

/// The whole text of a file below the root of the sources.
[[nodiscard]] QString sourceText(const char* path);

/// The colour of a constant: "name{1, 2, 3}" or "name = rgb(1, 2, 3)".
[[nodiscard]] QColor constantOf(const char* path, const char* name);

} // namespace velorin
