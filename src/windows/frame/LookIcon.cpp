// The pictures of buttons and rows, by name: an icon engine that reads them late.
#include "windows/frame/LookIcon.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <utility>

namespace velorin {

namespace {

/// Reads its files when it is first asked for pixels. Qt's own engine reads a file to see if it is
/// a picture, and again to paint it. Most buttons are made long before they are seen.
class LateIcon final : public QIconEngine {
public:
    explicit LateIcon(QString picture) : picture_(std::move(picture)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        const QPaintDevice* const device = painter->device();
        const qreal ratio = device != nullptr ? device->devicePixelRatio() : 1.0;
        painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state));
    }

    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const QPixmap painted = pixmap(size, mode, state);
        return painted.isNull() ? QSize() : painted.size();
    }

    /// `size` is in device pixels, and so is the result.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return files(mode).pixmap(size, 1.0, mode, state);
    }

    [[nodiscard]] QIconEngine* clone() const override { return new LateIcon(*this); }

private:
    const QIcon& files(QIcon::Mode mode) {
        if (files_.isNull())
            files_.addFile(QStringLiteral(":/look/%1.svg").arg(picture_), QSize(), QIcon::Normal);
        if (mode == QIcon::Disabled && !hasOff_) {
            hasOff_ = true;
            const QString off = QStringLiteral(":/look/off/%1.svg").arg(picture_);
            if (QFile::exists(off))
                files_.addFile(off, QSize(), QIcon::Disabled);
        }
        return files_;
    }

    QString picture_;
    QIcon files_;         ///< null until the first paint
    bool hasOff_ = false; ///< the disabled variant was looked for
};

} // namespace

QIcon lookIcon(const QString& picture) {
    return QIcon(new LateIcon(picture)); // which owns it
}

} // namespace velorin
