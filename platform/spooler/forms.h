/// The forms (papers) of the machine.
#pragma once

#include <windef.h>

#include <string>
#include <string_view>
#include <vector>

namespace platform::spooler {

struct Form {
    WORD number;  ///< DMPAPER_*, or from DMPAPER_USER for papers without one
    std::u16string name;
    SIZEL size;  ///< thousandths of a millimetre
    RECTL area;  ///< the part that can be printed on, the same unit
    bool builtIn;
};

/// Thousandths of a millimetre in tenths, to nearest; for sizes above 0.
[[nodiscard]] inline LONG Tenths(LONG thousandths) {
    return thousandths / 100 + (thousandths % 100 >= 50 ? 1 : 0);
}

/// The platform's own forms, then the user's in the order in which they were added: the order of
/// every printer's paper list. Stored forms that make no sense are left out. \return a result code.
[[nodiscard]] DWORD ListForms(std::vector<Form>* forms);

/// The form of a name (in any case) or a number; null when there is none.
[[nodiscard]] const Form* FindForm(const std::vector<Form>& forms, std::u16string_view name);
[[nodiscard]] const Form* FindForm(const std::vector<Form>& forms, WORD number);

}  // namespace platform::spooler
