// The controls of the Export window and their places.
#include "windows/export/ExportWindow.h"
#include "windows/frame/DropDownList.h"
#include "windows/frame/PlacedControls.h"

namespace velorin {

namespace {

constexpr int headingLeft = 24;
constexpr int fieldLeft = 100;
constexpr int cardStep = 113;

} // namespace

void ExportWindow::makeHeading(const char* text, QRect place) {
    headings_.push_back(makeLabel(this, place, QString::fromLatin1(text), "heading"));
}

// In the order of the Tab key.
void ExportWindow::makeControls() {
    for (std::size_t i = 0; i < cards.size(); ++i) {
        const ExportKind& kind = exportKinds()[i];
        cards[i] = named(new KindCard(kind, this), QString::fromLatin1(kind.control),
                         QRect(QPoint(8 + cardStep * static_cast<int>(i), 40), KindCard::cardSize));
    }
    makePanel(this, QRect(8, 138, 556, 158));
    makeFields();
    makeHeading("Length", QRect(headingLeft, 258, 70, 22));
    length = makeLabel(this, QRect(fieldLeft, 258, 38, 22), QString(), "value");
    tail = makeLabel(this, QRect(140, 258, 230, 22), QString(), "note");
    makeHeading("Expected size", QRect(372, 258, 96, 22));
    size = makeLabel(this, QRect(468, 258, 80, 22), QString(), "value");
    size->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    foot = std::make_unique<ExportFoot>(this);
}

void ExportWindow::makeFields() {
    makeHeading("Name", QRect(headingLeft, 152, 70, 26));
    name = named(new QLineEdit(this), "name", QRect(fieldLeft, 152, 396, 26));
    ending = makeLabel(this, QRect(502, 152, 50, 26), QString(), "secondary");
    makeHeading("Folder", QRect(headingLeft, 186, 70, 26));
    folder = named(new QLineEdit(this), "folder", QRect(fieldLeft, 186, 340, 26));
    choose = named(new QPushButton(QStringLiteral("Choose..."), this), "choose",
                   QRect(448, 185, 100, 28));
    makeHeading("Quality", QRect(headingLeft, 220, 70, 26));
    quality = named(new DropDownList(this), "quality", QRect(fieldLeft, 220, 448, 26));
}

} // namespace velorin
