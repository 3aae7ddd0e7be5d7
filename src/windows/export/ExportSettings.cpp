// What the Export window remembers for the next time.
#include "platform/PathLookup.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "session/Session.h"
#include "windows/export/ExportPlace.h"
#include "windows/export/ExportWindow.h"
#include "windows/frame/SettingValues.h"

namespace velorin {

namespace fs = std::filesystem;

void ExportWindow::readChoices() {
    platform::Settings& settings = session_.studio.platform.settings;
    const auto read = [&settings](const std::string& what) {
        return settings.GetSetting(settingsSection, std::string(exportSetting) + " " + what, "");
    };
    const std::string chosen = read("kind");
    cards[0]->setChecked(true);
    for (std::size_t i = 0; i < cards.size(); ++i) {
        const ExportKind& one = exportKinds()[i];
        if (chosen == one.control)
            cards[i]->setChecked(true);
        const auto stored = platform::readInt16(read(std::string("quality ") + one.control));
        if (stored && *stored > 0 && static_cast<std::size_t>(*stored) < one.qualities.size())
            qualities_[i] = static_cast<std::size_t>(*stored);
    }
    fs::path last = read("folder");
    std::error_code failed;
    if (last.empty() || !fs::is_directory(last, failed))
        last = platform::resolve(session_.studio.run.SongsFolder);
    folder->setText(QString::fromStdString(shownFolder(last, home_)));
}

void ExportWindow::storeChoices() {
    platform::Settings& settings = session_.studio.platform.settings;
    savePlace(settings, exportSetting);
    const auto save = [&settings](const std::string& what, const std::string& value) {
        settings.SaveSetting(settingsSection, std::string(exportSetting) + " " + what, value);
    };
    save("kind", kind().control);
    save("folder", typedFolder().string());
    for (std::size_t i = 0; i < cards.size(); ++i)
        save(std::string("quality ") + exportKinds()[i].control, std::to_string(qualities_[i]));
}

} // namespace velorin
