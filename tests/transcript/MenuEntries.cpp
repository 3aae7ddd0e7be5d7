// Captions and check marks of menu entries.
#include "MenuEntries.h"

#include "Answers.h"
#include "Session.h"
#include "controls/MenuTable.h"
#include "program/Form1.h"

namespace transcript {

bool isMenuLoaded(Session& session) {
    return session.isRunning() && session.form1().menus.isLoaded();
}

Lines menuEntry(Session& session, const Address& address) {
    velorin::Frmmenu& menus = session.form1().menus;
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
