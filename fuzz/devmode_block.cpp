// A private devmode block of any length and content: merging it leaves a valid one.

#include "devmode/private_devmode.h"
#include "fuzz/fuzz_text.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    oemui::PrivateDevmode in{};
    fuzz::FillFrom(&in, bytes, size);
    oemui::PrivateDevmode out{};
    OEMDMPARAM params{};
    params.pOEMDMOut = &out;
    oemui::HandleDevMode(OEMDM_DEFAULT, &params);
    if (size > 0 && bytes[size - 1] % 2 == 0) in.Header.dwSignature = out.Header.dwSignature;
    params.pOEMDMIn = &in;
    oemui::HandleDevMode(OEMDM_CONVERT, &params);
    oemui::HandleDevMode(OEMDM_MERGE, &params);
    fuzz::Require(out.Header.dwSize == sizeof out && out.Header.dwVersion == 1);
    fuzz::Require(out.CappedLevel <= 100 && oemui::IsValidScaling(out.Scaling));
    return 0;
}
