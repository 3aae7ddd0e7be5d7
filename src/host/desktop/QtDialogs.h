// File dialogs on Qt: the desktop's own where it has one.
#pragma once

#include "platform/Dialogs.h"

#include <QString>
#include <QStringList>

namespace platform {
class MessageLoop;
class Settings;
} // namespace platform

namespace velorin::host {

/// Remembers the folder of the last file chosen, also for the next run. A new file is created
/// without a question, whatever `ofnCreatePrompt` says: in a save dialog a new name is expected.
class QtDialogs final : public platform::FileDialogs {
public:
    /// `folder` is where the first dialog of the first run opens, and of a run whose last folder is
    /// gone. All outlive this.
    QtDialogs(platform::MessageLoop& loop, platform::Settings& settings, QString folder)
        : loop_(loop), settings_(settings), folder_(std::move(folder)) {}

    std::optional<platform::FileDialogAnswer>
    GetOpenFileNameA(const platform::FileDialogRequest& request) override;
    std::optional<platform::FileDialogAnswer>
    GetSaveFileNameA(const platform::FileDialogRequest& request) override;

private:
    std::optional<platform::FileDialogAnswer> answered(const QString& name, qsizetype filter);

    [[nodiscard]] QString folder() const;

    platform::MessageLoop& loop_;
    platform::Settings& settings_;
    QString folder_;
};

/// Filter pairs as Qt's dialogs take them, in their order: a name that ends in its patterns, with
/// blanks between them. "Midi(*.mid)|*.mid" is "Midi(*.mid)", "Sound|*.wav;*.mp3" is
/// "Sound (*.wav *.mp3)".
[[nodiscard]] QStringList nameFilters(const std::string& filter);

} // namespace velorin::host
