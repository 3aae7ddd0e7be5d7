// Times as the windows show them.
#pragma once

#include <QString>

namespace velorin {

/// "0:35", from an hour on "1:02:03". Rounded to a whole second; a negative time is "0:00".
[[nodiscard]] QString lengthText(double seconds);

} // namespace velorin
