// The contrast of every text on its ground, and of what else must be seen. The tables of
// docs/accessibility.md are made from it.
#include "support/contrast/Contrast.h"

#include "ContrastTable.h"
#include "StyleColours.h"
#include "drawing/Stamp.h"
#include "model/RowColors.h"
#include "windows/frame/Look.h"
#include "windows/frame/LookColors.h"
#include "windows/frame/RowButton.h"
#include "windows/help/HelpPages.h"
#include "windows/help/HelpWindow.h"
#include "windows/texts/ControlTable.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>

using namespace velorin;

namespace {

constexpr double text = 4.5;
constexpr double shape = 3.0; ///< rings, edges and pictures

struct ContrastTest : testing::Test {
    ContrastTest() {
        applyLook(*qApp);
        page = std::make_unique<StyleColours>(
            sourceText("src/convert/page/page.css").section("@media print", 0, 0));
        HelpWindow window(helpPages());
        help = std::make_unique<StyleColours>(window.browser->document()->defaultStyleSheet());
        contents = std::make_unique<StyleColours>(window.contents->styleSheet());
    }

    void row(std::string what, std::string ground, const QColor& above, std::vector<QColor> below,
             double needed, std::string other = {}) {
        pairs.push_back({std::move(what), std::move(ground), above, std::move(below), needed,
                         std::move(other)});
    }
    [[nodiscard]] QColor of(const char* selector, const char* property = "color") const {
        return sheet.one(selector, property);
    }
    [[nodiscard]] std::vector<QColor> ground(const char* selector) const {
        return sheet.all(selector, "background");
    }

    void addWindows();
    void addControls();
    void addPaper();
    void addRows();
    void addTableaux();
    void addHelp();
    void addPage();
    void addRings();
    void addPen();
    void addPictures();

