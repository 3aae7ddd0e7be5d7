// Copies the setup of one session to another.
#include "convert/PlaySetup.h"

#include "session/Session.h"

namespace velorin::convert {

void PlaySetup::applyTo(Session& session) const {
    session.studio.setup.values.options = rows;
    session.sounding.ChordInterval1 = chord[0];
    session.sounding.ChordInterval2 = chord[1];
    session.sounding.ChordInterval3 = chord[2];
}

PlaySetup setupOf(Session& session) {
    const NoteSounding& sounding = session.sounding;
    return {session.studio.setup.options(),
            {sounding.ChordInterval1, sounding.ChordInterval2, sounding.ChordInterval3}};
}

} // namespace velorin::convert
