// Draws the icon in several sizes: render-icon SVG PREFIX SIZE... writes PREFIX<SIZE>.png.
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

namespace {

bool render(QSvgRenderer& picture, int size, const QString& name) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    picture.render(&painter);
    painter.end();
    return image.save(name, "PNG");
}

} // namespace

int main(int count, char** arguments) {
    if (count < 4)
        return EXIT_FAILURE;
    QSvgRenderer picture(QString::fromLocal8Bit(arguments[1]));
    for (int i = 3; i < count; ++i) {
        const QString size = QString::fromLocal8Bit(arguments[i]);
        const QString name = QString::fromLocal8Bit(arguments[2]) + size + ".png";
        if (!picture.isValid() || size.toInt() <= 0 || !render(picture, size.toInt(), name)) {
            std::fprintf(stderr, "%s cannot be drawn\n", name.toLocal8Bit().constData());
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
