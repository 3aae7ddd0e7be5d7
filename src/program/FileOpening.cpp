// Opens files by their endings.
#include "program/FileOpening.h"

#include "history/Change.h"
#include "history/History.h"
#include "importing/MidiImport.h"
#include "midifile/FileReader.h"
#include "platform/Files.h"
#include "platform/Notices.h"
#include "platform/Text.h"
#include "session/Session.h"
#include "windows/frame/ToolWindows.h"
#include "windows/recording/RecordingToolbar.h"

#include <algorithm>
#include <istream>
#include <optional>
#include <utility>

namespace velorin {

namespace {

constexpr std::size_t mostMidiBytes = 16 << 20;

enum class FileKind { score, midi, sound, unknown };

FileKind kindOf(const std::string& path) {
    const auto endsIn = [&path](const char* ending) {
        return platform::endsWithIgnoringCase(path, ending);
    };
    if (endsIn(".sng"))
        return FileKind::score;
    if (endsIn(".mid") || endsIn(".midi"))
        return FileKind::midi;
    return endsIn(".wav") || endsIn(".mp3") ? FileKind::sound : FileKind::unknown;
}

/// All bytes, or one more than a MIDI file may have. No value if the file cannot be read.
std::optional<std::vector<std::uint8_t>> bytesOf(platform::Files& files, const std::string& path) {
    const auto file = files.openForInput(path);
    if (!file)
        return std::nullopt;
    std::vector<char> bytes(mostMidiBytes + 1);
    file->read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file->gcount(), 0)));
    return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "\n") + line;
    return text;
}

std::string quoted(const std::string& path) {
    return '"' + fileNameOf(path) + '"';
}

/// What became of the files beside the one that was opened, if one was.
std::string othersText(const std::vector<std::string>& others, bool isOneOpen) {
    const std::string name = quoted(others.front());
    if (!isOneOpen)
        return name + " cannot be opened. Velorin opens scores (.sng), MIDI files (.mid), and WAV "
                      "and MP3 files.";
    if (others.size() == 1)
        return name + " was not opened: only one file can be open.";
    return name + " and " + std::to_string(others.size() - 1) +
           " more were not opened: only one file can be open.";
}

} // namespace

FileOpening::FileOpening(const Parts& parts, std::function<void(const std::string&)> say)
    : parts_(parts), say_(std::move(say)) {}

bool FileOpening::canOpen(const std::string& path) {
    return kindOf(path) != FileKind::unknown;
}

void FileOpening::open(const std::vector<std::string>& paths) {
    bool isOneOpen = false;
    Lines others;
    Lines lines;
    for (const std::string& path : paths) {
        if (isOneOpen || !canOpen(path))
            others.push_back(path);
        else
            isOneOpen = openOne(path, lines);
    }
    if (!others.empty())
        lines.push_back(othersText(others, isOneOpen));
    if (!lines.empty())
        say_(joined(lines));
}

bool FileOpening::openOne(const std::string& path, Lines& lines) {
    switch (kindOf(path)) {
    case FileKind::score:
        return openScore(path);
    case FileKind::midi:
        return openMidi(path, lines);
    default:
        return openSound(path, lines);
    }
}

bool FileOpening::openScore(const std::string& path) {
    parts_.history.changeFinished(); // what is on the tableaux stays in the history
    const bool isOpen = parts_.session.files.openChosen(path);
    if (!isOpen)
        reportMissing(path);
    return isOpen;
}

bool FileOpening::openMidi(const std::string& path, Lines& lines) {
    const auto bytes = bytesOf(parts_.session.studio.platform.files, path);
    if (!bytes) {
        reportMissing(path);
        return false;
    }
    const auto songs = bytes->size() <= mostMidiBytes ? midifile::readAll(*bytes)
                                                      : std::vector<midifile::MidiData>();
    if (songs.empty()) {
        lines.push_back(quoted(path) + " is not a MIDI file.");
        return false;
    }
    auto import = importing::importMidi(songs);
    if (!import) {
        lines.push_back(quoted(path) + " " + import.reason() + ".");
        return false;
    }
    parts_.history.changeFinished();
    const importing::Piece& piece = import->pieces.front();
    parts_.session.files.openUnnamed(piece.score, piece.volumes, path);
    std::string subject = quoted(path);
    for (const std::string& sentence : importing::noteSentencesOf(*import))
        lines.push_back(std::exchange(subject, "It") + " " + sentence + ".");
    if (import->pieces.size() > 1)
        lines.push_back("This is part 1 of " + std::to_string(import->pieces.size()) +
                        ". velorin-convert makes a score of each.");
    return true;
}

bool FileOpening::openSound(const std::string& path, Lines& lines) {
    Run& run = parts_.session.studio.run;
    if (run.RecordingFlag.isSet()) {
        lines.push_back("Stop the recording first, then open " + quoted(path) + ".");
        return false;
    }
    if (!parts_.session.studio.platform.files.openForInput(path)) {
        reportMissing(path);
        return false;
    }
    parts_.windows.show(Tool::recording);
    parts_.recording.player.openChosen(path);
    return true;
}

void FileOpening::reportMissing(const std::string& path) {
    platform::notify(parts_.session.studio.platform,
                     quoted(path) + " is not there any more, or not on this computer.");
}

} // namespace velorin
