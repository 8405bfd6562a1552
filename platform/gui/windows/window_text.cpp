#include "platform/gui/windows/window_text.h"

#include <algorithm>

namespace platform {

QString TextOrNothing(LPCWSTR text) {
    return text == nullptr ? QString() : QString::fromUtf16(text);
}

int CopyOut(const QString& text, LPWSTR buffer, int capacity) {
    if (buffer == nullptr || capacity <= 0) return 0;
    const int length = static_cast<int>(std::min<qsizetype>(text.size(), capacity - 1));
    std::copy_n(text.utf16(), length, buffer);
    buffer[length] = 0;
    return length;
}

QChar MnemonicOf(const QString& text) {
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'&') continue;
        if (text[i + 1] != u'&') return text[i + 1].toLower();
        ++i;
    }
    return {};
}

QString WithoutMnemonic(const QString& text) {
    QString shown;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size()) ++i;
        shown += text[i];
    }
    return shown;
}

}  // namespace platform
