#include "common/message.h"

#include "common/fixed_text.h"

namespace oemui {

int ShowMessage(UINT textId, UINT captionId, UINT type) {
    return ShowMessageText(MessageText(textId).c_str(), captionId, type);
}

int ShowMessageText(LPCWSTR text, UINT captionId, UINT type) {
    return ::MessageBoxW(nullptr, text, MessageText(captionId).c_str(), type);
}

}  // namespace oemui
