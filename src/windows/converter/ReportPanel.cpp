// The report of an import.
#include "windows/converter/ReportPanel.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/PlacedControls.h"

#include <QPainter>
#include <QScrollBar>

namespace velorin {

namespace {

constexpr int lineHeight = 22;
constexpr int shownLines = 4;
constexpr int textLeft = 40;
constexpr int textTop = 32;
constexpr QPointF dotPlace{21.5, 11.0};
constexpr double dotRadius = 2.5;
constexpr int closeFromRight = 37;

QColor colourOf(ReportMark mark) {
    switch (mark) {
    case ReportMark::leftOut:
        return look::coral;
    case ReportMark::joined:
        return look::cream;
    default:
        return look::sky;
    }
}

/// A sentence of the report, with its dot.
class ReportSentence : public QLabel {
public:
    ReportSentence(const ReportLine& line, QWidget* parent)
        : QLabel(QString::fromStdString(line.text), parent), colour_(colourOf(line.mark)) {
        setTextFormat(Qt::PlainText);
        setContentsMargins(textLeft, 0, 0, 0);
        setToolTip(text());
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour_);
        painter.drawEllipse(dotPlace, dotRadius, dotRadius);
    }

private:
    QColor colour_;
};

} // namespace

ReportPanel::ReportPanel(QWidget* parent)
    : QFrame(parent),
      heading(makeLabel(this, QRect(), QString(), "heading")),
      close(new QToolButton(this)),
      sentences(new QScrollArea(this)),
      sheet_(new QWidget) {
    setProperty("role", "panel");
    setObjectName("report");
    heading->setTextFormat(Qt::PlainText);
    auto* const picture = new QLabel(this);
    picture->setPixmap(lookIcon("kind-midi").pixmap(QSize(20, 20), devicePixelRatioF()));
    picture->setGeometry(12, 9, 20, 20);
    sentences->setObjectName("sentences");
    sentences->setFrameShape(QFrame::NoFrame);
    sentences->setStyleSheet("QScrollArea, QScrollArea > QWidget > QWidget { background: "
                             "transparent; border: 0; }");
    sentences->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    sentences->setWidget(sheet_);
    sentences->verticalScrollBar()->setSingleStep(lineHeight);
    close->setObjectName("closeReport");
    close->setProperty("role", "title");
    close->setIcon(lookIcon("title-close"));
    close->setIconSize(QSize(16, 16));
    close->setFocusPolicy(Qt::TabFocus);
    connect(close, &QToolButton::clicked, this, [this] {
        if (onClose)
            onClose();
    });
}

void ReportPanel::show(const std::string& name, const std::vector<ReportLine>& lines) {
    heading->setText(QString::fromStdString(name + ", what became of it"));
    qDeleteAll(sheet_->findChildren<QLabel*>());
    for (const ReportLine& line : lines)
        (new ReportSentence(line, sheet_))->show();
    const bool scrolls = static_cast<int>(lines.size()) > shownLines;
    sentences->setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::NoFocus);
    sentences->verticalScrollBar()->setValue(0);
    layOutSentences();
    setVisible(true);
}

void ReportPanel::layOutSentences() {
    heading->setGeometry(textLeft, 8, width() - textLeft - closeFromRight - 8, 22);
    close->setGeometry(width() - closeFromRight, 6, 26, 20);
    sentences->setGeometry(1, textTop, width() - 2, shownLines * lineHeight);
    const auto labels = sheet_->findChildren<QLabel*>();
    // The scroll area itself is laid out only once it is shown.
    const bool scrolls = static_cast<int>(labels.size()) > shownLines;
    const int bar = scrolls ? sentences->verticalScrollBar()->sizeHint().width() : 0;
    sheet_->resize(sentences->width() - bar, static_cast<int>(labels.size()) * lineHeight);
    int y = 0;
    for (QLabel* const label : labels) {
        label->setGeometry(-1, y, sheet_->width() + 1, lineHeight);
        y += lineHeight;
    }
}

void ReportPanel::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    layOutSentences();
}

} // namespace velorin
