// Working in the watermark editor by a script.
#include "host/page/edit_script.h"

#include <windows.h>

#include "platform/faults/failure_points.h"
#include "tests/host/host_fixture.h"

namespace host {
namespace {

class EditorScript : public HostTest {
protected:
    CommandResult Edit(const std::string& script, std::vector<std::string> more = {}) {
        const std::filesystem::path file = WriteFile("script.txt", script);
        std::vector<std::string> command = {"document",          "Office", "-o",
                                            "Watermark=Enabled", "--edit", file.native()};
        command.insert(command.end(), more.begin(), more.end());
        return Run(command);
    }
};

TEST_F(EditorScript, AddsAWatermarkAndTellsIt) {
    Install("Office", "T");
    const CommandResult result = Edit(
        "# a new one\n\npress New\ntype Name \"Zebra\"\ntype String Black and white\n"
        "choose Color = Red\nstep Size 2\npress 1\nanswer OK\n",
        {"--apply"});
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_THAT(result.err, HasSubstr("[Watermark] The new watermark \"Zebra\" is selected."));
    const nlohmann::json settings = Do({"document", "Office", "--json"}).Json()["privateDevmode"];
    EXPECT_EQ(settings["WatermarkIndex"], 9);
    EXPECT_EQ(settings["Watermark"]["Name"], "Zebra");
    EXPECT_EQ(settings["Watermark"]["Text"], "Black and white");
    EXPECT_EQ(settings["Watermark"]["PointSize"], 74);
}

TEST_F(EditorScript, AnswersMessagesAsWrittenAndSafelyOtherwise) {
    Install("Office", "T");
    const std::string remove = "choose Watermark List = Copy\npress Delete\n";
    const CommandResult unanswered = Edit(remove + "press OK\n");
    EXPECT_THAT(unanswered.err, HasSubstr("delete the selected watermark? -> Cancel"));
    const CommandResult answered = Edit(remove + "answer OK\npress OK\n");
    EXPECT_THAT(answered.err, HasSubstr("delete the selected watermark? -> OK"));
    EXPECT_EQ(Edit("choose Watermark List = Copy\n").code, 1);
}

TEST_F(EditorScript, AsksNothingAboutADefaultEntryThatIsOnlyChosen) {
    Install("Office", "T");
    EXPECT_EQ(Edit("choose Watermark List = Copy\npress OK\n").err, "");
}

TEST_F(EditorScript, StopsAtTheLineThatCannotBeDone) {
    Install("Office", "T");
    const struct {
        const char* script;
        const char* error;
    } rows[] = {
        {"choose Watermark List = Copyy\n", "line 1: \"Watermark List\" cannot be used now"},
        {"press New\nanswer OK\n", "line 2: there is no message to answer"},
        {"close\npress New\n", "line 2: \"New\" cannot be used now"},
    };
    for (const auto& row : rows) {
        const CommandResult result = Edit(row.script, {"--apply"});
        EXPECT_EQ(result.code, 1) << row.script;
        EXPECT_THAT(result.err, HasSubstr(row.error));
    }
    const nlohmann::json settings = Do({"document", "Office", "--json"}).Json()["privateDevmode"];
    EXPECT_EQ(settings["WatermarkOn"], 0);
}

TEST_F(EditorScript, FailsWhenTheListIsNotStored) {
    Install("Office", "T");
    Do({"document", "Office"});
    const platform::FailurePlan full("SetPrinterDataW", 0, ERROR_DISK_FULL);
    const CommandResult result = Edit("press New\npress OK\nanswer OK\n", {"--apply"});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err, HasSubstr("driverhost: the list of watermarks was not stored"));
}

TEST_F(EditorScript, NeedsAnEnabledWatermark) {
    Install("Office", "T");
    const CommandResult result = Edit("press OK\n", {"-o", "Watermark=Disabled"});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err, HasSubstr("the editor does not open while"));
}

TEST(EditScriptLines, ThatAreNotUnderstoodAreToldByTheirNumber) {
    const struct {
        const char* script;
        const char* error;
    } rows[] = {
        {"\n# fine\npres New\n", "line 3: no action \"pres\"; did you mean \"press\"?"},
        {"type Nmae \"x\"\n", "line 1: no control \"Nmae\"; did you mean \"Name\"?"},
        {"type Name\n", "line 1: expected \"type EDIT"},
        {"answer Perhaps\n", "line 1: no answer \"Perhaps\""},
        {"press\n", "line 1: \"press\" says not what"},
        {"step Size 501\n", "line 1: expected \"step EDIT NUMBER\", a number from -500 to 500"},
        {"step Size -2147483648\n", "line 1: expected \"step EDIT NUMBER\""},
    };
    for (const auto& row : rows) {
        try {
            static_cast<void>(EditScript::Parse(row.script));
            ADD_FAILURE() << row.script;
        } catch (const UsageFailure& failure) {
            EXPECT_EQ(std::string(failure.what()).find(row.error), 0u) << failure.what();
        }
    }
}

}  // namespace
}  // namespace host
