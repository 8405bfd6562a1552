#include "tests/sessions/player.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "common/current_printer.h"
#include "resources/resource_ids.h"
#include "tests/sessions/stage.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/scripted_user.h"
#include "tests/support/states/dialog_state.h"
#include "tests/support/states/page_state.h"
#include "tests/support/states/watermark_state.h"
#include "tests/support/test_machine.h"
#include "tests/support/test_printer.h"
#include "watermark/default_watermarks.h"
#include "wmeditor/editor_session.h"

namespace sessions {
namespace {

using oemui::EditorSession;
using tests::State;

constexpr LPCWSTR kListValue = TEXT("WaterMarkList");
constexpr const char* kDefaults =
    "[WatermarkInfo]\r\nNUM=4\r\n"
    "dat0=0,<NONE>,,Arial,72,0,0,0,0,0,0,0,0,0,0\r\n"
    "dat1=1,Copy,COPY,Arial,72,1,0,255,0,0,1,9,0,0,0\r\n"
    "dat2=2,Draft,DRAFT,Courier New,48,0,1,0,0,255,3,-30,1,10,-20\r\n"
    "dat3=3,Late,,No Such Face,500,0,0,0,0,0,2,0,0,0,0\r\n";
/// What the typeface list holds, whatever faces the machine has.
constexpr auto kFaces = std::to_array<LPCWSTR>(
    {TEXT("Arial"), TEXT("Courier New"), TEXT("Symbol"), TEXT("Times New Roman")});

void WriteDefaults(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder / "Windows");
    for (const char model : {'U', 'T', 'V'}) {
        const std::string name = std::string("QVR") + model + "__WM.INI";
        std::ofstream(folder / "Windows" / name, std::ios::binary) << kDefaults;
    }
}

/// The machine's own typefaces give way to the same few everywhere; the edited one is selected.
void OfferSameFaces(HWND dialog) {
    const HWND list = ::GetDlgItem(dialog, IDC_TYPEFACE);
    while (::SendMessageW(list, CB_GETCOUNT, 0, 0) > 0) {
        ::SendMessageW(list, CB_DELETESTRING, 0, 0);
    }
    for (LPCWSTR face : kFaces) {
        ::SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(face));
    }
    const auto* edited = EditorSession::Current().Edited().FaceName;
    const LRESULT place = ::SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(edited));
    ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(place), 0);
}

// The letters of labels, and what they stand before.
constexpr std::pair<int, int> kLabelled[] = {
    {'L', IDC_WATERMARK_LIST}, {'M', IDC_NAME},     {'S', IDC_TEXT},  {'F', IDC_TYPEFACE},
    {'Z', IDC_POINT_SIZE},     {'C', IDC_COLOR},    {'A', IDC_ANGLE}, {'U', IDC_USER_ANGLE},
    {'H', IDC_HORIZONTAL},     {'V', IDC_VERTICAL},
};

}  // namespace

class Player::Machine {
public:
    Machine() {
        WriteDefaults(machine_.Folder());
        PreparePrinter(printer.Name());
    }

private:
    tests::TestMachine machine_;

public:
    tests::TestPrinter printer{TEXT("Office")};
    tests::ScriptedUser user;
};

/// One session being played.
class Player::Performance {
public:
    Performance(Player* player, const Opening& opening);

    void Play(const std::vector<const Action*>& actions);

private:
    void Continue();
    void Perform(const Action& action);
    bool AtPage(const Action& action);
    bool InEditor(const Action& action);
    [[nodiscard]] bool IsUnsettledKey(int key) const;
    [[nodiscard]] bool IsUnsettledLetter(int letter) const;
    bool Drop(int steps);
    void WorkInEditor();
    void Edit();
    LONG Report(WORD reason, OPTITEM* current = nullptr);
    [[nodiscard]] State Everything();
    void Tell(const std::string& what);

    [[nodiscard]] bool IsEditing() const {
        return editor_.has_value() && EditorSession::Current().IsOpenIn(user_.Dialog());
    }

