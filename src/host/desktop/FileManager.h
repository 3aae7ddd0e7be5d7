// The file manager of the desktop.
#pragma once

class QString;

namespace velorin::host {

/// Asks the file manager over the session bus to open the folder of a file and to select the file.
/// Opens the folder in the program for folders if there is no such file manager. Returns at once.
void showInFileManager(const QString& file);

} // namespace velorin::host
