/// What the platform deletes or renames at the next start of the machine
/// ("PendingFileRenameOperations").
#pragma once

#include <span>

#include "common/fixed_text.h"

namespace oemui {

/// Keeps a program from being deleted at the next start of the machine: the ending of its path in
/// the pending file operations is spoilt.
/// \param fileName  name and extension without directory; an empty one matches nothing.
void KeepFromPendingDeletion(TextView fileName);

/// The same on the value's characters: pairs of texts, a deletion being a pair whose second text is
/// empty. In every deletion of the file the third character from the path's end becomes '_'.
/// \param operations  changed in place, never read past its end; a pair that is cut off does not
///                    count.
/// \return whether anything changed.
[[nodiscard]] bool SpoilPendingDeletions(std::span<WCHAR> operations, TextView fileName);

}  // namespace oemui
