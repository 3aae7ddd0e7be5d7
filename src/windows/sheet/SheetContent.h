// What is on the sheet.
#pragma once

namespace velorin {

struct Score;

[[nodiscard]] bool hasNotes(const Score& score); ///< notes or beats
[[nodiscard]] bool hasMarks(const Score& score); ///< chord marks

/// True if the score has no note, no beat, no chord mark and no name.
[[nodiscard]] bool isEmptySheet(const Score& score);

} // namespace velorin
