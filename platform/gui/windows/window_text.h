/// Texts of windows, in and out of the callers' buffers.
#pragma once

#include <windef.h>

#include <QString>

namespace platform {

/// A terminated text; null is the empty one.
QString TextOrNothing(LPCWSTR text);

/// Copies a text, cut to fit and terminated. \param capacity  WCHARs. \return the number of WCHARs
/// copied, without the terminator; 0 and nothing written when there is no room at all.
int CopyOut(const QString& text, LPWSTR buffer, int capacity);

/// The letter after the first single "&", in lower case; null when there is none.
QChar MnemonicOf(const QString& text);

/// The text as it is shown: without the "&" of its mnemonic, "&&" as one.
QString WithoutMnemonic(const QString& text);

}  // namespace platform
