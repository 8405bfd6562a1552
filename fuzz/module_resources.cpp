// A module's compiled resources: the dialog template and the string tables that are found in them
// lie within them, and a template is read within its bytes.

#include "fuzz/fuzz_text.h"
#include "platform/gui/templates/dialog_template.h"
#include "platform/modules/resources.h"
#include "resources/resource_ids.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    const std::span<const unsigned char> file(bytes, size);
    for (const WORD type : {platform::kDialogResource, platform::kStringTableResource}) {
        const auto found = platform::FindResource(file, type, IDD_WATERMARK_EDITOR);
        fuzz::Require(found.empty() ||
                      (found.data() >= bytes && found.data() + found.size() <= bytes + size));
        static_cast<void>(platform::ParseDialogTemplate(found));
    }
    static_cast<void>(platform::ParseDialogTemplate(file));
    return 0;
}
