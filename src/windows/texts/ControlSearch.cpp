// Finds rows of the table of controls, and fills in the placeholders of array rows.
#include "windows/texts/ControlTable.h"

#include <charconv>
#include <optional>

namespace velorin {

namespace {

/// "TrackHide(3)" as the name of its array, "TrackHide", and its index.
struct Element {
    std::string_view array;
    int index = 0;
};

std::optional<Element> elementOf(std::string_view control) {
    const std::size_t open = control.find('(');
    if (open == std::string_view::npos)
        return std::nullopt;
    Element element{control.substr(0, open)};
    const std::string_view number = control.substr(open + 1);
    std::from_chars(number.data(), number.data() + number.size(), element.index);
    return element;
}

const ControlText* findRow(std::span<const ControlText> table, std::string_view control) {
    for (const ControlText& row : table)
        if (control == row.control)
            return &row;
    return nullptr;
}

void replace(std::string& text, std::string_view mark, const std::string& value) {
    if (const std::size_t place = text.find(mark); place != std::string::npos)
        text.replace(place, mark.size(), value);
}

std::string filledIn(std::string text, std::string_view control) {
    const auto element = elementOf(control);
    if (!element || element->index < 0)
        return text;
    replace(text, "%1", std::to_string(element->index + 1));
    constexpr int rows = 13; // a spare option follows those of the rows
    replace(text, "%2", element->index < rows ? rowName(element->index) : "");
    return text;
}

} // namespace

const ControlText* findControlText(std::string_view window, std::string_view control) {
    if (window == converterTexts().window)
        return findRow(converterTexts().controls, control);
    for (const WindowTexts& texts : windowTexts()) {
        if (window != texts.window)
            continue;
        if (const ControlText* row = findRow(texts.controls, control))
            return row;
        if (const auto element = elementOf(control))
            return findRow(texts.controls, std::string(element->array) + "()");
    }
    return nullptr;
}

std::string controlTip(std::string_view window, std::string_view control) {
    const ControlText* const row = findControlText(window, control);
    return row != nullptr ? filledIn(row->tip, control) : std::string();
}

std::string controlName(std::string_view window, std::string_view control) {
    const ControlText* const row = findControlText(window, control);
    if (row == nullptr)
        return {};
    return filledIn(*row->name != '\0' ? row->name : row->tip, control);
}

const char* controlHint(std::string_view control) {
    const ControlText* const row = findControlText("Form1", control);
    return row != nullptr ? row->hint : "";
}

} // namespace velorin
