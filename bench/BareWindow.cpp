// The yardstick for the start: an empty window of the main window's size.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle("Bare");
    window.setStyleSheet("background: #C0FFC0");
    window.setGeometry(7, 13, 1587, 873);
    window.show();
    return QApplication::exec();
}
