// The order of planned actions, and the clock.
#include "support/VirtualTime.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace scripted {

namespace {

constexpr Nanoseconds nanosecondsPerMillisecond = 1'000'000;

// A loop that yields this often without waiting never ends.
constexpr std::int64_t idleYieldLimit = 20'000'000;

class Deeper {
public:
    explicit Deeper(int& depth) : depth_(depth) { ++depth_; }
    ~Deeper() { --depth_; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

private:
    int& depth_;
};

} // namespace

std::uint32_t VirtualTime::GetTickCount() {
    return static_cast<std::uint32_t>(now_ / nanosecondsPerMillisecond);
}

void VirtualTime::hold(int milliseconds) {
    moveTo(now_ + milliseconds * nanosecondsPerMillisecond);
}

void VirtualTime::moveTo(Nanoseconds time) {
    if (time > now_)
        idleYields_ = 0;
    now_ = time;
}

const VirtualTime::Planned* VirtualTime::next() const {
    const auto earlier = [](const Planned& a, const Planned& b) {
        return a.time != b.time ? a.time < b.time : a.number < b.number;
    };
    const auto found = std::min_element(planned_.begin(), planned_.end(), earlier);
    return found == planned_.end() ? nullptr : &*found;
}

// A planned action may yield again, and the inner yield runs actions of the list too. So the list
// is read again for each step, within the bounds at the start of this yield.
void VirtualTime::runDue() {
    const Nanoseconds until = now_;
    const int newest = lastNumber_;
    while (!isEnding()) {
        const Planned* due = nullptr;
        for (const Planned& each : planned_) {
            const bool mayRun = each.time <= until && each.number <= newest;
            if (mayRun && (due == nullptr || each.time < due->time))
                due = &each;
        }
        if (due == nullptr)
            return;
        const std::function<void()> run = due->run;
        cancel(due->number);
        run();
    }
}

void VirtualTime::Yield() {
    const Deeper deeper(depth_);
    if (++idleYields_ > idleYieldLimit && deadline_ != INT64_MAX) {
        brokenOff_ = true;
        now_ = deadline_;
    }
    runDue();
}

void VirtualTime::waitUntil(std::int64_t counter) {
    const Deeper deeper(depth_);
    if (isEnding() || now_ >= counter)
        return;
    if (onNothingPlanned && !isAnythingPlanned() && onNothingPlanned())
        return;
    const Planned* planned = next();
    const bool isEndless = planned == nullptr && counter - now_ >= oneDay;
    if (isEndless && closeWhatWaits && closeWhatWaits())
        return;
    const Nanoseconds target = planned != nullptr ? std::min(planned->time, counter) : counter;
    if (target >= deadline_) {
        moveTo(deadline_);
        brokenOff_ = true;
        return;
    }
    const bool isTheEnd = target == counter;
    moveTo(std::max(now_, target));
    if (!isTheEnd)
        runDue();
}

void VirtualTime::restart() {
    for (Planned& each : planned_)
        each.time -= now_;
    now_ = 0;
}

void VirtualTime::pass(Nanoseconds duration) {
    const Nanoseconds end = now_ + duration;
    while (now_ < end && !isEnding())
        waitUntil(end);
    Yield();
}

int VirtualTime::plan(Nanoseconds delay, std::function<void()> run) {
    planned_.push_back({now_ + delay, ++lastNumber_, std::move(run)});
    return lastNumber_;
}

bool VirtualTime::isAnythingPlanned() const {
    return std::any_of(planned_.begin(), planned_.end(),
                       [](const Planned& each) { return !each.isTimer; });
}

int VirtualTime::after(int milliseconds, std::function<void()> fire) {
    const int number = plan(milliseconds * nanosecondsPerMillisecond, std::move(fire));
    planned_.back().isTimer = true;
    return number;
}

void VirtualTime::cancel(int number) {
    std::erase_if(planned_, [number](const Planned& each) { return each.number == number; });
}

std::string VirtualTime::stamp() const {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f",
                  static_cast<double>(now_) / static_cast<double>(nanosecondsPerSecond));
    return text;
}

void VirtualTime::beginCommand() {
    deadline_ = now_ + oneDay;
    idleYields_ = 0;
    brokenOff_ = false;
}

bool VirtualTime::endCommand() {
    const bool wasBrokenOff = brokenOff_;
    brokenOff_ = false;
    deadline_ = INT64_MAX;
    return wasBrokenOff;
}

} // namespace scripted
