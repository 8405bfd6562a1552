#include "common/text.h"

namespace oemui {
namespace {

WCHAR Folded(WCHAR character) {
    const bool isCapital = character >= TEXT('A') && character <= TEXT('Z');
    return isCapital ? static_cast<WCHAR>(character + (TEXT('a') - TEXT('A'))) : character;
}

}  // namespace

bool EqualIgnoringAsciiCase(TextView left, TextView right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](WCHAR a, WCHAR b) { return Folded(a) == Folded(b); });
}

}  // namespace oemui
