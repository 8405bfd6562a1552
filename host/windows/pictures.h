/// Pictures of every window: the pages, the editor, message boxes and help.
#pragma once

#include <filesystem>
#include <iosfwd>

#include "host/installation/printer_install.h"

namespace host {

/// Writes the pictures as PNG files into a folder, which is made when missing, and tells each
/// file's name. Works in a machine of its own, gone afterwards; the process has that machine in use
/// then. Throws `Failure` when something cannot be shown or written.
void SavePictures(const std::filesystem::path& folder, const PackageSource& source,
                  std::ostream& out);

}  // namespace host
