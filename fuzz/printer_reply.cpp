// A printer's reply: each selection is written as 0 or 1, or not at all.

#include <string_view>

#include "fuzz/fuzz_text.h"
#include "printerprops/pjl_query.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    UINT32 selections[3] = {7, 7, 7};
    const bool understood =
        oemui::ParseInstalledOptions(std::string_view(reinterpret_cast<const char*>(bytes), size),
                                     &selections[0], &selections[1], &selections[2]);
    for (const UINT32 selection : selections)
        fuzz::Require(understood ? selection <= 1 : selection == 7);
    return 0;
}
