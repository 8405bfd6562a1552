// A script for the editor: it is understood, or refused with a message.

#include "host/page/edit_script.h"
#include "fuzz/fuzz_text.h"
#include "host/errors/failure.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    try {
        auto script = host::EditScript::Parse({reinterpret_cast<const char*>(bytes), size});
        static_cast<void>(script.Answer({nullptr, u"Overwrite?", u"Warning", MB_YESNO}));
        fuzz::Require(script.Error().empty() && !script.LeavesOpen());
    } catch (const host::UsageFailure& failure) {
        fuzz::Require(failure.what()[0] != '\0');
    }
    return 0;
}
