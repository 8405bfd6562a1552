/// Which model of the family this module serves, and the names that follow from it.
#pragma once

#include "common/text.h"

namespace oemui {

/// Size of the buffers for the model's file names, in characters with terminator.
inline constexpr std::size_t kModelFileNameCapacity = 16;

/// All of it follows from the module's file name, "QVR", the model letter and "__UI.DLL". Written
/// once when the module is attached, read by every thread afterwards. Every text is terminated.
struct ModelIdentity {
    WCHAR ModuleName[MAX_PATH];  ///< file name with extension, without drive and directory
    WCHAR Letter;                ///< fourth character of the name without extension; 0 when shorter
    UINT32 Index;                ///< U 0, T 1, V 2, any other letter 0
    UINT32 Signature;            ///< low bytes of that name's first four, the first one highest
    WCHAR PrintProcessorFile[kModelFileNameCapacity];    ///< "QVRT__PP.DLL"
    WCHAR HelpFile[kModelFileNameCapacity];              ///< "QVRT_HLP.HLP"
    WCHAR DefaultWatermarkFile[kModelFileNameCapacity];  ///< "QVRT__WM.INI"
    WCHAR SettingsFile[kModelFileNameCapacity];          ///< "QVRT_UNI.INI"
    WCHAR PortMonitor[29];  ///< the family's TCP/IP port monitor, "pigmentra 7140RZ TCP/IP Port"
};

/// The identity of this module; templates without letter and number until it is derived.
const ModelIdentity& Model();

/// Derives the identity from a module path; whatever was derived before is replaced. An empty path
/// leaves the templates as they are, index 0 and signature 0. Not while other threads read it.
void DeriveModelIdentity(TextView modulePath);

}  // namespace oemui
