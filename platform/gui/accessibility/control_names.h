/// What a dialog's controls are to each other for somebody who looks at the dialog: which label
/// names which control, and what stands in which group box. For the user-interface thread only.
#pragma once

#include <vector>

#include "platform/gui/controls/control_owner.h"

namespace platform {

/// The label, or the group box by its title, that stands before a control in the template; null
/// when there is none and for a control that shows its own text.
[[nodiscard]] Control* LabelOf(const Control& control);

/// The controls that a label, or a group box by its title, names.
[[nodiscard]] std::vector<Control*> NamedBy(const Control& label);

/// A control's own text or its label's without the colon; neither has its mnemonic.
[[nodiscard]] QString NameOf(const Control& control);

/// The letter that leads to a control; null when there is none.
[[nodiscard]] QChar LetterOf(const Control& control);

/// The smallest group box around a control; null when it stands in the dialog itself.
[[nodiscard]] Control* BoxAround(const Control& control);

/// What stands in a group box, or (null) in the dialog itself; frames that only hold another frame
/// are left out.
[[nodiscard]] std::vector<Control*> ControlsIn(const ControlOwner& dialog, const Control* box);

}  // namespace platform
