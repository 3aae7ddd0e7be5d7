// Finds the fonts of the system while the start does other things.
#include "windows/frame/FontLoading.h"

#include <QFontDatabase>
#include <QStringList>

#include <system_error>

namespace velorin {

// The database has a lock, so the question may be asked by any thread.
FontLoading::FontLoading() {
    try {
        thread_ = std::thread([] { static_cast<void>(QFontDatabase::families()); });
    } catch (const std::system_error&) {
        // Without a thread the first text makes the list.
    }
}

FontLoading::~FontLoading() {
    if (thread_.joinable())
        thread_.join();
}

} // namespace velorin
