// Timers on Qt.
#pragma once

#include "platform/Timers.h"

#include <QTimer>

#include <map>
#include <memory>

namespace velorin::host {

class QtTimers final : public platform::Timers {
public:
    int after(int milliseconds, std::function<void()> fire) override;
    void cancel(int number) override;

private:
    void run(int number);

    struct Pending {
        std::unique_ptr<QTimer> timer;
        std::function<void()> fire;
    };
    std::map<int, Pending> pending_;
    int lastNumber_ = 0;
};

} // namespace velorin::host
