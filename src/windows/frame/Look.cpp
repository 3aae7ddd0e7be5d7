// Applies style, palette, fonts, style sheet and the language of the texts to the application.
#include "windows/frame/Look.h"

#include "windows/frame/LookColors.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>

// Resources of a static library must be registered explicitly. The macro cannot be used in a
// namespace.
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
    palette.setColor(QPalette::PlaceholderText, look::ink3);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, look::edge2);
    palette.setColor(QPalette::Disabled, QPalette::Base, look::face);
    return palette;
}

} // namespace

void applyLook(QApplication& application) {
    registerPictures();
    // The texts are English, and screen readers ask for their language. The desktop's may differ.
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    application.setStyle(QStyleFactory::create("Fusion"));
    application.setPalette(inkAndPaper());
    // Qt uses the first font that exists. Checking which one exists would load the names of all
    // fonts.
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
