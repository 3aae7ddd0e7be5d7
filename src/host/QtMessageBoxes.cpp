// Message boxes on Qt.
#include "host/QtMessageBoxes.h"

#include <QMessageBox>

namespace velorin::host {

namespace {

QMessageBox::Icon toQtIcon(platform::BoxIcon icon) {
    switch (icon) {
    case platform::BoxIcon::information:
        return QMessageBox::Information;
    case platform::BoxIcon::exclamation:
        return QMessageBox::Warning;
    case platform::BoxIcon::critical:
        return QMessageBox::Critical;
    case platform::BoxIcon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

void QtMessageBoxes::MsgBox(platform::BoxIcon icon, const std::string& title,
                            const std::string& text) {
    QMessageBox box(toQtIcon(icon), QString::fromStdString(title),
                    QString::fromStdString(text).replace("\r\n", "\n"), QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.exec();
}

} // namespace velorin::host
