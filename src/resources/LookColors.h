// The palette of the program's look: ink for what belongs to the program, paper for what is written
// on.
#pragma once

#include <QColor>

namespace velorin::look {

inline constexpr QColor ink950{10, 11, 32};     ///< outline of every window, lower edge of strips
inline constexpr QColor ink900{25, 28, 64};     ///< tracks, dark half of a separator
inline constexpr QColor ink700{38, 42, 86};     ///< body of tool windows
inline constexpr QColor face{58, 64, 120};      ///< button face; top of strips
inline constexpr QColor stripFoot{46, 51, 102}; ///< foot of strips
inline constexpr QColor line{68, 74, 134};      ///< borders of panels
inline constexpr QColor edge{106, 113, 176};    ///< border of push buttons and hints
inline constexpr QColor edge2{134, 141, 194};   ///< border of fields and boxes
inline constexpr QColor mist{226, 231, 248};    ///< text
inline constexpr QColor cream{255, 255, 192};   ///< titles, headings, ring of the active row
inline constexpr QColor sky{68, 204, 255};      ///< accents, focus ring
inline constexpr QColor paper{255, 255, 255};   ///< fields, lists, check boxes
inline constexpr QColor inkText{30, 34, 70};    ///< text on paper and on hints
inline constexpr QColor dim{112, 118, 160};     ///< what a field asks for while it is empty
inline constexpr QColor paper2{240, 241, 250};  ///< every other line of a list
inline constexpr QColor chosen{42, 98, 196};    ///< ground of what is selected
inline constexpr QColor hint{255, 255, 232};    ///< hint windows and tool tips
inline constexpr QColor titleTop{74, 80, 144};  ///< title band of tool windows, top
inline constexpr QColor titleFoot{52, 57, 110}; ///< title band of tool windows, foot
inline constexpr QColor innerLight{255, 255, 255, 34}; ///< inner light line of windows
inline constexpr QColor areaLight{255, 255, 255, 20};  ///< light line round the work area

} // namespace velorin::look
