#include "common/model_identity.h"

#include <iterator>

#include "common/file_name.h"

namespace oemui {
namespace {

constexpr std::size_t kLetterPlace = 3;
constexpr std::size_t kNumberPlace = 10;

// The model letter's place holds a terminator until the letter is known.
constexpr ModelIdentity kTemplate = {
    .ModuleName = {},
    .Letter = 0,
    .Index = 0,
    .Signature = 0,
    .PrintProcessorFile = TEXT("QVR\0__PP.DLL"),
    .HelpFile = TEXT("QVR\0_HLP.HLP"),
    .DefaultWatermarkFile = TEXT("QVR\0__WM.INI"),
    .SettingsFile = TEXT("QVR\0_UNI.INI"),
    .PortMonitor = TEXT("pigmentra ####RZ TCP/IP Port"),
};

struct ModelValues {
    WCHAR Letter;
    UINT32 Index;
    TextView Number;  ///< the model's number, four digits
};

constexpr ModelValues kModels[] = {
    {TEXT('U'), 0, TEXT("7120")},
    {TEXT('T'), 1, TEXT("7140")},
    {TEXT('V'), 2, TEXT("7160")},
};

constinit ModelIdentity identity = kTemplate;

/// A file name and its extension, which begins with the last dot.
struct SplitName {
    TextView Stem;
    TextView Extension;
};

SplitName SplitFileName(TextView path) {
    const TextView name = FileNameOf(path);
    const std::size_t dot = std::min(name.rfind(TEXT('.')), name.size());
    return {name.substr(0, dot), name.substr(dot)};
}

void StoreModuleName(const SplitName& name) {
    CopyText(identity.ModuleName, name.Stem);
    const std::size_t stemLength = TextIn(identity.ModuleName).size();
    const std::size_t room = MAX_PATH - 1 - stemLength;
    const TextView extension = name.Extension.substr(0, room);
    std::copy(extension.begin(), extension.end(), identity.ModuleName + stemLength);
    identity.ModuleName[stemLength + extension.size()] = 0;
}

void StoreModelValues() {
    const auto* model =
        std::find_if(std::begin(kModels), std::end(kModels),
                     [](const ModelValues& values) { return values.Letter == identity.Letter; });
    if (model == std::end(kModels)) return;
    identity.Index = model->Index;
    std::copy(model->Number.begin(), model->Number.end(), identity.PortMonitor + kNumberPlace);
}

void StoreModelFileNames() {
    identity.PrintProcessorFile[kLetterPlace] = identity.Letter;
    identity.HelpFile[kLetterPlace] = identity.Letter;
    identity.DefaultWatermarkFile[kLetterPlace] = identity.Letter;
    identity.SettingsFile[kLetterPlace] = identity.Letter;
}

/// Characters that a short name lacks count as zero bytes.
UINT32 SignatureOf(TextView stem) {
    UINT32 signature = 0;
    for (std::size_t i = 0; i <= kLetterPlace; ++i) {
        const UINT32 character = i < stem.size() ? stem[i] : 0U;
        signature = signature << 8 | (character & 0xFF);
    }
    return signature;
}

}  // namespace

const ModelIdentity& Model() {
    return identity;
}

void DeriveModelIdentity(TextView modulePath) {
    identity = kTemplate;
    if (modulePath.empty()) return;
    const SplitName name = SplitFileName(modulePath);
    identity.Letter = name.Stem.size() > kLetterPlace ? name.Stem[kLetterPlace] : WCHAR{0};
    identity.Signature = SignatureOf(name.Stem);
    StoreModuleName(name);
    StoreModelValues();
    StoreModelFileNames();
}

}  // namespace oemui
