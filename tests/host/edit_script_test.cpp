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
        "\xEF\xBB\xBF# a new one\n\nPRESS New\ntype Name \"Zebra\"\ntype String Black and white\n"
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

TEST_F(EditorScript, FailsWhenTheListIsNotStored) {
    Install("Office", "T");
    Do({"document", "Office"});
    const platform::FailurePlan full("SetPrinterDataW", 0, ERROR_DISK_FULL);
    const CommandResult result = Edit("press New\npress OK\nanswer OK\n", {"--apply"});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err, HasSubstr("the editor says \"Failed to set data in registry.\""));
}

TEST_F(EditorScript, SelectsAWatermarkByItsNameAndListsThem) {
    Install("Office", "T");
    // Nothing in a default entry that is only chosen counts as changed.
    EXPECT_EQ(Do({"document", "Office", "--watermark", "draft", "--apply"}).err, "");
    EXPECT_THAT(Do({"document", "Office", "-l"}).out,
                HasSubstr("Watermark/Watermark: *Enabled Disabled \"Draft\"\n"));
    EXPECT_THAT(
        Do({"watermarks", "Office"}).out,
        HasSubstr(
            "  Copy                  \"COPY\" Arial 96 pt bold, black, diagonal, centred\n"
            "* Draft                 \"DRAFT\" Arial 96 pt bold, black, diagonal, centred\n"));
    const nlohmann::json watermarks = Do({"watermarks", "Office", "--json"}).Json();
    EXPECT_EQ(watermarks.size(), 9u);
    EXPECT_EQ(watermarks[3]["selected"], true);
}

}  // namespace
}  // namespace host
