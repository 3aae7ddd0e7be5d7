// A tableau as an accessible table, and its cells.
#pragma once

#include "windows/reader/TableauCells.h"

#include <QAccessible>

class QWidget;

namespace velorin {

/// From now on screen readers find the tableau as a table. `cells` may go before the tableau.
void showAsTable(QWidget& tableau, TableauCells& cells);

/// The object of one cell. The caller registers it. `cells` outlives it.
[[nodiscard]] QAccessibleInterface* makeCellObject(TableauCells& cells, ScreenCell cell);

} // namespace velorin
