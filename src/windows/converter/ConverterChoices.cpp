// The choices of the converter's window that the next run remembers.
#include "windows/converter/ConverterKinds.h"
#include "windows/converter/ConverterWindow.h"
#include "windows/making/MadeFile.h"

#include <algorithm>
#include <string>

namespace velorin {

namespace fs = std::filesystem;

namespace {

constexpr char section[] = "Settings";
constexpr char kindKey[] = "converter kind";
constexpr char targetKey[] = "converter folder";
constexpr std::size_t mostRecent = 5;

std::string recentKey(std::size_t place) {
    return "converter folder " + std::to_string(place + 1);
}

} // namespace

void ConverterWindow::readChoices() {
    kind->setCurrentIndex(
        static_cast<int>(kindOfSetting(settings_.GetSetting(section, kindKey, ""))));
    std::error_code failed;
    for (std::size_t i = 0; i < mostRecent; ++i) {
        const fs::path place = settings_.GetSetting(section, recentKey(i), "");
        if (!place.empty() && fs::is_directory(place, failed))
            recent_.push_back(place);
    }
    const fs::path last = settings_.GetSetting(section, targetKey, "");
    if (std::find(recent_.begin(), recent_.end(), last) != recent_.end())
        target_ = last;
    fillFolders();
}

void ConverterWindow::storeChoices() {
    const auto chosen = static_cast<std::size_t>(std::max(kind->currentIndex(), 0));
    settings_.SaveSetting(section, kindKey, converterKinds()[chosen].setting);
    settings_.SaveSetting(section, targetKey, target_.string());
    for (std::size_t i = 0; i < mostRecent; ++i)
        settings_.SaveSetting(section, recentKey(i), i < recent_.size() ? recent_[i].string() : "");
}

void ConverterWindow::fillFolders() {
    folder->clear();
    folder->addItem(QStringLiteral("the folder of each file"));
    for (const fs::path& place : recent_)
        folder->addItem(QString::fromStdString(shownFolder(place, home_)));
    folder->addItem(QStringLiteral("Choose..."));
    const auto found = std::find(recent_.begin(), recent_.end(), target_);
    const bool isChosen = !target_.empty() && found != recent_.end();
    folder->setCurrentIndex(isChosen ? 1 + static_cast<int>(found - recent_.begin()) : 0);
    folder->setToolTip(QString::fromStdString(target_.string()));
}

void ConverterWindow::chooseTarget(int entry) {
    const fs::path before = target_;
    const auto place = static_cast<std::size_t>(std::max(entry - 1, 0));
    if (entry == 0) {
        target_.clear();
    } else if (place < recent_.size()) {
        target_ = recent_[place];
    } else if (const auto chosen = desk_.chooseFolder("Folder for the new files")) {
        target_ = *chosen;
        std::erase(recent_, target_);
        recent_.insert(recent_.begin(), target_);
        recent_.resize(std::min(recent_.size(), mostRecent));
    }
    fillFolders();
    storeChoices();
    if (target_ != before)
        queue.makeAllWait();
}

} // namespace velorin
