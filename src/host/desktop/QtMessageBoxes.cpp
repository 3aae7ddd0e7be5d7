// Message boxes on Qt.
#include "host/desktop/QtMessageBoxes.h"

#include "host/desktop/FramedBox.h"

#include <QPushButton>

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
    FramedBox box(toQtIcon(icon), QString::fromStdString(title),
                  QString::fromStdString(text).replace("\r\n", "\n"), QMessageBox::Ok);
    box.exec();
}

bool QtMessageBoxes::ask(const platform::BoxQuestion& question) {
    FramedBox box(QMessageBox::Warning, QString::fromStdString(question.title),
                  QString::fromStdString(question.text).replace("\r\n", "\n"));
    const auto* const action =
        box.addButton(QString::fromStdString(question.action), QMessageBox::AcceptRole);
    auto* const keep =
        box.addButton(QString::fromStdString(question.keep), QMessageBox::RejectRole);
    box.setDefaultButton(keep);
    box.setEscapeButton(keep);
    box.exec();
    return box.clickedButton() == action;
}

} // namespace velorin::host
