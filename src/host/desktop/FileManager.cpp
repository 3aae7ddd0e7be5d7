// The file manager of the desktop, over the session bus.
#include "host/desktop/FileManager.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace velorin::host {

namespace {

void openFolderOf(const QString& file) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).absolutePath()));
}

} // namespace

void showInFileManager(const QString& file) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return openFolderOf(file);
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)} << QString();
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(call), qApp);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer,
                     [file](QDBusPendingCallWatcher* done) {
                         if (done->isError())
                             openFolderOf(file);
                         done->deleteLater();
                     });
}

} // namespace velorin::host
