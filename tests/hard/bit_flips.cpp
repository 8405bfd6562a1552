// One bit the other way round, in a stored list or in a devmode block: the page is built, the
// editor opened and left with OK. Nothing hangs or is read outside (the sanitizers' part), and what
// is stored then is a list. Looking alone loses no entry.

#include <algorithm>
#include <sstream>

#include "platform/faults/live_objects.h"
#include "platform/gui/dialogs/hands.h"
#include "tests/hard/plugin_machine.h"
#include "tests/hard/sections.h"

namespace hard {
namespace {

void Flip(void* bytes, std::size_t bit) {
    static_cast<unsigned char*>(bytes)[bit / 8] ^= static_cast<unsigned char>(1U << bit % 8);
}

class Flips : public CaseSet {
public:
    Flips() {
        machine_.Restore();
        machine_.user.work = [](HWND dialog) { platform::hands::Click(dialog, IDOK); };
        ShowAndConfirm([](oemui::PrivateDevmode*) {});
    }
    std::string NameOf(std::size_t place) const override { return std::to_string(place); }

protected:
    /// \param damage  what happens to the devmode before the page is built.
    std::string ShowAndConfirm(const std::function<void(oemui::PrivateDevmode*)>& damage) {
        const auto open = platform::LiveObjects();
        std::string wrong;
        {
            tests::DocumentPage page(machine_.PrinterName());
            page.privateDevmode.WatermarkIndex = 1;
            page.privateDevmode.Watermark = StoredBefore().Entries[1];
            damage(&page.privateDevmode);
            BuildWhole(&page);
            wrong = LostByLooking();
            OpenEditor(&page);
            page.Report(CPSUICB_REASON_APPLYNOW);
        }
        return wrong + WrongWith(machine_.StoredList()) + ChangeSince(open);
    }

    PluginMachine machine_;

private:
    /// The damaged one may have another name; every other entry is still there.
    std::string LostByLooking() const {
        const std::string stored = NamesIn(machine_.StoredList());
        std::istringstream names(NamesIn(BytesOf(StoredBefore())));
        int lost = 0;
        for (std::string name; std::getline(names, name, '|');) {
            lost += stored.find(name + '|') == std::string::npos ? 1 : 0;
        }
        return lost > 1 ? "looking lost entries: " + stored + " " : "";
    }
};

class ListFlips : public Flips {
public:
    std::size_t Count() const override { return 8 * sizeof(oemui::WatermarkList); }
    std::string Run(std::size_t place) override {
        oemui::WatermarkList list = StoredBefore();
        Flip(&list, place);
        machine_.StoreList(BytesOf(list));
        return ShowAndConfirm([](oemui::PrivateDevmode*) {});
    }
};

class DevmodeFlips : public Flips {
public:
    std::size_t Count() const override { return 8 * sizeof(oemui::PrivateDevmode); }
    std::string Run(std::size_t place) override {
        machine_.StoreList(BytesOf(StoredBefore()));
        return ShowAndConfirm([place](oemui::PrivateDevmode* devmode) { Flip(devmode, place); });
    }
};

}  // namespace

Tally FlipBits(const Choice& choice) {
    const Tally list = RunCases(
        "list-bit", [] { return std::make_unique<ListFlips>(); }, choice);
    const Tally devmode = RunCases(
        "devmode-bit", [] { return std::make_unique<DevmodeFlips>(); }, choice);
    return {list.tried + devmode.tried, list.violations + devmode.violations};
}

}  // namespace hard
