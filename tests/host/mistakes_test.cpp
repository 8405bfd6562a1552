// What a person who slips at the prompt is told: the whole message, and nothing done.
#include "platform/base/machine.h"
#include "platform/spooler/ports.h"
#include "tests/host/host_fixture.h"

namespace host {
namespace {

using Words = std::vector<std::string>;

struct Mistake {
    Words command;
    int code;
    std::string message;  ///< behind "driverhost: "; a wrong call's also names the help
};

struct ScriptMistake {
    const char* script;
    int code;
    std::string message;
};

class Mistakes : public HostTest {
protected:
    Mistakes() {
        Install("Office", "T");
        Do({"printer", "Office", "-o", "Tray2=NotInstalled", "-o", "DuplexUnit=NotInstalled",
            "--apply"});
        before_ = State();
    }

    std::string State() {
        const std::string page = Do({"document", "Office", "--json"}).out;
        return page + Do({"list"}).out;
    }

    void Expect(const Words& command, int code, const std::string& message) {
        const CommandResult result = Run(command);
        EXPECT_EQ(result.code, code) << message;
        const std::string told = "driverhost: " + message;
        if (code == 2) {
            EXPECT_EQ(result.err.find(told + "; ./run"), 0u) << result.err << told;
            EXPECT_THAT(result.err, HasSubstr(" --help tells more\n"));
        } else {
            EXPECT_TRUE(result.err.ends_with(told + '\n')) << result.err << told;
        }
        EXPECT_EQ(result.out, "");
    }

    static Words With(Words command, const Words& more) {
        command.insert(command.end(), more.begin(), more.end());
        return command;
    }

