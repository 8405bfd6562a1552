#include "docprops/exempt_papers.h"

#include <iterator>

#include "docprops/driver_strings.h"
#include "resources/resource_ids.h"

namespace oemui {
namespace {

// String IDs of the platform driver's resource library.
constexpr UINT kDriverPaperNames[] = {10000, 10004, 10008, 10006, 10010, 10005, 10013,
                                      10012, 10019, 10027, 10026, 10036, 10030};

/// Papers that are never checked; empty until they are first loaded.
PaperName ExemptPaperNames[29] = {};

/// \param next  the first entry to fill; where the loading ended on return.
/// \return false when the library lacks one of its names.
bool LoadDriverPaperNames(std::size_t* next) {
    const UniqueLibrary library = OpenDriverStrings();
    if (!library) return true;
    for (const UINT textId : kDriverPaperNames) {
        if (!LoadName(library.Get(), textId, ExemptPaperNames[*next])) return false;
        ++*next;
    }
    return true;
}

}  // namespace

void LoadExemptPaperNames() {
    std::size_t next = 0;
    if (!LoadDriverPaperNames(&next) || PluginModule() == nullptr) return;
    UINT textId = IDS_FIRST_PAPER_NAME;
    while (next < std::size(ExemptPaperNames) &&
           LoadName(PluginModule(), textId, ExemptPaperNames[next])) {
        ++next;
        ++textId;
    }
}

bool IsExemptPaper(const OEMCUIPPARAM& params) {
    if (params.pPublicDM == nullptr) return false;
    const PaperName form = FormName(*params.pPublicDM);
    return std::ranges::any_of(ExemptPaperNames, [&form](const PaperName& exempt) {
        return EqualCollated(exempt.c_str(), form.c_str());
    });
}

}  // namespace oemui
