// Stores notices for tests.
#pragma once

#include "platform/Notices.h"

#include <utility>
#include <vector>

namespace scripted {

/// Stores the posted notices. They are shown only if a test calls `callback`.
class ScriptedNotices final : public platform::Notices {
public:
    void post(const platform::Notice& notice) override { posted.push_back(notice); }
    std::optional<platform::Notice> take() override {
        if (posted.empty())
            return std::nullopt;
        platform::Notice first = std::move(posted.front());
        posted.erase(posted.begin());
        return first;
    }
    void onPosted(std::function<void()> given) override { callback = std::move(given); }

    std::vector<platform::Notice> posted; ///< oldest first, without those that were read
    std::function<void()> callback;
};

} // namespace scripted
