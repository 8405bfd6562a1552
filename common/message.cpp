#include "common/text.h"

namespace oemui {

int ShowMessage(UINT textId, UINT captionId, UINT type) {
    const LoadedText<kMessageCapacity> text(textId);
    return ShowMessageText(text.c_str(), captionId, type);
}

int ShowMessageText(LPCWSTR text, UINT captionId, UINT type) {
    const LoadedText<kMessageCapacity> caption(captionId);
    return ::MessageBoxW(nullptr, text, caption.c_str(), type);
}

}  // namespace oemui
