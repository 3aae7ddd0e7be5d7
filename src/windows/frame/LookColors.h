// The colours of the program: ink for windows and controls, paper for fields and lists.
#pragma once

#include <QColor>

namespace velorin::look {

inline constexpr QColor ink950{10, 11, 32};     ///< outline of every window, lower edge of strips
inline constexpr QColor ink900{25, 28, 64};     ///< tracks, dark half of a separator
inline constexpr QColor ink800{34, 38, 78};     ///< group panels, cards
inline constexpr QColor ink700{38, 42, 86};     ///< body of tool windows
inline constexpr QColor ink650{44, 49, 100};    ///< plates, chosen cards
inline constexpr QColor ink600{50, 55, 104};    ///< cards under the pointer
inline constexpr QColor face{58, 64, 120};      ///< button face; top of strips
inline constexpr QColor stripFoot{46, 51, 102}; ///< foot of strips
inline constexpr QColor line{68, 74, 134};      ///< borders of panels
inline constexpr QColor edge{106, 113, 176};    ///< border of push buttons and hints
inline constexpr QColor edge2{134, 141, 194};   ///< border of fields and boxes
inline constexpr QColor mist{226, 231, 248};    ///< text
inline constexpr QColor mist2{180, 186, 228};   ///< secondary text
inline constexpr QColor cream{255, 255, 192};   ///< titles, headings, ring of the active row
inline constexpr QColor sky{68, 204, 255};      ///< accents, focus ring
inline constexpr QColor paper{255, 255, 255};   ///< fields, lists, check boxes
inline constexpr QColor inkText{30, 34, 70};    ///< text on paper and on hints
inline constexpr QColor paper2{240, 241, 250};  ///< every other line of a list
inline constexpr QColor chosen{42, 98, 196};    ///< background of selected entries
inline constexpr QColor ink3{88, 94,
                             140}; ///< secondary text on paper; what an empty field asks for
inline constexpr QColor paper3{226, 230,
                               246}; ///< the line under the pointer; lower line of a heading
inline constexpr QColor rule{210, 213, 236};           ///< lines on paper
inline constexpr QColor danger{179, 52, 74};           ///< failures on paper
inline constexpr QColor coral{255, 138, 138};          ///< what is lost
inline constexpr QColor find{205, 226, 255};           ///< behind letters that match what was typed
inline constexpr QColor hint{255, 255, 232};           ///< hint windows and tool tips
inline constexpr QColor titleTop{74, 80, 144};         ///< title band of tool windows, top
inline constexpr QColor titleFoot{52, 57, 110};        ///< title band of tool windows, foot
inline constexpr QColor innerLight{255, 255, 255, 34}; ///< inner light line of windows
inline constexpr QColor areaLight{255, 255, 255, 20};  ///< light line around the work area

} // namespace velorin::look
