#pragma once

#include <vector>

#include "platform/Files.h"
#include "platform/PlatformError.h"

namespace tarvo {

/// The file of a user's copy that tells what was put there.
inline constexpr TextView kInstalledRecord = u".installed";

/// Brings `target`, a folder that exists, up to date with the folders in `source`, where the
/// program's data was installed. Files that lie in `source` itself are left out, and so are the
/// folders that belong to the user: Tarvos, ShipTGLs and QBMenus are neither read nor written. So
/// are those that lie beside a program which was unpacked: Fonts, Licences and platforms.
///
/// A file that is missing or empty is copied. One that stands as it was put there follows
/// `source`: it is replaced when `source` has other content, and deleted when `source` has no such
/// file any more. One that the user has put there or changed stays. Without a readable record of
/// what was put there nothing is replaced or deleted.
///
/// Each file is seen to by itself and changes as a whole; what fails comes back and is tried again
/// the next time. When nothing is to do, no content of a file but the record's is read.
std::vector<PlatformError> CopyInstalledData(Files& files, TextView source, TextView target);

}  // namespace tarvo
