// What the desktop asks of the program, carried out when the main window can be used.
#pragma once

#include <QMetaObject>
#include <QObject>

#include <deque>
#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace velorin {

class Program;

/// A request waits until a click on the main window would be possible: after the start, without a
/// dialog or a menu, and with no mouse button held. So a score does not change under a save dialog
/// or a drag. While a song plays a request does not wait, as the Open command does not. Requests
/// that wait at the end of the program are dropped. User-interface thread only; every call returns
/// at once.
class DesktopRequests final : public QObject {
public:
    /// Program and request queue may be made before the program starts. `program` outlives this.
    explicit DesktopRequests(Program& program) : program_(program) {}

    /// The program has started: carries out what has arrived, and what arrives from now on.
    void begin();

    /// Brings the main window to the front, also if it is minimised.
    void activate(const std::string& token) { add({{}, token}); }
    /// Does the same, and then `FileOpening::open`.
    void open(const std::vector<std::string>& files, const std::string& token) {
        add({files, token});
    }

    /// Asks the window system for the keyboard, with the desktop's token. Set it before `begin`.
    std::function<void(QWidget& window, const std::string& token)> activateWindow;

private:
    struct Request {
        std::vector<std::string> files; ///< empty to come to the front only
        std::string token;
    };

    void add(Request request);
    [[nodiscard]] bool isReady() const;
    void watch();
    void lookSoon();
    void carryOut();
    void comeToFront(const std::string& token);

    Program& program_;
    std::deque<Request> requests_;
    QMetaObject::Connection watching_;
    bool hasBegun_ = false;
};

} // namespace velorin