    Player& player_;
    tests::TestPrinter& printer_;
    tests::ScriptedUser& user_;
    tests::DocumentPage page_;
    std::vector<const Action*> actions_;
    std::size_t next_ = 0;
    bool agrees_ = true;
    std::optional<tests::DialogView> editor_;  ///< while there is work in it
    std::string boxes_;
    State shown_;
};

Player::Player(std::ostream* trace) : trace_(trace), machine_(std::make_unique<Machine>()) {}

Player::~Player() = default;

void Player::Play(const Session& session, const std::vector<std::size_t>& kept) {
    std::vector<const Action*> actions;
    for (const std::size_t place : kept) {
        if (place < session.actions.size()) actions.push_back(&session.actions[place]);
    }
    tests::LoadPlugin();
    tests::BecomeModel(session.opening.model);
    EditorSession::Current() = EditorSession{};
    oemui::WorkingWatermarkList = {};
    machine_->printer.StoreValue(kListValue, session.opening.storedList);
    Performance(this, session.opening).Play(actions);
}

Player::Performance::Performance(Player* player, const Opening& opening)
    : player_(*player),
      printer_(player->machine_->printer),
      user_(player->machine_->user),
      page_(printer_.Name()) {
    const OEM_DMEXTRAHEADER header = page_.privateDevmode.Header;
    page_.privateDevmode = opening.block;
    page_.privateDevmode.Header = header;
    page_.publicDevmode.dmCopies = opening.copies;
    page_.publicDevmode.dmCollate = opening.collate;
    page_.publicDevmode.dmColor = opening.color;
    for (const auto& [feature, option] : opening.settings) page_.Setting(feature, option);
    for (const auto& [publicId, selection] : opening.driverItems) {
        page_.With(publicId, selection,
                   {"Auto", "Tray 2", "Tray 3", "Letterhead", "Five", "Six", "Booklet"});
    }
    user_.WillAnswer([this](const tests::ShownBox& box) {
        boxes_ += "box " + box.caption + ": " + box.text + "\n";
        if (box.type == MB_YESNO) return agrees_ ? IDYES : IDNO;
        return agrees_ || box.type == MB_OK ? IDOK : IDCANCEL;
    });
}

void Player::Performance::Play(const std::vector<const Action*>& actions) {
    actions_ = actions;
    page_.Build();
    Tell("opening");
    Continue();
}

void Player::Performance::Continue() {
    while (next_ < actions_.size()) {
        const std::size_t place = next_++;
        Perform(*actions_[place]);
        if (editor_.has_value() && !IsEditing()) return;
    }
}

void Player::Performance::Perform(const Action& action) {
    agrees_ = action.agrees;
    const bool isAtPage = action.verb <= Verb::kEdit;
    std::string told = action.Describe();
    if (isAtPage == IsEditing()) {
        told += isAtPage ? ": the editor is open" : ": no editor";
    } else if (!(isAtPage ? AtPage(action) : InEditor(action))) {
        told += ": cannot";
    }
    Tell(told);
}

bool Player::Performance::AtPage(const Action& action) {
    const auto number = static_cast<WORD>(action.number);
    OPTITEM* item = nullptr;
    switch (action.verb) {
        case Verb::kReport:
            return Report(number), true;
        case Verb::kSelect:
            item = &page_.Own(static_cast<oemui::DocumentItem>(number));
            break;
        case Verb::kDriver:
            item = page_.FindDriver(static_cast<BYTE>(number));
            break;
        case Verb::kCopies:
            page_.publicDevmode.dmCopies = static_cast<SHORT>(number);
            page_.publicDevmode.dmCollate = static_cast<SHORT>(action.value);
            break;
        case Verb::kColor:
            page_.publicDevmode.dmColor = static_cast<SHORT>(number);
            break;
        default:
            return Edit(), true;
    }
    if (item != nullptr) item->Sel = action.value;
    Report(CPSUICB_REASON_SEL_CHANGED, item);
    return true;
}

