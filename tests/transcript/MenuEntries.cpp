// Captions and check marks of menu entries.
#include "MenuEntries.h"

#include "Answers.h"
#include "Runner.h"
#include "windows/main/Form1.h"
#include "windows/texts/MenuTable.h"

namespace transcript {

bool isMenuLoaded(Runner& runner) {
    return runner.isRunning() && runner.form1().menus.isLoaded();
}

Lines menuEntry(Runner& runner, const Address& address) {
    velorin::Frmmenu& menus = runner.form1().menus;
    const velorin::MenuText* entry = velorin::findMenuText(address.control);
    if (entry == nullptr)
        throw CommandError("no such control: " + address.whole);
    menus.load();
    if (address.property.empty() || address.property == "caption")
        return answer(std::string(entry->caption));
    if (address.property == "checked")
        return {menus.isChecked(entry->name) ? "1" : "0"};
    if (address.property == "enabled" || address.property == "visible")
        return {"1"};
    throw CommandError("no such property: " + address.whole);
}

} // namespace transcript
