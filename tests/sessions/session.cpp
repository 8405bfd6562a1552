#include "tests/sessions/session.h"

#include <algorithm>
#include <array>

#include "resources/resource_ids.h"
#include "tests/sessions/dice.h"
#include "tests/support/states/state.h"

namespace sessions {
namespace {

constexpr auto kButtons =
    std::to_array<int>({IDC_NEW, IDC_NEW, IDC_DELETE, IDC_DELETE, IDOK, IDC_CANCEL, IDC_BOLD,
                        IDC_ITALIC, IDC_CENTER, IDC_USER_POSITION, IDC_USER_POSITION});
constexpr auto kEdits = std::to_array<int>(
    {IDC_NAME, IDC_TEXT, IDC_POINT_SIZE, IDC_USER_ANGLE, IDC_HORIZONTAL, IDC_VERTICAL});
constexpr auto kLists = std::to_array<int>(
    {IDC_WATERMARK_LIST, IDC_WATERMARK_LIST, IDC_TYPEFACE, IDC_COLOR, IDC_ANGLE, IDC_ANGLE});
constexpr auto kUpDowns = std::to_array<int>(
    {IDC_POINT_SIZE_SPIN, IDC_USER_ANGLE_SPIN, IDC_HORIZONTAL_SPIN, IDC_VERTICAL_SPIN});
// Without the page keys: how far they go in a list depends on the height of a line.
constexpr auto kKeys =
    std::to_array<int>({VK_TAB, VK_TAB, VK_TAB, VK_RETURN, VK_ESCAPE, VK_SPACE, VK_UP, VK_DOWN,
                        VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_BACK, VK_DELETE});
// Without a plus, and without a minus where it can only be pasted: the third party reads such
// numbers where the platform reads none.
constexpr auto kTyped = std::to_array<LPCWSTR>(
    {TEXT("5"),
     TEXT("12"),
     TEXT("200"),
     TEXT("201"),
     TEXT("1000"),
     TEXT("-5"),
     TEXT("-180"),
     TEXT("-1805"),
     TEXT("181"),
     TEXT("999"),
     TEXT("-"),
     TEXT("1,5"),
     TEXT(" 7"),
     TEXT("12abc"),
     TEXT(""),
     TEXT(" "),
     TEXT("Draft"),
     TEXT("<NONE>"),
     TEXT("Zebra"),
     TEXT("hello"),
     TEXT("Watermark - #1"),
     TEXT("caf\x00E9"),
     TEXT("a & b"),
     TEXT("more than twenty characters are typed here"),
     TEXT("more than the sixty-four characters that the text takes are typed into this edit")});
constexpr auto kPasted =
    std::to_array<LPCWSTR>({TEXT("7"), TEXT("12"), TEXT("1a2"), TEXT("Draft"),
                            TEXT("a long text of more than 64 characters, more "
                                 "than any edit takes at once, for sure")});
constexpr auto kReasons =
    std::to_array<int>({CPSUICB_REASON_SEL_CHANGED, CPSUICB_REASON_SETACTIVE,
                        CPSUICB_REASON_APPLYNOW, CPSUICB_REASON_APPLYNOW, 77});
constexpr auto kDriverItems =
    std::to_array<BYTE>({DMPUB_NUP, DMPUB_DUPLEX, DMPUB_ORIENTATION, DMPUB_FORMNAME,
                         DMPUB_ICMMETHOD, DMPUB_DEFSOURCE, DMPUB_MEDIATYPE});

Action MakePageAction(Dice* dice) {
    switch (dice->Below(8)) {
        case 0:
            return {Verb::kReport, dice->Pick(kReasons)};
        case 1:
            return {Verb::kSelect, 0, dice->Between(19, 201)};
        case 2:
            return {Verb::kSelect, dice->Between(1, 3), dice->Between(0, 2)};
        case 3:
            return {Verb::kDriver, dice->Pick(kDriverItems), dice->Between(-1, 7)};
        case 4:
            return {Verb::kCopies, dice->Between(0, 3), dice->Between(0, 1)};
        case 5:
            return {Verb::kColor, dice->Between(DMCOLOR_MONOCHROME, DMCOLOR_COLOR)};
        default:
            return {Verb::kEdit};
    }
}

/// Mostly an item near the top; at times one that is not there.
int PickItem(Dice* dice) {
    return dice->Between(0, dice->Chance(20) ? 20 : 6);
}

Action MakeHandAction(Dice* dice) {
    switch (dice->Below(5)) {
        case 0:
            return {Verb::kClick, dice->Pick(kButtons)};
        case 1:
            return {Verb::kStep, dice->Pick(kUpDowns),
                    dice->Chance(50) ? dice->Between(1, 3) : -dice->Between(1, 3)};
        case 2:
            return {Verb::kChoose, dice->Pick(kLists), PickItem(dice)};
        default:
            return {Verb::kReplace, dice->Pick(kEdits), 0, dice->Pick(kTyped)};
    }
}

Action MakeKeyAction(Dice* dice) {
    switch (dice->Below(7)) {
        case 3:
            return {Verb::kDrop, dice->Between(-3, 3)};
        case 0:
            return {Verb::kType, 0, 0, dice->Pick(kTyped)};
        case 1:
            return {Verb::kPaste, 0, 0, dice->Pick(kPasted)};
        case 2:
            return {Verb::kMnemonic, dice->Between('A', 'Z')};
        default:
            return {Verb::kKey, dice->Pick(kKeys)};
    }
}

Action MakeEditorAction(Dice* dice) {
    Action action = dice->Chance(2)    ? Action{Verb::kClose}
                    : dice->Chance(60) ? MakeHandAction(dice)
                                       : MakeKeyAction(dice);
    action.agrees = dice->Chance(70);
    return action;
}

/// Whether a person would take the editor for closed after this.
bool Closes(const Action& action) {
    if (action.verb == Verb::kClick) return action.number == IDOK || action.number == IDC_CANCEL;
    return action.verb == Verb::kClose || (action.verb == Verb::kKey && action.number == VK_ESCAPE);
}

std::vector<Action> MakeActions(Dice* dice) {
    std::vector<Action> actions;
    bool isEditing = false;
    for (int left = dice->Between(5, 40); left > 0; --left) {
        actions.push_back(isEditing ? MakeEditorAction(dice) : MakePageAction(dice));
        isEditing = actions.back().verb == Verb::kEdit || (isEditing && !Closes(actions.back()));
    }
    return actions;
}

Opening MakeOpening(Dice* dice) {
    Opening opening;
    opening.model = "TTUV"[dice->Below(4)];
    opening.storedList = MakeStoredList(dice);
    opening.block.Scaling = static_cast<UINT32>(dice->Between(20, 200));
    opening.block.WatermarkIndex = dice->Below(dice->Chance(10) ? 20 : 4);
    opening.block.WatermarkOn = dice->Below(3);
    opening.block.TransmitOnce = dice->Below(2);
    opening.block.RenderingIntent = dice->Below(4);
    opening.block.PagesPerSheet = 1;
    opening.block.Watermark = MakeRecord(dice);
    opening.copies = static_cast<SHORT>(dice->Between(0, 3));
    opening.collate = static_cast<SHORT>(dice->Below(2));
    opening.color = static_cast<SHORT>(dice->Between(DMCOLOR_MONOCHROME, DMCOLOR_COLOR));
    for (const BYTE publicId : kDriverItems) {
        if (dice->Chance(85)) opening.driverItems.push_back({publicId, dice->Between(0, 3)});
    }
    for (const char* feature : {"Tray2", "DuplexUnit", "Tray3"}) {
        constexpr const char* kOptions[] = {"Yes", "Yes", "No", ""};
        opening.settings.emplace_back(feature, dice->Pick(kOptions));
    }
    return opening;
}

constexpr auto kVerbs = std::to_array<const char*>(
    {"report", "select", "driver's item", "copies", "color", "edit", "click", "replace", "choose",
     "step", "type", "paste", "key", "drop", "mnemonic", "close"});

}  // namespace

std::string Action::Describe() const {
    std::string described = kVerbs[static_cast<std::size_t>(verb)];
    described += ' ' + std::to_string(number) + ' ' + std::to_string(value);
    if (!text.empty()) described += ' ' + tests::Quoted(text);
    return described + (agrees ? "" : ", disagreeing");
}

Session MakeSession(std::uint64_t seed) {
    Dice dice(seed);
    Session session;
    session.opening = MakeOpening(&dice);
    session.actions = MakeActions(&dice);
    return session;
}

}  // namespace sessions
