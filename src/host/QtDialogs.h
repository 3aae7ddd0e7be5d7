// File dialogs on Qt: the desktop's own where it has one.
#pragma once

#include "platform/Dialogs.h"

#include <QString>
#include <QStringList>

namespace platform {
class MessageLoop;
} // namespace platform

namespace velorin::host {

/// Remembers the folder of the last file chosen for the run. A new file is made without a question,
/// whatever `ofnCreatePrompt` says: in a dialog for saving a new name is what is expected.
class QtDialogs final : public platform::FileDialogs {
public:
    /// `folder` is where the first dialog opens.
    QtDialogs(platform::MessageLoop& loop, QString folder)
        : loop_(loop), folder_(std::move(folder)) {}

    std::optional<platform::FileDialogAnswer>
    GetOpenFileNameA(const platform::FileDialogRequest& request) override;
    std::optional<platform::FileDialogAnswer>
    GetSaveFileNameA(const platform::FileDialogRequest& request) override;

private:
    std::optional<platform::FileDialogAnswer> answered(const QString& name, qsizetype filter);

    platform::MessageLoop& loop_;
    QString folder_;
};

/// Filter pairs as Qt's dialogs take them, in their order: a name that ends in its patterns, with
/// blanks between them. "Midi(*.mid)|*.mid" is "Midi(*.mid)", "Sound|*.wav;*.mp3" is
/// "Sound (*.wav *.mp3)".
[[nodiscard]] QStringList nameFilters(const std::string& filter);

} // namespace velorin::host
