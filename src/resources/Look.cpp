// The look of the program, applied to the whole application.
#include "resources/Look.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

// A library's resources are registered by hand; the macro cannot stand in a namespace.
static void registerPictures() {
    Q_INIT_RESOURCE(look);
}

namespace velorin {

namespace {

QPalette inkAndPaper() {
    const QColor mist(226, 231, 248);
    const QColor inkText(30, 34, 70);
    const QColor paper(255, 255, 255);
    const QColor face(58, 64, 120);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(38, 42, 86));
    palette.setColor(QPalette::WindowText, mist);
    palette.setColor(QPalette::Base, paper);
    palette.setColor(QPalette::AlternateBase, QColor(240, 241, 250));
    palette.setColor(QPalette::Text, inkText);
    palette.setColor(QPalette::Button, face);
    palette.setColor(QPalette::ButtonText, mist);
    palette.setColor(QPalette::Highlight, QColor(42, 98, 196));
    palette.setColor(QPalette::HighlightedText, paper);
    palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 232));
    palette.setColor(QPalette::ToolTipText, inkText);
    palette.setColor(QPalette::PlaceholderText, QColor(112, 118, 160));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(134, 141, 194));
    palette.setColor(QPalette::Disabled, QPalette::Base, face);
    return palette;
}

} // namespace

void applyLook(QApplication& application) {
    registerPictures();
    application.setStyle(QStyleFactory::create("Fusion"));
    application.setPalette(inkAndPaper());
    // Naming both costs nothing; asking which of them is there would read all the fonts' names
    // first.
    QFont font;
    font.setFamilies({"Inter", "DejaVu Sans"});
    font.setPixelSize(12);
    font.setHintingPreference(QFont::PreferNoHinting);
    application.setFont(font);
    QFile sheet(":/look/velorin.qss");
    if (sheet.open(QIODevice::ReadOnly))
        application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

} // namespace velorin
