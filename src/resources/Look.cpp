// The look of the program, applied to the whole application.
#include "resources/Look.h"

#include "resources/LookColors.h"

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
    QPalette palette;
    palette.setColor(QPalette::Window, look::ink700);
    palette.setColor(QPalette::WindowText, look::mist);
    palette.setColor(QPalette::Base, look::paper);
    palette.setColor(QPalette::AlternateBase, look::paper2);
    palette.setColor(QPalette::Text, look::inkText);
    palette.setColor(QPalette::Button, look::face);
    palette.setColor(QPalette::ButtonText, look::mist);
    palette.setColor(QPalette::Highlight, look::chosen);
    palette.setColor(QPalette::HighlightedText, look::paper);
    palette.setColor(QPalette::ToolTipBase, look::hint);
    palette.setColor(QPalette::ToolTipText, look::inkText);
    palette.setColor(QPalette::PlaceholderText, look::dim);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, look::edge2);
    palette.setColor(QPalette::Disabled, QPalette::Base, look::face);
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
