// A stored watermark list: after the check it can be indexed and its texts can be read.

#include "fuzz/fuzz_text.h"
#include "watermark/damaged_list.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    static oemui::WatermarkList list;
    list = {};
    fuzz::FillFrom(&list, bytes, size);
    oemui::SanitizeWatermarkList(&list);
    fuzz::Require(list.Count >= 0 && list.Count <= oemui::kWatermarkCapacity);
    fuzz::Require(list.Selected == 0 || (list.Selected > 0 && list.Selected < list.Count));
    for (const oemui::WatermarkRecord& entry : list.Entries) {
        fuzz::Require(oemui::TextIn(entry.Name).size() < 32);
        fuzz::Require(oemui::TextIn(entry.Text).size() < 64);
        fuzz::Require(oemui::TextIn(entry.FaceName).size() < 32);
    }
    return 0;
}
