// The program on the session bus, where the desktop asks it to come to the front and to open files.
#pragma once

#include "host/process/Worker.h"

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velorin::host {

/// Implements org.freedesktop.Application. Desktops that find no owner of the name start the
/// program, by the service file that is installed, and call then. User-interface thread only: the
/// calls arrive in its event loop, also in nested loops.
class BusApplication final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    static constexpr char busName[] = "org.velorin.velorin";
    static constexpr char objectPath[] = "/org/velorin/velorin";

    BusApplication() = default;
    ~BusApplication() override { end(); }

    /// Claims the name, in a thread of its own: on a busy machine the bus takes a while to answer.
    /// Calls may arrive from now on. Does nothing if there is no session bus, or if another program
    /// owns the name. Never starts a bus.
    void begin();
    /// Releases the name: from now on the desktop starts a new copy. Without `begin` it does
    /// nothing.
    void end();

    /// `token` is the desktop's startup id or activation token, empty for none; see
    /// WindowActivation.h. Both return soon, since the desktop waits for the answer.
    std::function<void(const std::string& token)> onActivate;
    /// `files` has the paths of local files, and all other URIs as they came; at least one.
    std::function<void(const std::vector<std::string>& files, const std::string& token)> onOpen;

public Q_SLOTS:
    // The names and signatures of the interface. `platform_data` may be empty.
    Q_SCRIPTABLE void Activate(const QVariantMap& platform_data);
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platform_data);
    /// The desktop entry has no actions, so the answer is an error.
    Q_SCRIPTABLE void ActivateAction(const QString& action_name, const QVariantList& parameter,
                                     const QVariantMap& platform_data);

private:
    void claim();
    void release();

    bool hasName_ = false;           ///< belongs to the worker
    std::unique_ptr<Worker> worker_; ///< between `begin` and `end`; null without a bus
};

} // namespace velorin::host
