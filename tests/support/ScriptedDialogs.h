// File dialogs, message boxes and popup menus with answers that a test sets in advance.
#pragma once

#include "platform/Dialogs.h"
#include "platform/PopupMenus.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace scripted {

class ScriptedDialogs final : public platform::FileDialogs {
public:
    std::optional<platform::FileDialogAnswer>
    GetOpenFileNameA(const platform::FileDialogRequest& request) override;
    std::optional<platform::FileDialogAnswer>
    GetSaveFileNameA(const platform::FileDialogRequest& request) override;

    /// Answers in the order of the dialogs; no value cancels a dialog. Without an answer a dialog
    /// is cancelled.
    std::deque<std::optional<platform::FileDialogAnswer>> answers;
    std::vector<std::string> log; ///< "open;title;filter;1004": kind, title, filter, flags in hex

private:
    std::optional<platform::FileDialogAnswer> show(const char* kind,
                                                   const platform::FileDialogRequest& request);
};

/// Every box is answered at once: a text with OK, a question by the next of `answers`, else no.
class ScriptedBoxes final : public platform::MessageBoxes {
public:
    void MsgBox(platform::BoxIcon icon, const std::string& title, const std::string& text) override;
    bool ask(const platform::BoxQuestion& question) override;

    std::deque<bool> answers;
    std::vector<std::string> log; ///< "exclamation;title;text", "question;title;text;action;keep"
};

class ScriptedMenus final : public platform::PopupMenus {
public:
    std::string PopupMenu(const std::string& menu,
                          const std::vector<platform::PopupEntry>& entries) override;

    /// Entry names in the order of the menus. Without a name, or for an unknown name, nothing is
    /// chosen.
    std::deque<std::string> choices;
    std::vector<std::string> log; ///< "mnuCommand2;Cut;*Loop;-;Help": name, then captions
};

} // namespace scripted
