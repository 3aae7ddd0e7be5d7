// Opens files in the studio, from another program.
#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QDBusServiceWatcher;

namespace velorin::host {

/// Calls the studio over the session bus, which starts it if it does not run. Where the bus does
/// not know how, this starts the program itself and calls when it is there. User-interface thread
/// only.
class StudioCall : public QObject {
    Q_OBJECT

public:
    /// `program` is the file of the studio.
    explicit StudioCall(QString program);

    void open(const QString& file);

    /// Gets a sentence if the studio cannot be reached. May be empty.
    std::function<void(const QString& sentence)> onFailed;

private:
    void call(const QString& file, bool mayStart);
    void startAndCall(const QString& file);
    void fail();

    QString program_;
    QDBusServiceWatcher* watcher_ = nullptr; ///< while the studio starts
    QString waiting_;                        ///< the file that is opened then
};

} // namespace velorin::host
