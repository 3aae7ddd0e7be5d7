// The logs of the dialogs and the choice of their answers.
#include "support/ScriptedDialogs.h"

#include <algorithm>
#include <cstdio>

namespace scripted {

std::optional<platform::FileDialogAnswer>
ScriptedDialogs::show(const char* kind, const platform::FileDialogRequest& request) {
    char flags[16];
    std::snprintf(flags, sizeof flags, "%X", request.flags);
    log.push_back(std::string(kind) + ";" + request.title + ";" + request.filter + ";" + flags);
    if (answers.empty())
        return std::nullopt;
    const std::optional<platform::FileDialogAnswer> answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<platform::FileDialogAnswer>
ScriptedDialogs::GetOpenFileNameA(const platform::FileDialogRequest& request) {
    return show("open", request);
}

std::optional<platform::FileDialogAnswer>
ScriptedDialogs::GetSaveFileNameA(const platform::FileDialogRequest& request) {
    return show("save", request);
}

void ScriptedBoxes::MsgBox(platform::BoxIcon icon, const std::string& title,
                           const std::string& text) {
    constexpr const char* names[] = {"none", "information", "exclamation", "critical"};
    log.push_back(std::string(names[static_cast<int>(icon)]) + ";" + title + ";" + text);
}

bool ScriptedBoxes::ask(const platform::BoxQuestion& question) {
    log.push_back("question;" + question.title + ";" + question.text + ";" + question.action + ";" +
                  question.keep);
    if (answers.empty())
        return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}

std::string ScriptedMenus::PopupMenu(const std::string& menu,
                                     const std::vector<platform::PopupEntry>& entries) {
    std::string line = menu;
    for (const platform::PopupEntry& entry : entries) {
        line += entry.checked ? ";*" : ";";
        line += entry.isSeparator() ? "-" : entry.caption;
    }
    log.push_back(line);
    if (choices.empty())
        return "";
    const std::string choice = choices.front();
    choices.pop_front();
    const bool has = std::any_of(entries.begin(), entries.end(), [&choice](const auto& entry) {
        return !entry.isSeparator() && entry.name == choice;
    });
    return has ? choice : "";
}

} // namespace scripted
