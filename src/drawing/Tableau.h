// The parts of the work area that take the mouse.
#pragma once

namespace velorin {

/// `MusicBox`, `Beatbox`, `Pic1` and the bar numbers.
enum class Tableau { music, strip, lanes, numbers };

} // namespace velorin
