// A tableau as an accessible table, and its cells.
#include "windows/reader/TableauTable.h"

#include "windows/main/PictureBox.h"

#include <QAccessibleWidget>
#include <QPointer>

#include <array>

namespace velorin {

namespace {

constexpr char cellsProperty[] = "tableauCells"; ///< of the tableau: its `TableauCells`

struct NamedAction {
    CellAction action;
    const char* name;
    const char* description;
};

constexpr std::array cellActions{
    NamedAction{CellAction::press, "Press", "Presses and releases the left button"},
    NamedAction{CellAction::hold, "Hold", "Presses the left button and holds it"},
    NamedAction{CellAction::release, "Release", "Moves the held button here and releases it"},
    NamedAction{CellAction::pressRight, "Right press", "Presses and releases the right button"},
    NamedAction{CellAction::holdRight, "Right hold", "Presses the right button and holds it"},
};

const NamedAction* actionNamed(const QString& name) {
    for (const NamedAction& each : cellActions) {
        if (name == QLatin1String(each.name))
            return &each;
    }
    return nullptr;
}

/// One cell, or the head of a row or a column.
class CellObject final : public QAccessibleInterface,
                         public QAccessibleTableCellInterface,
                         public QAccessibleActionInterface {
public:
    CellObject(TableauCells& cells, ScreenCell cell) : cells_(cells), cell_(cell) {}

    [[nodiscard]] ScreenCell cell() const { return cell_; }

    bool isValid() const override { return cells_.holds(cell_); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return table(); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QWindow* window() const override { return parent()->window(); }
    QRect rect() const override { return cells_.placeOf(cell_); }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? cells_.words(cell_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    QAccessible::Role role() const override {
        if (!cell_.isHead())
            return QAccessible::Cell;
        return cell_.column < 0 ? QAccessible::RowHeader : QAccessible::ColumnHeader;
    }

    QAccessible::State state() const override {
        const QAccessible::State ofTable = parent()->state();
        QAccessible::State state;
        state.invisible = ofTable.invisible;
        state.disabled = ofTable.disabled;
        state.offscreen = !cell_.isHead() && !cells_.isWithinReach(cell_);
        if (cell_.isHead())
            return state;
        state.focusable = state.selectable = true;
        state.selected = isSelected();
        state.focused = cells_.hasFocus() && cells_.cursor() == cell_;
        return state;
    }

    bool isSelected() const override { return !cell_.isHead() && cells_.isSelected(cell_.column); }
    QList<QAccessibleInterface*> columnHeaderCells() const override {
        return {cells_.object({-1, cell_.column})};
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override {
        return {cells_.object({cell_.row, -1})};
    }
    int columnIndex() const override { return cell_.column; }
    int rowIndex() const override { return cell_.row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override {
        return QAccessible::queryAccessibleInterface(cells_.tableau());
    }

    QStringList actionNames() const override {
        if (!cells_.isWithinReach(cell_))
            return {};
        QStringList names;
        for (const NamedAction& each : cellActions)
            names.append(QLatin1String(each.name));
        names.append(setFocusAction());
        return names;
    }
    QString localizedActionName(const QString& name) const override {
        return actionNamed(name) != nullptr ? name
                                            : QAccessibleActionInterface::localizedActionName(name);
    }
    QString localizedActionDescription(const QString& name) const override {
        const NamedAction* const action = actionNamed(name);
        return action != nullptr ? QLatin1String(action->description)
                                 : QAccessibleActionInterface::localizedActionDescription(name);
    }
    void doAction(const QString& name) override {
        if (const NamedAction* const action = actionNamed(name))
            cells_.act(cell_, action->action);
        else if (name == setFocusAction())
            cells_.act(cell_, CellAction::go);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableCellInterface)
            return static_cast<QAccessibleTableCellInterface*>(this);
        if (type == QAccessible::ActionInterface && !cell_.isHead())
            return static_cast<QAccessibleActionInterface*>(this);
        return nullptr;
    }

private:
    TableauCells& cells_;
    ScreenCell cell_;
};

/// The children are in rows, each with its head, as in the tables of Qt:
///
///     Note         Column 1     Column 2  ...
///     D sharp 6    cell         cell
///     D 6          cell         cell
class TableObject final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    TableObject(QWidget* tableau, TableauCells& cells)
        : QAccessibleWidget(tableau, QAccessible::Table), cells_(cells) {}

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount())
            return nullptr;
        return cells_.object({index / rowLength() - 1, index % rowLength() - 1});
    }
    int childCount() const override { return (cells_.rows() + 1) * rowLength(); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* const known = dynamic_cast<const CellObject*>(child);
        if (known == nullptr || !cells_.holds(known->cell()))
            return -1;
        return (known->cell().row + 1) * rowLength() + known->cell().column + 1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const auto cell = cells_.cellOnScreen({x, y});
        return cell ? cells_.object(*cell) : nullptr;
    }
    QAccessibleInterface* focusChild() const override {
        const auto cursor = cells_.cursor();
        return cursor && cells_.hasFocus() ? cells_.object(*cursor)
                                           : QAccessibleWidget::focusChild();
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        return row < 0 || column < 0 ? nullptr : cells_.object({row, column});
    }
    QString columnDescription(int column) const override { return cells_.words({-1, column}); }
    QString rowDescription(int row) const override { return cells_.words({row, -1}); }
    int columnCount() const override { return cells_.columns(); }
    int rowCount() const override { return cells_.rows(); }

    QList<int> selectedColumns() const override {
        QList<int> columns;
        for (int column = 0; column < cells_.columns(); ++column) {
            if (cells_.isSelected(column))
                columns.append(column);
        }
        return columns;
    }
    int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    bool isColumnSelected(int column) const override { return cells_.isSelected(column); }
    int selectedCellCount() const override { return selectedColumnCount() * cells_.rows(); }
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> selected;
        for (const int column : selectedColumns()) {
            for (int row = 0; row < cells_.rows(); ++row)
                selected.append(cells_.object({row, column}));
        }
        return selected;
    }
    // Columns are selected as with the mouse: by holding one and releasing another.
    int selectedRowCount() const override { return 0; }
    QList<int> selectedRows() const override { return {}; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

private:
    [[nodiscard]] int rowLength() const { return cells_.columns() + 1; }

    TableauCells& cells_;
};

QAccessibleInterface* makeTableObject(const QString&, QObject* object) {
    auto* const tableau = qobject_cast<PictureBox*>(object);
    if (tableau == nullptr)
        return nullptr;
    const auto known = tableau->property(cellsProperty).value<QPointer<QObject>>();
    auto* const cells = qobject_cast<TableauCells*>(known.data());
    return cells != nullptr ? new TableObject(tableau, *cells) : nullptr;
}

} // namespace

void showAsTable(QWidget& tableau, TableauCells& cells) {
    QAccessible::installFactory(makeTableObject); // a second call does nothing
    tableau.setProperty(cellsProperty, QVariant::fromValue(QPointer<QObject>(&cells)));
    // An interface that was made before has another kind.
    if (QAccessibleInterface* const early = QAccessible::queryAccessibleInterface(&tableau))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
}

QAccessibleInterface* makeCellObject(TableauCells& cells, ScreenCell cell) {
    return new CellObject(cells, cell);
}

} // namespace velorin
