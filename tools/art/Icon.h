#pragma once

#include <QImage>

namespace tarvo::art {

/// The program's icon, size by size pixels: a ship that rises from its crate. Small sizes show
/// fewer details, and their bars lie on whole pixels.
QImage ProgramIcon(int size);

/// The icon of a package's file: ship and crate on a sheet.
QImage PackageIcon(int size);

}  // namespace tarvo::art
