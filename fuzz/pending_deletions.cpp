// The pending file operations of the machine, as the registry holds them: nothing is written but
// one character of each deletion, and never past the value.

#include <vector>

#include "fuzz/fuzz_text.h"
#include "install/pending_deletions.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    const fuzz::Text text = fuzz::TextOf(bytes, size);
    std::vector<WCHAR> operations(text.begin(), text.end());
    operations.shrink_to_fit();
    const bool isChanged = oemui::SpoilPendingDeletions(operations, TEXT("UNINST.EXE"));
    fuzz::Require(isChanged != std::equal(text.begin(), text.end(), operations.begin()));
    for (std::size_t i = 0; i < text.size(); ++i) {
        fuzz::Require(operations[i] == text[i] || operations[i] == TEXT('_'));
    }
    fuzz::Require(!oemui::SpoilPendingDeletions(operations, TEXT("UNINST.EXE")));
    return 0;
}
