// Asks the font library and Qt early.
#include "windows/frame/FontLoading.h"

#include <QFontDatabase>
#include <QStringList>

#include <fontconfig/fontconfig.h>

#include <system_error>
#include <utility>

namespace velorin {

std::future<void> readFontSettings() {
    const auto read = [] { FcInit(); };
    try {
        return std::async(std::launch::async, read);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, read);
    }
}

// The database has a lock, so the question may be asked by any thread.
FontLoading::FontLoading(std::future<void> settings) {
    try {
        thread_ = std::thread([settings = std::move(settings)] {
            settings.wait(); // otherwise the settings would be read twice
            static_cast<void>(QFontDatabase::families());
        });
    } catch (const std::system_error&) {
        // Without a thread the first text makes the list.
    }
}

FontLoading::~FontLoading() {
    if (thread_.joinable())
        thread_.join();
}

} // namespace velorin
