// A line of the default-watermark file: whatever it holds, the record's texts end inside it.

#include "fuzz/fuzz_text.h"
#include "watermark/watermark_codec.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    const fuzz::Text line = fuzz::TextOf(bytes, size);
    oemui::WatermarkRecord record{};
    oemui::ParseDefaultWatermarkLine(line, &record);
    fuzz::Require(record.InUse == 1 && record.ColorIndex == 0);
    fuzz::Require(oemui::TextIn(record.Name).size() < 32 && oemui::TextIn(record.Text).size() < 64);
    fuzz::Require(oemui::TextIn(record.FaceName).size() < 32);
    return 0;
}
