// Opens files in the studio over the session bus.
#include "host/dbus/StudioCall.h"

#include "host/dbus/BusApplication.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QFile>
#include <QProcess>
#include <QUrl>

#include <utility>

namespace velorin::host {

StudioCall::StudioCall(QString program) : program_(std::move(program)) {}

void StudioCall::open(const QString& file) {
    if (!QDBusConnection::sessionBus().isConnected())
        return fail();
    call(file, true);
}

void StudioCall::call(const QString& file, bool mayStart) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        QLatin1String(BusApplication::busName), QLatin1String(BusApplication::objectPath),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Open"));
    message << QStringList{QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)} << QVariantMap();
    auto* const answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [this, file, mayStart](QDBusPendingCallWatcher* done) {
                done->deleteLater();
                if (!done->isError())
                    return;
                if (mayStart && done->error().type() == QDBusError::ServiceUnknown)
                    startAndCall(file);
                else
                    fail();
            });
}

void StudioCall::startAndCall(const QString& file) {
    waiting_ = file;
    if (watcher_ != nullptr)
        return;
    watcher_ = new QDBusServiceWatcher(QLatin1String(BusApplication::busName),
                                       QDBusConnection::sessionBus(),
                                       QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher_, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        std::exchange(watcher_, nullptr)->deleteLater();
        call(waiting_, false);
    });
    if (!QFile::exists(program_) || !QProcess::startDetached(program_, {})) {
        std::exchange(watcher_, nullptr)->deleteLater();
        fail();
    }
}

void StudioCall::fail() {
    if (onFailed)
        onFailed(QStringLiteral("Velorin cannot be started."));
}

} // namespace velorin::host
