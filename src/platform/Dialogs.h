// File dialogs and message boxes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

// Dialog flags, as the host's dialog calls number them.
constexpr std::uint32_t ofnOverwritePrompt = 0x2;
constexpr std::uint32_t ofnHideReadOnly = 0x4;
constexpr std::uint32_t ofnFileMustExist = 0x1000;
constexpr std::uint32_t ofnCreatePrompt = 0x2000;

struct FileDialogRequest {
    std::string title;
    /// Pairs of a name and a pattern, all joined by '|': "Midi(*.mid)|*.mid|score(*.sng)|*.sng".
    std::string filter;
    int filterIndex = 1; ///< the pair shown first, counted from 1
    std::uint32_t flags = 0;
    /// What a save dialog proposes, without an ending: a name, or the path of a file, whose folder
    /// the dialog then shows. Empty for no proposal.
    std::string proposal = {};
};

struct FileDialogAnswer {
    std::string name;    ///< UTF-8, as the user left it
    int filterIndex = 1; ///< the pair chosen on return, counted from 1
};

/// Modal. No value is returned when the user cancels, or when the program ends meanwhile.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    virtual std::optional<FileDialogAnswer> GetOpenFileNameA(const FileDialogRequest& request) = 0;
    virtual std::optional<FileDialogAnswer> GetSaveFileNameA(const FileDialogRequest& request) = 0;
};

enum class BoxIcon { none, information, exclamation, critical };

/// A question before something that cannot be undone.
struct BoxQuestion {
    std::string title;
    std::string text;
    std::string action; ///< the button that does it, "Clear"
    std::string keep;   ///< the button that does nothing; the default
};

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    /// Shows a text with one button, OK, and returns when it is closed. A line break is "\r\n".
    virtual void MsgBox(BoxIcon icon, const std::string& title, const std::string& text) = 0;
    /// Modal. True if the user chose the action; false also if the box was closed or the program
    /// ended meanwhile. A host without a user answers false.
    virtual bool ask(const BoxQuestion& /*question*/) { return false; }
};

} // namespace platform
