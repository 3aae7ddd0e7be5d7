// Claims the name on the session bus and translates the calls.
#include "host/dbus/BusApplication.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QFileInfo>
#include <QSysInfo>
#include <QUrl>

namespace velorin::host {

namespace {

// A library that finds no address would try to start a bus.
bool hasSessionBus() {
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFileInfo::exists(folder + "/bus");
}

// A Wayland desktop gives a token, an X11 desktop a startup id. Some give both, with the same
// value.
std::string tokenOf(const QVariantMap& platformData) {
    for (const char* const key : {"activation-token", "desktop-startup-id"}) {
        const QString token = platformData.value(QLatin1String(key)).toString();
        if (!token.isEmpty())
            return token.toStdString();
    }
    return {};
}

bool isThisComputer(const QString& host) {
    return host.isEmpty() || host == "localhost" || host == QSysInfo::machineHostName().toLower();
}

// The bytes of the path as they are: the name of a file need not be text.
std::string fileOf(const QString& uri) {
    const QUrl url(uri, QUrl::StrictMode);
    const QByteArray path =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    if (!url.isLocalFile() || !isThisComputer(url.host()) || path.contains('\0'))
        return uri.toStdString();
    return path.toStdString();
}

} // namespace

void BusApplication::begin() {
    if (worker_ || !hasSessionBus())
        return;
    worker_ = std::make_unique<Worker>();
    worker_->post([this] { claim(); });
}

void BusApplication::end() {
    if (!worker_)
        return;
    worker_->post([this] { release(); });
    worker_->waitUntilIdle();
    worker_.reset();
}

void BusApplication::claim() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    // The object first: calls that wait for the name arrive with it.
    if (!bus.registerObject(objectPath, this, QDBusConnection::ExportScriptableSlots))
        return;
    hasName_ = bus.registerService(busName);
    if (!hasName_)
        bus.unregisterObject(objectPath);
}

void BusApplication::release() {
    if (!hasName_)
        return;
    hasName_ = false;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.unregisterService(busName);
    bus.unregisterObject(objectPath);
}

void BusApplication::Activate(const QVariantMap& platform_data) {
    if (onActivate)
        onActivate(tokenOf(platform_data));
}

void BusApplication::Open(const QStringList& uris, const QVariantMap& platform_data) {
    if (uris.isEmpty())
        return Activate(platform_data);
    std::vector<std::string> files;
    for (const QString& uri : uris)
        files.push_back(fileOf(uri));
    if (onOpen)
        onOpen(files, tokenOf(platform_data));
}

void BusApplication::ActivateAction(const QString& action_name, const QVariantList&,
                                    const QVariantMap&) {
    if (calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, "Velorin has no action \"" + action_name + "\".");
}

} // namespace velorin::host
