// The panel of the History window: the state under the pointer or the cursor.
#include "windows/history/StatePanel.h"

#include "history/Change.h"
#include "model/Cell.h"
#include "model/InstrumentNames.h"
#include "windows/frame/LookColors.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/RowButton.h"
#include "windows/history/StateSummary.h"
#include "windows/texts/DescribedControls.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace velorin {

namespace {

constexpr int left = 14;
constexpr int fullWidth = 224;
constexpr int nameLeft = 50;
constexpr int pictureTop = 48;
constexpr int rowStep = 26;
constexpr int fullHeight = 372; ///< from here on the picture has its full size
constexpr int leastPicture = 40;

/// As the lists of the Setup Toolbar.
QString instrumentText(int instrument) {
    const std::string text = isPercussion(instrument)
                                 ? percussionEntry(instrument - firstPercussion)
                                 : instrumentEntry(instrument);
    return QString::fromStdString(text);
}

QString description(const HistoryModel::Line& line) {
    if (line.kind == QLatin1String(changeKind::saved) && !line.file.isEmpty())
        return QStringLiteral("Saved as ") + line.file;
    return line.text;
}

} // namespace

StatePicture::StatePicture(QWidget* parent, QRect place) : QWidget(parent) {
    setObjectName("picture");
    setGeometry(place);
}

QSize StatePicture::imageSize() const {
    return (QSizeF(fullSize - QSize(2, 2)) * devicePixelRatioF()).toSize();
}

void StatePicture::setImage(const QImage& image) {
    image_ = image;
    update();
}

void StatePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF inside = QRectF(rect()).adjusted(1, 1, -1, -1);
    QPainterPath sheet;
    sheet.addRoundedRect(inside, 3, 3);
    painter.fillPath(sheet, look::paper);
    if (!image_.isNull()) {
        painter.setClipPath(sheet);
        painter.drawImage(QRectF(inside.topLeft(), QSizeF(fullSize - QSize(2, 2))), image_);
        painter.setClipping(false);
    }
    painter.setPen(QPen(look::edge2, 1.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
}

StatePanel::StatePanel(QWidget* parent) : QFrame(parent) {
    setObjectName("panel");
    setProperty("role", "panel");
    const auto label = [this](const char* name, QRect place, const char* role) {
        QLabel* const made = named(makeLabel(this, place, QString(), role), name, place);
        made->setTextFormat(Qt::PlainText);
        return made;
    };
    time_ = label("time", QRect(left, 6, fullWidth, 18), "heading");
    what_ = label("what", QRect(left, 24, fullWidth, 16), "note");
    picture = new StatePicture(this, QRect(QPoint(left, pictureTop), StatePicture::fullSize));
    figures_ = label("figures", QRect(left, 196, fullWidth, 16), "note");
    heading_ = label("rowsHeading", QRect(left, 218, fullWidth, 16), "heading");
    for (int i = 0; i < 2; ++i)
        names_[static_cast<std::size_t>(i)] =
            label(qPrintable(elementName("rowName", i)),
                  QRect(nameLeft, rowsTop_ + rowStep * i, fullWidth + left - nameLeft, 20), "name");
    goBack = named(new QPushButton(QStringLiteral("Go back to this"), this), "goBack",
                   QRect(left, 300, fullWidth, 28));
    goBack->setDefault(true);
    save = named(new QPushButton(QStringLiteral("Save as score..."), this), "save",
                 QRect(left, 334, fullWidth, 28));
    clearSummary();
}

void StatePanel::showLine(const HistoryModel& model, const HistoryModel::Line* line) {
    if (line == nullptr) {
        time_->clear();
        what_->clear();
        what_->setToolTip({});
        return clearSummary();
    }
    time_->setText(model.dayText(HistoryModel::dayOf(*line)) + QStringLiteral(", ") +
                   HistoryModel::timeOf(*line));
    const QString text = description(*line);
    const QString fits = what_->fontMetrics().elidedText(text, Qt::ElideRight, fullWidth);
    what_->setText(fits);
    what_->setToolTip(fits == text ? QString() : text);
}

void StatePanel::clearSummary() {
    showRows({});
    heading_->clear();
    figures_->clear();
    picture->setImage({});
}

void StatePanel::showSummary(const StateSummary& summary) {
    if (summary.isLost) {
        clearSummary();
        figures_->setText(QStringLiteral("This state cannot be read any more."));
        return;
    }
    picture->setImage(summary.picture);
    figures_->setText(summary.figures);
    heading_->setText(summary.isSame ? QStringLiteral("The same as now")
                                     : QStringLiteral("Rows that change"));
    showRows(summary);
}

void StatePanel::showRows(const StateSummary& summary) {
    const std::vector<int>& rows = summary.rows;
    for (std::size_t place = 0; place < names_.size(); ++place) {
        const bool isNamed = place < rows.size() && (place == 0 || rows.size() == 2);
        const int row = isNamed ? rows[place] : -1;
        showRow(place, row, isNamed ? summary.RowInstrument[row] : 0);
    }
    if (rows.size() > 2)
        names_[1]->setText(QStringLiteral("and %1 more").arg(rows.size() - 1));
    else if (rows.empty() && !summary.isSame && !summary.figures.isEmpty())
        names_[0]->setText(QStringLiteral("None: only the tempo"));
    placeRow(0);
    placeRow(1);
}

/// Without a chip the text begins where a chip does.
void StatePanel::placeRow(std::size_t place) {
    const int top = rowsTop_ + rowStep * static_cast<int>(place);
    if (chips_[place] != nullptr)
        chips_[place]->setGeometry(left, top, 28, 20);
    const int from = chips_[place] != nullptr ? nameLeft : left;
    names_[place]->setGeometry(from, top, fullWidth + left - from, 20);
}

void StatePanel::showRow(std::size_t place, int row, int instrument) {
    delete std::exchange(chips_[place], nullptr);
    names_[place]->clear();
    if (row < 0)
        return;
    chips_[place] = new RowChip(this, row, channelColors[row]);
    chips_[place]->show();
    names_[place]->setText(instrumentText(instrument));
}

void StatePanel::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    const int lack = std::max(fullHeight - height(), 0);
    const int pictureHeight = std::max(StatePicture::fullSize.height() - lack, leastPicture);
    picture->resize(fullWidth, pictureHeight);
    const int foot = pictureTop + pictureHeight;
    figures_->move(left, foot + 8);
    heading_->move(left, foot + 30);
    rowsTop_ = foot + 52;
    placeRow(0);
    placeRow(1);
    goBack->move(left, height() - 72);
    save->move(left, height() - 38);
}

} // namespace velorin
