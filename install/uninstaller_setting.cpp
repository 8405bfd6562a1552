#include "install/uninstaller_setting.h"

#include "common/model_identity.h"

namespace oemui {

Uninstaller UninstallerSetting() {
    Uninstaller setting = {};
    ::GetPrivateProfileStringW(TEXT("OEMUninstall"), TEXT("Executable"), TEXT(""),
                               setting.Executable, MAX_PATH, Model().SettingsFile);
    return setting;
}

}  // namespace oemui
