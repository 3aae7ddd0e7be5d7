// Operations of the Setup Toolbar.
#include "Operations.h"
#include "Session.h"
#include "shell/Program.h"
#include "shell/SetupToolbar.h"

namespace transcript {

using namespace velorin;

Operations setupOperations() {
    const auto setup = [](Session& session) -> SetupToolbar& { return session.program().setup(); };
    return {
        operation("Form3.TrackSel_MouseDown", setup, &SetupToolbar::TrackSel_MouseDown),
        operation("Form3.TrackSel_Click", setup, &SetupToolbar::TrackSel_Click),
        operation("Form3.Combo5_Click", setup, &SetupToolbar::Combo5_Click),
    };
}

} // namespace transcript
