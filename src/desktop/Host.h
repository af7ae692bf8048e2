#pragma once

#include <memory>

#include "platform/Sound.h"

class QUrl;

namespace tarvo {

class Files;

/// What a desktop is asked beside its windows.

/// Comes before the application.
void PrepareDesktop();

/// The machine's sound.
std::unique_ptr<Sound> OpenSound(Files& files);

/// Shows a web page or a file, or begins a mail, in the user's own program; gives false when there
/// is none.
bool ShowInUsersProgram(const QUrl& url);

/// Starts a program, named by its game path. Gives false when this machine can't run it.
bool StartProgram(TextView path);

/// Starts the desktop's own program that tells of the machine; gives false where none is known.
bool StartSystemInfo();

}  // namespace tarvo
