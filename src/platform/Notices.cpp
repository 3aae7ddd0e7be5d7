// Posting to a platform that may have no notices.
#include "platform/Notices.h"

#include "platform/Platform.h"

namespace platform {

void notify(const Platform& platform, const Notice& notice) {
    if (platform.notices != nullptr)
        platform.notices->post(notice);
}

void notify(const Platform& platform, const std::string& text) {
    notify(platform, Notice{text, {}});
}

} // namespace platform
