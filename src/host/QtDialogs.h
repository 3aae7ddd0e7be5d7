// File dialogs on Qt: the desktop's own where it has one.
#pragma once

#include "platform/Dialogs.h"

#include <QString>
#include <QStringList>

namespace platform {
class MessageLoop;
} // namespace platform

namespace velorin::host {

/// Remembers the folder of the last file chosen for the run.
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
    std::optional<platform::FileDialogAnswer> ask(const platform::FileDialogRequest& request,
                                                  bool saves);

    platform::MessageLoop& loop_;
    QString folder_;
};

/// Filter pairs as Qt's dialogs take them, in their order: "Midi(*.mid)|*.mid" is "Midi (*.mid)".
[[nodiscard]] QStringList nameFilters(const std::string& filter);

} // namespace velorin::host
