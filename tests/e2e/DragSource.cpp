// A window to drag files from, for the end-to-end tests: a press in it takes all files that are
// named on the command line.
#include <QApplication>
#include <QDrag>
#include <QFileInfo>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

class DragSource : public QWidget {
public:
    explicit DragSource(const QStringList& files) {
        for (const QString& file : files)
            urls_.push_back(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()));
        setWindowTitle(QStringLiteral("Drag source"));
        setGeometry(0, 0, 60, 60);
    }

protected:
    void mousePressEvent(QMouseEvent*) override {
        auto* const data = new QMimeData;
        data->setUrls(urls_);
        auto* const drag = new QDrag(this); // deletes itself
        drag->setMimeData(data);
        setWindowTitle(drag->exec(Qt::CopyAction) == Qt::CopyAction ? QStringLiteral("Dropped")
                                                                    : QStringLiteral("Refused"));
    }

private:
    QList<QUrl> urls_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    DragSource source(QApplication::arguments().mid(1));
    source.show();
    return QApplication::exec();
}