    std::string before_;
};

TEST_F(Mistakes, AreNamedAndChangeNothing) {
    const Words install = {"install", "New", "--model", "T", "--port", "P"};
    const Words set = {"document", "Office", "--apply", "-o"};
    const std::string noName =
        " is no name for a printer (1 to 220 characters without commas, backslashes and control "
        "characters)";
    const std::string noForm =
        " is no form: expected Name=WIDTHxHEIGHT, each 1 to 100000 millimetres";
    const Mistake rows[] = {
        {{}, 2, "A subcommand is required"},
        {{"instal", "Office"},
         2,
         "no command \"instal\"; did you mean \"install\", \"uninstall\"?"},
        {{"list", "Office"}, 2, "The following argument was not expected: Office"},
        {{"install", "New", "--model", "T"}, 2, "--port is required"},
        {{"install", "--model", "T", "--port", "P"}, 2, "name is required"},
        {With(install, {"--model", "T"}), 2, "option \"--model\" is given twice"},
        {With(install, {"--modle", "T"}), 2, "no option \"--modle\"; did you mean \"--model\"?"},
        {With(install, {"--tray2", "--modle"}), 2,
         "option \"--tray2\" is one of \"play-printer\", not of \"install\""},
        {With(install, {"--bidi", "yes"}), 2, "--bidi: yes not in {on,off}"},
        {With(install, {"--port-kind", "tpcip"}), 2,
         "no kind of port \"tpcip\"; did you mean \"tcpip\"?"},
        {With(install, {"--port-kind", "lpr"}), 2, "port \"P\" needs --address"},
        {{"install", "New", "--model", "X", "--port", "P"}, 2, "no model \"X\"; known: U, T and V"},
        {{"install", "a,b", "--model", "T", "--port", "P"}, 2, "\"a,b\"" + noName},
        {{"install", "..\\x", "--model", "T", "--port", "P"}, 2, "\"..\\x\"" + noName},
        {{"install", "a\nb", "--model", "T", "--port", "P"}, 2, "\"a\\x0Ab\"" + noName},
        {{"install", std::string(1000, 'x'), "--model", "T", "--port", "P"},
         2,
         '"' + std::string(200, 'x') + "...\"" + noName},
        {{"install", "OFFICE", "--model", "U", "--port", "P"},
         1,
         "printer \"OFFICE\" cannot be installed: a printer of that name exists (error 1802)"},
        {{"uninstall", "--model", "V"}, 1, "model V is not installed"},
        {{"remove", "Offic"}, 1, "no printer \"Offic\"; did you mean \"Office\"?"},
        {{"remove", "\x1B[2J\xC2\x9B"}, 1, "no printer \"\\x1B[2J\\x9B\"; known: \"Office\""},
        {{"forms", "Office", "--add", "A4=210x297"},
         1,
         "form \"A4=210x297\" cannot be added: the name is taken (error 80)"},
        {{"forms", "Office", "--add", "Tiny=0x10"}, 2, "\"Tiny=0x10\"" + noForm},
        {{"forms", "Office", "--add", "Odd=10xten"}, 2, "\"Odd=10xten\"" + noForm},
        {{"forms", "Office", "--remove", "A4"}, 1, "no form of yours \"A4\"; there is none"},
        {{"document"}, 2, "name is required"},
        {{"document", "Office", "-l", "--json"}, 2, "-l excludes --json"},
        {{"document", "Office", "--window", "--json"}, 2, "--json excludes --window"},
        {{"document", "Office", "--edit", "none.txt"}, 2, "--edit: File does not exist: none.txt"},
        {{"document", "Office", "--watermark", "Drft"},
         1,
         "no item of \"Watermark List\" \"Drft\"; did you mean \"Draft\"?"},
        {With(set, {"Scaling"}), 2, "\"Scaling\" is no setting: expected Item=Choice"},
        {With(set, {"Scaling=19"}), 1, "\"Scaling\" must be 20 to 200, not 19"},
        {With(set, {"Scaling=big"}), 1, "\"Scaling\" is a number from 20 to 200, not \"big\""},
        {With(set, {"Duplex=LongEdge"}), 1, "\"Duplex\" is not available now"},
        {With(set, {"N-up=Booklet"}), 1,
         "no choice of \"Pages per Sheet\" \"Booklet\"; known: \"1 Page per Sheet\", \"2 Pages per "
         "Sheet\", \"4 Pages per Sheet\", \"6 Pages per Sheet\", \"9 Pages per Sheet\", \"16 Pages "
         "per Sheet\""},
        {With(set, {"Paper Source=Tray 2"}), 1,
         "\"Tray 2\" of \"Paper Source\" is not available now"},
        {With(set, {"Paper=A4"}), 1,
         "no item \"Paper\"; did you mean \"Paper Size\", \"Paper Source\"?"},
        {{"printer", "Office", "--edit", "x"},
         2,
         "option \"--edit\" is one of \"document\", not of \"printer\""},
        {{"play-printer", "--tray9"},
         2,
         "no option \"--tray9\"; did you mean \"--tray2\", \"--tray3\"?"},
        {{"list", "--json", "--json"}, 2, "option \"--json\" is given twice"},
        {{"document", "Office", "--watermark", ""}, 2, "--watermark needs a name"},
        {{"install", "New", "--model", "T", "--port", "IP\n1"},
         2,
         "\"IP\\x0A1\" is no name for a port"},
        {{"play-printer", "--address", "192.168.0.1"},
         1,
         "\"192.168.0.1\" is not a loopback address (127.x.y.z)"},
        {{"watermarks", "Ofice"}, 1, "no printer \"Ofice\"; did you mean \"Office\"?"},
    };
    for (const Mistake& row : rows) Expect(row.command, row.code, row.message);
    EXPECT_TRUE(State() == before_);
    // Refused before anything was written.
    EXPECT_FALSE(std::filesystem::exists(platform::DriverFolder() / "QVRU__UI.DLL"));
    EXPECT_FALSE(platform::spooler::FindPortAddress(u"P").has_value());
    source_.packages = Folder() / "nowhere";
    EXPECT_EQ(Run(install).code, 1);
    std::ostringstream out;
    EXPECT_EQ(RunHost({"list", "--machine", ""}, out, out, source_), 2);
}

TEST_F(Mistakes, OfScriptsCancelTheEditor) {
    const std::string steps =
        "script line 1: expected \"step EDIT NUMBER\", a number from -500 to 500";
    const ScriptMistake rows[] = {
        {"\n# fine\npres New\n", 2, "script line 3: no action \"pres\"; did you mean \"press\"?"},
        {"frob\n", 2,
         "script line 1: no action \"frob\"; known: \"choose\", \"type\", \"press\", \"step\", "
         "\"key\", \"answer\", \"close\""},
        {"type Nmae \"x\"\n", 2, "script line 1: no edit \"Nmae\"; did you mean \"Name\"?"},
        {"type Name\n", 2, "script line 1: expected \"type EDIT \"TEXT\"\""},
        {"answer Perhaps\n", 2,
         "script line 1: no answer \"Perhaps\"; known: \"OK\", \"Cancel\", \"Yes\", \"No\""},
        {"press\n", 2, "script line 1: \"press\" says not what"},
        {"step Size 501\n", 2, steps},
        {"step Size -2147483648\n", 2, steps},
        {"type Name \"\xE4\"\n", 2, "the script is not in UTF-8"},
        {"choose watermark list = Copyy\n", 1,
         "script line 1: no item of \"watermark list\" \"Copyy\"; did you mean \"Copy\"?"},
        {"press Delete\n", 1, "script line 1: \"Delete\" cannot be used now"},
        {"choose Watermark List = Copy\nanswer OK\n", 1,
         "script line 2: there is no message to answer"},
        {"close\npress New\n", 1, "script line 2: the editor is closed already"},
        {"press New\n", 1, "the script ended with the editor still open; nothing was stored"},
        {"choose Watermark List = Copy\npress Delete\npress OK\n", 1,
         "script line 2: the message \"Are you sure you want to delete the selected watermark?\" "
         "is "
         "not answered; nothing was stored"},
        {"press New\npress OK\nanswer Yes\n", 1,
         "script line 2: the message \"The new watermark \"Watermark - #1\" is selected.\" has no "
         "button \"Yes\"; nothing was stored"},
        {"press New\ntype Name \" \"\npress OK\nanswer OK\n", 1,
         "script line 3: the editor says \"Watermark name empty!\"; nothing was stored"},
    };
    for (const ScriptMistake& row : rows) {
        const std::filesystem::path file = WriteFile("script.txt", row.script);
        Expect(
            {"document", "Office", "-o", "Watermark=Enabled", "--edit", file.native(), "--apply"},
            row.code, row.message);
    }
    const std::filesystem::path file = WriteFile("script.txt", "press OK\n");
    Expect({"document", "Office", "--edit", file.native()}, 1,
           "the editor does not open while \"Watermark\" is \"Disabled\"");
    EXPECT_TRUE(State() == before_);
}

}  // namespace
}  // namespace host