bool Player::Performance::InEditor(const Action& action) {
    switch (action.verb) {
        case Verb::kClick:
            return user_.Click(action.number);
        case Verb::kReplace:
            return user_.TypeText(action.number, action.text);
        case Verb::kChoose:
            return user_.ChooseAt(action.number, action.value);
        case Verb::kStep:
            return user_.StepUpDown(action.number, action.value);
        case Verb::kType:
            return user_.Type(action.text);
        case Verb::kPaste:
            return user_.Paste(action.text);
        case Verb::kKey:
            return !IsUnsettledKey(action.number) && user_.PressKey(action.number);
        case Verb::kDrop:
            return Drop(action.number);
        case Verb::kMnemonic:
            return !IsUnsettledLetter(action.number) && user_.PressKey(action.number, true);
        default:
            return user_.Close(), true;
    }
}

/// Where an arrow key leads from a button that is not one of a group of radio buttons, or from the
/// arrows of an up-down, is not documented where the group holds labels and edits as well.
bool Player::Performance::IsUnsettledKey(int key) const {
    using enum tests::ControlKind;
    if (key < VK_LEFT || key > VK_DOWN) return false;
    const auto kind = editor_->FocusedKind();
    return kind == kButton || kind == kCheck || kind == kUpDown;
}

/// The third party leads a label's letter through the label itself: a control that has the focus
/// already, or gets it because the label's own is disabled, hears of a loss and a gain.
bool Player::Performance::IsUnsettledLetter(int letter) const {
    for (const auto& [labelLetter, id] : kLabelled) {
        if (labelLetter != letter) continue;
        const HWND control = ::GetDlgItem(user_.Dialog(), id);
        if (!::IsWindowEnabled(control) || ::GetFocus() == control) return true;
    }
    return false;
}

/// Opened and closed again at once: what a letter with Alt does to an open list is not documented.
bool Player::Performance::Drop(int steps) {
    if (editor_->FocusedKind() != tests::ControlKind::kList) return false;
    user_.PressKey(VK_F4);
    for (int i = std::abs(steps); i > 0; --i) user_.PressKey(steps > 0 ? VK_DOWN : VK_UP);
    return user_.PressKey(agrees_ ? VK_RETURN : VK_ESCAPE);
}

void Player::Performance::Edit() {
    OPTITEM& item = page_.Own(oemui::kWatermarkItem);
    item.Sel = oemui::kWatermarkEnabled;
    user_.InDialog([this] { WorkInEditor(); });
    Report(CPSUICB_REASON_EXTPUSH, &item);
    user_.ForgetWork();
}

void Player::Performance::WorkInEditor() {
    editor_.emplace(user_.Dialog(), tests::EditorControls());
    OfferSameFaces(user_.Dialog());
    PrepareEditor(user_.Dialog());
    Tell("the editor opens");
    Continue();
    if (IsEditing()) user_.Close();
    editor_.reset();
}

LONG Player::Performance::Report(WORD reason, OPTITEM* current) {
    const LONG result = page_.Report(reason, current);
    boxes_ += "answer " + std::to_string(result) + "\n";
    return result;
}

State Player::Performance::Everything() {
    State state;
    if (IsEditing()) {
        state = editor_->Look();
        state.Add("edited", tests::Describe(EditorSession::Current().Edited()));
        state.Add("preview", tests::Describe(EditorSession::Current().Preview()));
    }
    state.Add(tests::ListState("working", oemui::WorkingWatermarkList));
    state.Add(tests::StoredListState("stored", printer_.StoredValue(kListValue)));
    state.Add(tests::PageState(&page_));
    return state;
}

void Player::Performance::Tell(const std::string& what) {
    State now = Everything();
    *player_.trace_ << "* " << what << '\n' << boxes_ << now.ChangesSince(shown_);
    boxes_.clear();
    shown_ = std::move(now);
    if (IsEditing() && !editor_->FocusIsUsable()) *player_.trace_ << "the focus is lost\n";
}

}  // namespace sessions
