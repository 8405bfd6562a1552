#include "common/model_identity.h"

#include "tests/support/plugin_fixture.h"

using oemui::DeriveModelIdentity;
using oemui::Model;
using oemui::TextIn;
using tests::Narrow;
using tests::Wide;

namespace {

class ModelIdentityTest : public tests::PluginTest {};

struct Derived {
    std::string path;
    std::string moduleName;
    char letter;
    UINT32 index;
    UINT32 signature;
    std::string number;
};

TEST_F(ModelIdentityTest, FileNameAloneDecides) {
    const std::string longName = "QVRV" + std::string(400, 'n');
    const Derived rows[] = {
        {R"(C:\Windows\System32\QVRU__UI.DLL)", "QVRU__UI.DLL", 'U', 0, 0x51565255, "7120"},
        {R"(C:/drivers\3/QVRT__UI.DLL)", "QVRT__UI.DLL", 'T', 1, 0x51565254, "7140"},
        {"D:QVRV__UI.DLL", "QVRV__UI.DLL", 'V', 2, 0x51565256, "7160"},
        {"QVRX__UI.DLL", "QVRX__UI.DLL", 'X', 0, 0x51565258, "####"},
        {R"(C:\qvrt__ui.dll)", "qvrt__ui.dll", 't', 0, 0x71767274, "####"},
        {R"(C:\v1.2\QVRU.old.DLL)", "QVRU.old.DLL", 'U', 0, 0x51565255, "7120"},
        {R"(C:\folder.T\QVRT)", "QVRT", 'T', 1, 0x51565254, "7140"},
        {R"(C:\AB.DLL)", "AB.DLL", 0, 0, 0x41420000, "####"},
        {"", "", 0, 0, 0, "####"},
        {longName.substr(0, 256) + ".extension", longName.substr(0, 256) + ".ex", 'V', 2,
         0x51565256, "7160"},
        {longName + ".DLL", longName.substr(0, 259), 'V', 2, 0x51565256, "7160"},
    };
    for (const Derived& expected : rows) {
        SCOPED_TRACE(expected.path);
        DeriveModelIdentity(Wide(expected.path));
        EXPECT_EQ(Narrow(TextIn(Model().ModuleName)), expected.moduleName);
        EXPECT_EQ(Model().Letter, static_cast<WCHAR>(expected.letter));
        EXPECT_EQ(Model().Index, expected.index);
        EXPECT_EQ(Model().Signature, expected.signature);
        EXPECT_EQ(Narrow(TextIn(Model().PortMonitor)),
                  "pigmentra " + expected.number + "RZ TCP/IP Port");
        const std::string start = std::string("QVR") + expected.letter;
        EXPECT_EQ(Narrow(Model().PrintProcessorFile), (start + "__PP.DLL").c_str());
        EXPECT_EQ(Narrow(Model().HelpFile), (start + "_HLP.HLP").c_str());
        EXPECT_EQ(Narrow(Model().DefaultWatermarkFile), (start + "__WM.INI").c_str());
        EXPECT_EQ(Narrow(Model().SettingsFile), (start + "_UNI.INI").c_str());
    }
}

}  // namespace
