// A printer's reply: whatever it holds, it is read within its bytes, and only between an echo and a
// form feed.

#include <string_view>

#include "fuzz/fuzz_text.h"
#include "printerprops/pjl_query.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    const std::string_view reply(reinterpret_cast<const char*>(bytes), size);
    if (oemui::ParseInstalledOptions(reply)) {
        fuzz::Require(reply.find('\f') != std::string_view::npos);
    }
    return 0;
}