    StyleColours sheet{sourceText("src/resources/look/velorin.qss")};
    std::unique_ptr<StyleColours> page;
    std::unique_ptr<StyleColours> help;
    std::unique_ptr<StyleColours> contents;
    std::vector<ColourPair> pairs;
};

void ContrastTest::addWindows() {
    const QColor words = of("*");
    const QColor strip = ground("QFrame[role=\"strip\"]").front();
    row("text", "window", words, {look::ink700}, text);
    row("text", "page of tabs", words, ground("QTabWidget::pane"), text);
    row("text", "panel", words, ground("QFrame[role=\"panel\"]"), text);
    row("title", "title of a tool window", of("QLabel[role=\"title\"]"),
        {look::titleTop, look::titleFoot}, text);
    row("heading", "window", of("QLabel[role=\"heading\"]"), {look::ink700}, text);
    row("heading", "page of tabs", of("QLabel[role=\"heading\"]"), ground("QTabWidget::pane"),
        text);
    row("title of a lesson", "page of tabs", of("QLabel[role=\"lesson\"]"),
        ground("QTabWidget::pane"), text);
    row("note", "window", of("QLabel[role=\"note\"]"), {look::ink700}, text);
    row("note", "page of tabs", of("QLabel[role=\"note\"]"), ground("QTabWidget::pane"), text);
    row("note", "panel", of("QLabel[role=\"note\"]"), ground("QFrame[role=\"panel\"]"), text);
    row("live value", "page of tabs", of("QLabel[role=\"value\"]"), ground("QTabWidget::pane"),
        text);
    row("live value", "panel", of("QLabel[role=\"value\"]"), ground("QFrame[role=\"panel\"]"),
        text);
    row("step of a lesson under the pointer", "its bar", of("QLabel[role=\"step\"][hot=\"true\"]"),
        ground("QLabel[role=\"step\"][hot=\"true\"]"), text);
    row("line of state", "strip", look::mist, {strip}, text);
    row("line of state, second line", "strip", look::mist2, {strip}, text);
    row("line of state while the song plays", "strip",
        constantOf("src/windows/strip/StateLine.cpp", "aqua"), {strip}, text);
    row("sentence in the line of state", "strip", look::cream, {strip}, text);
    for (const auto& [name, card] :
         {std::pair{"card", look::ink800}, std::pair{"card under the pointer", look::ink600},
          std::pair{"chosen card", look::ink650}}) {
        row("name of a kind of file", name, card == look::ink650 ? look::cream : look::mist, {card},
            text);
        row("note on a kind of file", name, look::mist2, {card}, text);
    }
}

void ContrastTest::addControls() {
    const QColor words = of("*");
    row("push button", "its plate", words, ground("QPushButton"), text);
    row("push button under the pointer", "its plate", words, ground("QPushButton:hover"), text);
    row("pressed push button", "its plate", words, ground("QPushButton:pressed"), text);
    row("tab", "its plate", of("QTabBar::tab"), ground("QTabBar::tab"), text);
    row("tab under the pointer", "its plate", of("QTabBar::tab:hover"),
        ground("QTabBar::tab:hover"), text);
    row("selected tab", "its plate", of("QTabBar::tab:selected"), ground("QTabBar::tab:selected"),
        text);
    row("selected tab with the keyboard", "its plate", of("QTabBar::tab:selected:focus"),
        ground("QTabBar::tab:selected"), text);
    row("entry of a menu", "menu", words, ground("QMenu"), text);
    row("keys of an entry", "menu", look::mist2, ground("QMenu"), text);
    row("entry under the pointer", "its bar", of("QMenu::item:selected"),
        ground("QMenu::item:selected"), text);
    row("text box", "field", of("QLineEdit"), ground("QLineEdit"), text);
    row("selected text", "selection", of("QLineEdit", "selection-color"),
        sheet.all("QLineEdit", "selection-background-color"), text);
    row("what an empty box asks for", "field", qApp->palette().color(QPalette::PlaceholderText),
        ground("QLineEdit"), text);
    row("closed list", "field", of("QComboBox"), ground("QComboBox"), text);
    row("entry of a list", "list", of("QComboBox QAbstractItemView"),
        ground("QComboBox QAbstractItemView"), text);
    row("selected entry of a list", "its bar", of("QComboBox QAbstractItemView::item:selected"),
        ground("QComboBox QAbstractItemView::item:selected"), text);
    row("heading of a column in a dialog", "its plate", of("QHeaderView::section"),
        ground("QHeaderView::section"), text);
    row("tool tip", "hint", of("QToolTip"), ground("QToolTip"), text);
    row("message", "hint", of("QMessageBox QLabel"), {look::hint}, text);
    row("hint", "hint", look::inkText, {look::hint}, text);
}

void ContrastTest::addPaper() {
    const std::vector<QColor> lines{look::paper, look::paper2, look::paper3};
    row("list on paper", "each of its lines", look::inkText, lines, text);
    row("list on paper, second text", "each of its lines", look::ink3, lines, text);
    row("row of the cursor", "its bar", look::paper, {look::chosen}, text);
    row("letters that match", "their ground", look::inkText, {look::find}, text);
    row("failure", "list on paper", look::danger, {look::paper, look::paper2}, text);
    row("per cent", "list on paper", look::chosen, {look::paper, look::paper2}, text);
    QColor plate = look::paper;
    plate.setAlpha(225);
    row("greeting", "its plate on a grey band", look::ink3, {blended(plate, QColor(224, 224, 224))},
        text);
    row("greeting on the percussion strip", "strip",
        constantOf("src/windows/sheet/GreetingWidgets.cpp", "stripInk"), {QColor(192, 255, 192)},
        text);
    row("button of the greeting", "paper", look::inkText, {look::paper, look::paper3}, text);
}

/// The digit of a row's colour: the pixel that differs most from the colour.
void ContrastTest::addRows() {
    for (int channel = 0; channel < scoreRows; ++channel) {
        constexpr int scale = 4;
        const QRect place(0, 0, 28, 22);
        QImage image(place.size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        paintRowFace(painter, place, channel);
        painter.end();
        const QColor colour = image.pixelColor(4 * scale, 4 * scale);
        QColor digit = colour;
        for (int y = 4 * scale; y < 18 * scale; ++y)
            for (int x = 6 * scale; x < 22 * scale; ++x)
                if (contrast(image.pixelColor(x, y), colour) > contrast(digit, colour))
                    digit = image.pixelColor(x, y);
        EXPECT_EQ(colour, toQColor(channelColors[channel])) << channel;
        row(std::string("digit of ") + rowName(channel), "its colour", digit, {colour}, text);
    }
}

void ContrastTest::addTableaux() {
    const QColor navy = constantOf("src/windows/main/Picmain.cpp", "navy");
    row("names of the notes", "their column",
        constantOf("src/windows/main/MusicTableau.cpp", "nameColour"), {navy}, text);
    row("numbers of the bars", "ruler", constantOf("src/windows/main/Ruler.h", "barNumberColour"),
        {navy, constantOf("src/windows/main/Ruler.cpp", "ground")}, text);
    row("\"Note #\"", "ruler", constantOf("src/windows/main/Picmain.cpp", "cream"), {navy}, text);
}

void ContrastTest::addHelp() {
    row("help: heading of a page", "paper", help->one("h1", "color"), {look::paper}, text);
    row("help: heading", "paper", help->one("h2", "color"), {look::paper}, text);
    row("help: text", "paper", help->one("p", "color"), {look::paper}, text);
    row("help: link, underlined", "paper", help->one("a", "color"), {look::paper}, text);
    row("help: file name", "its ground", help->one("p", "color"),
        help->all("code", "background-color"), text);
    row("help: contents", "list", contents->one("QListWidget::item", "color"),
        contents->all("QListWidget", "background"), text);
    row("help: contents under the pointer", "its bar", contents->one("QListWidget::item", "color"),
        contents->all("QListWidget::item:hover", "background"), text);
    row("help: current page in the contents", "its bar",
        contents->one("QListWidget::item:selected", "color"),
        contents->all("QListWidget::item:selected", "background"), text);
}

void ContrastTest::addPage() {
    const std::vector<QColor> body = page->all("body", "background");
    const std::vector<QColor> card = page->all(".card", "background");
    const std::vector<QColor> player = page->all(".player", "background");
    row("song page: text", "page", page->one("body", "color"), body, text);
    row("song page: title", "page", page->one("h1", "color"), body, text);
    row("song page: second line", "page", page->one("header p", "color"), body, text);
    row("song page: foot", "page", page->one("footer", "color"), body, text);
    row("song page: heading", "panel", page->one("h2", "color"), card, text);
    row("song page: text", "panel", page->one("body", "color"), card, text);
    row("song page: time", "player", page->one(".time", "color"), player, text);
    row("song page: tempo", "player", page->one(".tempo", "color"), player, text);
    row("song page: names of the notes", "their column", page->one(".names", "fill"),
        page->all(".names", "background"), text);
    row("song page: numbers of the bars", "ruler", page->one(".ruler b", "color"),
        page->all(".ruler", "background"), text);
    row("song page: download", "its plate", page->one(".get a", "color"),
        page->all(".get a", "background"), text);
    row("song page: download under the pointer", "its plate", page->one(".get a", "color"),
        page->all(".get a:hover", "background"), text);
}

void ContrastTest::addRings() {
    const QColor ring = of("QToolButton:focus", "border");
    for (const auto& [name, below] :
         {std::pair{"window", look::ink700}, std::pair{"page of tabs", look::ink650},
          std::pair{"panel", look::ink800}, std::pair{"strip", look::face},
          std::pair{"title of a tool window", look::titleTop},
          std::pair{"edge of a tableau", constantOf("src/windows/main/Picmain.cpp", "navy")}})
        row("ring of the focus", name, ring, {below}, shape);
    const QColor onPaper = of("QToolButton[role=\"row\"]:focus", "border");
    row("ring of the focus on paper", "paper", onPaper, {look::paper}, shape);
    row("ring of the focus on paper", "hint", onPaper, {look::hint}, shape);
    row("ring of the active row", "panel", look::cream, {look::ink800}, shape);
    row("edge of a field or a box", "window", of("QLineEdit", "border"), {look::ink700}, shape);
    row("edge of a field or a box", "page of tabs", of("QLineEdit", "border"), {look::ink650},
        shape);
    row("edge of a field or a box", "panel", of("QCheckBox::indicator", "border"), {look::ink800},
        shape);
    row("tick", "box", look::inkText, ground("QCheckBox::indicator"), shape);
    row("tick of a hidden row", "box", look::paper,
        ground("QCheckBox[role=\"hide\"]::indicator:checked"), shape);
    row("edge of the selected tab", "window", of("QTabBar::tab:selected", "border-top"),
        {look::ink700}, shape);
    row("thumb of a scroll bar", "its track", of("QScrollBar::handle", "background"),
        ground("QScrollBar"), shape);
    row("bar of the progress", "its track", constantOf("src/windows/frame/LookColors.h", "sky"),
        {look::ink900}, shape);
    row("song page: ring of the focus", "page", page->one(".play:focus-visible", "outline"),
        page->all("body", "background"), shape);
    row("song page: ring of the focus", "player", page->one(".play:focus-visible", "outline"),
        page->all(".player", "background"), shape);
}

/// The pen has a dark line and a light one. On each colour of the tableaux the better one counts.
void ContrastTest::addPen() {
    std::vector<std::pair<std::string, QColor>> grounds{
        {"white", Qt::white},
        {"grey band", QColor(224, 224, 224)},
        {"percussion strip", QColor(192, 255, 192)},
        {"playing bar", constantOf("src/windows/main/MusicTableau.cpp", "markerColour")}};
    for (int channel = 0; channel < scoreRows; ++channel)
        grounds.emplace_back(rowName(channel), toQColor(channelColors[channel]));
    for (const auto& [name, colour] : grounds) {
        const bool isDark = contrast(look::ink950, colour) > contrast(look::sky, colour);
        row(isDark ? "dark line of the pen" : "light line of the pen", name,
            isDark ? look::ink950 : look::sky, {colour}, shape);
    }
}

/// The strongest line of each picture of a toolbar or a title.
void ContrastTest::addPictures() {
    const std::vector<QColor> strip{look::face, look::stripFoot};
    const auto ratio = [&strip](const QString& colour) {
        return ratioOf({{}, {}, QColor(colour), strip, shape, {}});
    };
    const QDir icons(QStringLiteral(VELORIN_SOURCES "/src/resources/look/icons"));
    const QStringList names =
        icons.entryList({"main-*.svg", "edit-*.svg", "player-*.svg", "title-*.svg"});
    EXPECT_GT(names.size(), 40);
    QMap<QString, int> strongest;
    for (const QString& name : names) {
        if (name.contains("-ink")) // on paper
            continue;
        const QString picture = sourceText(("src/resources/look/icons/" + name).toUtf8());
        const QRegularExpression line("stroke=\"(#[0-9A-Fa-f]{6})\"");
        QString best = "#3A4078";
        for (auto found = line.globalMatch(picture); found.hasNext();) {
            const QString colour = found.next().captured(1).toUpper();
            if (ratio(colour) > ratio(best))
                best = colour;
        }
        EXPECT_GE(ratio(best), shape) << name.toStdString();
        ++strongest[best];
    }
    const QRegularExpression stop("stop-color=\"(#[0-9A-Fa-f]{6})\"");
    std::vector<QColor> stops; // of the plate and of the dot, each from above
    for (auto found = stop.globalMatch(sourceText("src/resources/look/icons/rec-up.svg"));
         found.hasNext();)
        stops.emplace_back(found.next().captured(1));
    ASSERT_EQ(stops.size(), 4U);
    // The dot is from 13.5 to 34.5 on a plate from 2.5 to 45.5.
    const auto plateAt = [&stops](double y) {
        QColor foot = stops[1];
        foot.setAlphaF(static_cast<float>((y - 2.5) / 43.0));
        return blended(foot, stops[0]);
    };
    row("dot of the Record button, upper edge", "its plate", stops[2], {plateAt(13.5)}, shape);
    row("dot of the Record button, lower edge", "its plate", stops[3], {plateAt(34.5)}, shape);
    for (auto one = strongest.begin(); one != strongest.end(); ++one)
        row("pictures of buttons, strongest line " + one.key().toStdString() + ": " +
                std::to_string(one.value()),
            "strip", QColor(one.key()), strip, shape);
}

} // namespace

TEST_F(ContrastTest, TextHasFourAndAHalfAndTheDocumentHasTheFigures) {
    addWindows();
    addControls();
    addPaper();
    addRows();
    addTableaux();
    addHelp();
    addPage();
    for (const ColourPair& pair : pairs)
        EXPECT_GE(ratioOf(pair), pair.needed) << pair.what << " on " << pair.ground;
    expectTable("contrast of texts", pairs);
}

TEST_F(ContrastTest, RingsEdgesAndPicturesHaveThreeAndTheDocumentHasTheFigures) {
    addRings();
    addPen();
    addPictures();
    for (const ColourPair& pair : pairs)
        EXPECT_GE(ratioOf(pair), pair.needed) << pair.what << " on " << pair.ground;
    expectTable("contrast of shapes", pairs);
}

// The colours of the tableaux are fixed; other programs and users know them.
TEST_F(ContrastTest, FixedColoursBelowThreeHaveAnotherWayInTheDocument) {
    const QColor white(Qt::white);
    QColor marker(Qt::red);
    marker.setAlpha(100);
    row("marker", "white", blended(marker, white), {white}, shape,
        "the line of state has its column");
    row("playing bar", "white", constantOf("src/windows/main/MusicTableau.cpp", "markerColour"),
        {white}, shape, "the line of state has its column");
    row("line of a bar", "white", QColor(68, 204, 255), {white}, shape,
        "the ruler has the numbers of the bars");
    row("grey band", "white", QColor(224, 224, 224), {white}, shape,
        "the names of the notes beside the lines");
    for (const ColourPair& pair : pairs) {
        EXPECT_LT(ratioOf(pair), pair.needed) << pair.what << " belongs to the other table";
        EXPECT_FALSE(pair.other.empty());
    }
    expectTable("contrast of the tableaux", pairs);
}

TEST(WcagContrast, HasTheFiguresOfTheGuidelines) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21.0, 0.001);
    EXPECT_NEAR(contrast(QColor("#777777"), Qt::white), 4.48, 0.005);
    EXPECT_NEAR(contrast(QColor("#767676"), Qt::white), 4.54, 0.005);
    EXPECT_EQ(blended(QColor(255, 0, 0, 100), Qt::white), QColor(255, 155, 155));
}
