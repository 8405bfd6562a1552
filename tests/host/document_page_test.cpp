// The document page through the module's file.
#include "tests/host/host_fixture.h"

namespace host {
namespace {

using DocumentPage = HostTest;

TEST_F(DocumentPage, ShowsThePlugInsItemsForEveryModel) {
    const struct {
        const char* letter;
        int index;
        unsigned signature;
    } models[] = {{"U", 0, 0x51565255}, {"T", 1, 0x51565254}, {"V", 2, 0x51565256}};
    for (const auto& model : models) {
        SCOPED_TRACE(model.letter);
        Install(model.letter, model.letter);
        const nlohmann::json page = Do({"document", model.letter, "--json"}).Json();
        EXPECT_EQ(page["modelIndex"], model.index);
        const nlohmann::json scaling = ItemNamed(page, "Scaling");
        EXPECT_EQ(scaling["helpIndex"], 1212);
        EXPECT_EQ(scaling["helpFile"], "C:\\Windows\\System32\\spool\\drivers\\x64\\3\\QVR" +
                                           std::string(model.letter) + "_HLP.HLP");
        EXPECT_EQ(ItemNamed(page, "Transmit Once")["enabled"], false);
        EXPECT_EQ(ItemNamed(page, "Color Management Method")["visible"], false);
        EXPECT_EQ(page["privateDevmode"]["dwSignature"], model.signature);
        EXPECT_EQ(page["privateDevmode"]["Watermark"]["Name"], "<NONE>");
    }
    // The first page left every printer its list of watermarks.
    for (const nlohmann::json& printer : Do({"list", "--json"}).Json()) {
        EXPECT_EQ(printer["driverData"]["WaterMarkList"], "4816 bytes");
    }
}

TEST_F(DocumentPage, KeepsSettingsOnlyWhenApplied) {
    Install("Office", "T");
    const nlohmann::json shown =
        Do({"document", "Office", "-o", "Scaling=150", "-o", "Copies=3", "--json"}).Json();
    EXPECT_EQ(ItemNamed(shown, "Scaling")["selection"], 150);
    EXPECT_EQ(ItemNamed(Do({"document", "Office", "--json"}).Json(), "Scaling")["selection"], 100);

    Do({"document", "Office", "-o", "scaling=150%", "-o", "ColorModel=Monochrome", "-o",
        "Paper Size=B5 (ISO)", "--set", "MediaType=LETTERHEAD", "--apply"});
    const nlohmann::json kept = Do({"document", "Office", "--json"}).Json();
    EXPECT_EQ(kept["privateDevmode"]["Scaling"], 150);
    const nlohmann::json paper = ItemNamed(kept, "Paper Size");
    EXPECT_EQ(paper["choices"][paper["selection"].get<std::size_t>()]["text"], "B5 (ISO)");
    EXPECT_EQ(ItemNamed(kept, "Media Type")["selection"], 2);
    EXPECT_EQ(ItemNamed(kept, "Color")["selection"], 1);
    // The plug-in saw the public devmode in step: monochrome leaves no rendering intent to choose.
    EXPECT_EQ(ItemNamed(kept, "Rendering Intent")["enabled"], false);
}

TEST_F(DocumentPage, DefaultsAreThoseOfANewPrinterAndOfferedBeforeOtherSettings) {
    Install("Office", "T");
    const std::string fresh = Do({"document", "Office", "--json"}).out;
    const std::string lines = Do({"document", "Office", "-l"}).out;
    const std::string copies = Do({"document", "Office", "-o", "Copies=3", "-l"}).out;
    Do({"document", "Office",
        "-o",       "Orientation=Landscape",
        "-o",       "PageSize=B5 (ISO)",
        "-o",       "InputSlot=Tray 2",
        "-o",       "Copies=9",
        "-o",       "Duplex=LongEdge",
        "-o",       "Scaling=150",
        "-o",       "Watermark=Enabled",
        "-o",       "TransmitOnce=On",
        "-o",       "RenderingIntent=Perceptual",
        "-o",       "ColorModel=Monochrome",
        "--apply"});
    const std::string kept = Do({"document", "Office", "--json"}).out;
    EXPECT_EQ(Do({"document", "Office", "--defaults", "-l"}).out, lines);
    EXPECT_EQ(Do({"document", "Office", "-o", "Copies=3", "--defaults", "-l"}).out, copies);
    EXPECT_EQ(Do({"document", "Office", "--json"}).out, kept) << "not applied";
    Do({"document", "Office", "--defaults", "--apply"});
    EXPECT_EQ(Do({"document", "Office", "--json"}).out, fresh);
}

TEST_F(DocumentPage, TellsTheScalingConflictAndResolvesIt) {
    Install("Office", "T");
    const CommandResult result =
        Do({"document", "Office", "-o", "Scaling=150", "-o", "N-up=4", "--apply"});
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, HasSubstr("driverhost: [Conflict!] Scaling cannot be used with N-up"));
    const nlohmann::json page = Do({"document", "Office", "--json"}).Json();
    EXPECT_EQ(page["privateDevmode"]["Scaling"], 100);
    EXPECT_EQ(page["privateDevmode"]["PagesPerSheet"], 4);
}

TEST_F(DocumentPage, DriverFollowsWhatThePlugInPutsBack) {
    Install("Office", "T");
    Do({"document", "Office", "-o", "N-up=Booklet", "--apply"});
    const nlohmann::json page = Do({"document", "Office", "--json"}).Json();
    EXPECT_EQ(ItemNamed(page, "Pages per Sheet")["selection"], 0);

    Install("Studio", "U");
    Do({"forms", "Studio", "--add", "Banner=210x900"});
    EXPECT_THAT(Do({"forms", "Studio"}).out, HasSubstr("Banner=210.0x900.0 (added)\n"));
    const CommandResult tooLong =
        Do({"document", "Studio", "-o", "PageSize=Banner", "-o", "MediaType=Glossy", "--apply"});
    EXPECT_THAT(tooLong.err, HasSubstr("can not be longer than 297 mm"));
    EXPECT_EQ(ItemNamed(Do({"document", "Studio", "--json"}).Json(), "Paper Size")["selection"], 0);
}

TEST_F(DocumentPage, PrintsOneLineAnItem) {
    Install("Office", "T");
    const std::string lines = Do({"document", "Office", "-l"}).out;
    for (const char* line :
         {"Orientation/Orientation: *Portrait Landscape\n",
          "InputSlot/Paper Source: *Auto Tray1 Tray2 Tray3 ManualFeed\n",
          "Copies/Copies: 1..999 *1\n", "N-up/Pages per Sheet: *1 2 4 6 9 16 Booklet\n",
          "Scaling/Scaling: 20..200 % *100\n", "Watermark/Watermark: Enabled *Disabled\n",
          "TransmitOnce/Transmit Once: *Off On (disabled)\n"}) {
        EXPECT_NE(lines.find(line), std::string::npos) << line;
    }
    const std::string tree = Do({"document", "Office"}).out;
    EXPECT_THAT(tree, HasSubstr("\n    Scaling                       100 %\n"));
    EXPECT_THAT(tree, HasSubstr("Disabled  <Edit>\n"));
}

}  // namespace
}  // namespace host
