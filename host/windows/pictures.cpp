#include "host/windows/pictures.h"

#include <unistd.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <array>
#include <cstdlib>
#include <ostream>
#include <sstream>

#include "host/errors/failure.h"
#include "host/page/settings.h"
#include "host/page/terminal_user.h"
#include "host/spooler/printers.h"
#include "host/windows/property_sheet.h"
#include "platform/base/machine.h"
#include "platform/faults/failure_points.h"
#include "platform/gui/dialogs/message_box.h"
#include "platform/gui/help/help_viewer.h"
#include "platform/gui/windows/application.h"
#include "platform/gui/windows/picture.h"

namespace host {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOffice = "Office";  // model T
constexpr const char* kStudio = "Studio";  // model U, which checks the length of papers
constexpr int kNewWatermarks = 6;          // with the package's ten they fill the list

/// What happens in the editor after "Edit" was pressed.
struct EditorScene {
    const char* dialog;                ///< picture of the dialog after the script; null: none
    std::array<const char*, 2> boxes;  ///< pictures of the message boxes in order; null: none
    const char* script;
};

constexpr EditorScene kUserPosition = {nullptr,
                                       {"message-new-watermark.png", nullptr},
                                       "press New\n"
                                       "type Name Preliminary\n"
                                       "type String \"Preliminary, not for release\"\n"
                                       "choose Typeface = Arial\n"
                                       "type Size 36\n"
                                       "choose Color = Green\n"
                                       "choose Angle = User Define\n"
                                       "type User Angle 20\n"
                                       "press User Setting\n"
                                       "type Horizontal -60\n"
                                       "type Vertical 220\n"
                                       "press OK\n"
                                       "answer OK\n"};
constexpr EditorScene kScenes[] = {
    {"editor-user-position.png", {}, "choose Watermark List = Preliminary\n"},
    {"editor-none.png", {}, "choose Watermark List = <NONE>\n"},
    {"editor-diagonal.png", {}, "choose Watermark List = Confidential\n"},
    {nullptr,
     {"message-confirm-delete.png"},
     "choose Watermark List = Copy\npress Delete\nanswer Cancel\n"},
    {nullptr,
     {"message-confirm-overwrite.png"},
     "choose Watermark List = Copy\ntype String COPIED\npress OK\nanswer No\n"},
    {nullptr, {}, "press Help\n"},
    {nullptr, {"message-name-empty.png"}, "press New\ntype Name \"\"\npress OK\nanswer OK\n"},
    {nullptr, {"message-text-empty.png"}, "press New\ntype String \"\"\npress OK\nanswer OK\n"},
    {nullptr, {"message-none-not-added.png"}, "press New\ntype Name <NONE>\npress OK\nanswer OK\n"},
};
constexpr EditorScene kLandscape = {
    "editor-landscape.png", {}, "choose Watermark List = Confidential\n"};
constexpr EditorScene kStoreRefuses = {
    nullptr, {"message-list-not-stored.png"}, "press OK\nanswer OK\n"};
constexpr EditorScene kPrinterRefuses = {
    nullptr, {"message-printer-not-opened.png"}, "press OK\nanswer OK\n"};
constexpr EditorScene kOneMore = {nullptr, {}, "press New\npress OK\nanswer OK\n"};
constexpr EditorScene kListFull = {nullptr, {"message-list-full.png"}, "press New\nanswer OK\n"};

/// A user who takes pictures of what comes up, and otherwise follows a script.
class Photographer final : public platform::User {
public:
    Photographer(const fs::path& folder, std::ostream& out, const EditorScene& scene)
        : folder_(folder),
          out_(out),
          scene_(scene),
          script_(EditScript::Parse(scene.script)),
          terminal_(unheard_) {
        terminal_.Follow(&script_);
    }

    int AnswerMessageBox(const platform::MessageBoxRequest& request) override {
        const char* name = boxes_ < scene_.boxes.size() ? scene_.boxes[boxes_++] : nullptr;
        if (name != nullptr) Keep(name, platform::SaveMessageBoxPicture(request, folder_ / name));
        return terminal_.AnswerMessageBox(request);
    }
    void WorkInDialog(HWND dialog) override {
        terminal_.WorkInDialog(dialog);
        const char* name = scene_.dialog;
        if (name != nullptr) Keep(name, platform::SavePicture(dialog, folder_ / name));
    }
    void ReadHelp(const platform::HelpRequest& request) override {
        const bool popup = request.command == HELP_CONTEXTPOPUP;
        const char* name = popup ? "help-popup.png" : "help-window.png";
        Keep(name, platform::SaveHelpPicture(request, folder_ / name));
    }

    /// Throws unless the script was carried out and every picture could be written.
    void RequireDone() const {
        std::string problem = problem_.empty() ? script_.Error() : problem_;
        if (problem.empty() && boxes_ < scene_.boxes.size() && scene_.boxes[boxes_] != nullptr) {
            problem = std::string("no message for ") + scene_.boxes[boxes_];
        }
        if (!problem.empty()) throw Failure("the pictures stop: " + problem);
    }

private:
    // Called from inside the plug-in, which nothing may be thrown through.
    void Keep(const char* name, bool saved) {
        if (saved) {
            out_ << name << '\n';
        } else if (problem_.empty()) {
            problem_ = (folder_ / name).native() + " cannot be written";
        }
    }

    const fs::path& folder_;
    std::ostream& out_;
    const EditorScene& scene_;
    EditScript script_;
    std::ostringstream unheard_;
    TerminalUser terminal_;
    std::size_t boxes_ = 0;
    std::string problem_;
};

/// A machine that is gone when the pictures are taken.
class PassingMachine {
public:
    PassingMachine() {
        std::string name = (fs::temp_directory_path() / "pictures-XXXXXX").native();
        if (!::mkdtemp(name.data())) throw Failure("no folder for a machine can be made");
        folder_ = name;
        platform::UseMachine(folder_);
    }
    ~PassingMachine() {
        std::error_code error;
        fs::remove_all(folder_, error);
    }
    PassingMachine(const PassingMachine&) = delete;
    PassingMachine& operator=(const PassingMachine&) = delete;

private:
    fs::path folder_;
};

class Album {
public:
    Album(fs::path folder, const PackageSource& source, std::ostream& out)
        : folder_(std::move(folder)), source_(source), out_(out) {}

    void TakeAll() {
        Install(kOffice, "T");
        TakeDefaultsMessage();
        TakePages();
        TakeEditor();
        TakeScalingConflict();
        TakePaperMessages();
    }

private:
    void Install(const char* name, const char* model) {
        InstallPrinter({name, FindModel(model), ParsePort("USB001"), false}, source_);
    }

    /// Does something with a user who takes pictures.
    template <typename Action>
    void With(const EditorScene& scene, Action action) {
        Photographer user(folder_, out_, scene);
        const platform::UserScope scope(user);
        action();
        user.RequireDone();
    }

    void OpenEditor(PageSession& page, const EditorScene& scene) {
        With(scene, [&] { page.PressButton(FindItem(page, "Watermark")); });
    }

    void Save(const char* name, const QPixmap& picture) {
        const fs::path file = folder_ / name;
        if (!platform::SavePicture(picture, file)) {
            throw Failure(file.native() + " cannot be written");
        }
        out_ << name << '\n';
    }

    static void Apply(const char* printer, PageKind kind,
                      const std::vector<const char*>& settings) {
        PageSession page(printer, kind);
        for (const char* setting : settings) SetItem(page, setting);
        static_cast<void>(page.Apply());  // some are refused, with a message
    }

    void TakePages();
    void TakeConflicts();
    void TakeEditor();
    void TakeDefaultsMessage();
    void TakeScalingConflict();
    void TakePaperMessages();

    fs::path folder_;
    const PackageSource& source_;
    std::ostream& out_;
};

/// The sheet in the size that it would have on a screen with room for it.
QPixmap PictureOf(PropertySheet& sheet) {
    sheet.resize(sheet.sizeHint());
    return sheet.grab();
}

/// As a person does with the key at the closed list.
void PickFirstChoice(PropertySheet& sheet) {
    QKeyEvent home(QEvent::KeyPress, Qt::Key_Home, Qt::NoModifier);
    QApplication::sendEvent(sheet.findChild<QComboBox*>(), &home);
}

/// The window with the chosen item's list open.
QPixmap WithOpenList(PropertySheet& sheet) {
    sheet.resize(sheet.sizeHint());
    sheet.show();
    auto* list = sheet.findChild<QComboBox*>();
    list->showPopup();
    QWidget* popup = list->view()->window();
    const QPixmap page = sheet.grab();
    const QPixmap choices = popup->grab();
    const QPoint place = list->mapTo(&sheet, QPoint(0, list->height()));
    const QSize size = QRect(QPoint(), sheet.size()).united(QRect(place, popup->size())).size();
    QPixmap both(size * page.devicePixelRatio());
    both.setDevicePixelRatio(page.devicePixelRatio());
    both.fill(Qt::white);
    QPainter painter(&both);
    painter.drawPixmap(0, 0, page);
    painter.drawPixmap(place, choices);
    list->hidePopup();
    return both;
}

void Album::TakePages() {
    {
        PropertySheet sheet(kOffice, PageKind::Document);
        sheet.Load();
        sheet.ChooseItem(FindItem(sheet.Page(), "Watermark"));
        PickFirstChoice(sheet);  // "Enabled"
        Save("document-page.png", PictureOf(sheet));
        With({nullptr, {}, ""}, [&] { sheet.ShowItemHelp(); });
    }
    TakeConflicts();
    PropertySheet sheet(kOffice, PageKind::Printer);
    sheet.Load();
    Save("printer-page.png", PictureOf(sheet));
}

// A tray that is chosen and then gone: stop marks, a disabled duplex item, booklet hidden.
void Album::TakeConflicts() {
    Apply(kOffice, PageKind::Document, {"Paper Source=Tray 2"});
    Apply(kOffice, PageKind::Printer, {"Tray 2=Not Installed", "DuplexUnit=NotInstalled"});
    {
        PropertySheet sheet(kOffice, PageKind::Document);
        sheet.Load();
        sheet.ChooseItem(FindItem(sheet.Page(), "Paper Source"));
        Save("document-page-conflicts.png", WithOpenList(sheet));
    }
    Apply(kOffice, PageKind::Document, {"Paper Source=Auto"});
    Apply(kOffice, PageKind::Printer, {"Tray 2=Installed", "DuplexUnit=Installed"});
}

void Album::TakeEditor() {
    PageSession page(kOffice, PageKind::Document);
    SetItem(page, "Watermark=Enabled");
    OpenEditor(page, kUserPosition);
    for (const EditorScene& scene : kScenes) OpenEditor(page, scene);
    SetItem(page, "Orientation=Landscape");
    OpenEditor(page, kLandscape);
    {
        const platform::FailurePlan refused("SetPrinterDataW", 0, ERROR_ACCESS_DENIED);
        OpenEditor(page, kStoreRefuses);
    }
    {
        const platform::FailurePlan refused("OpenPrinterW", 0, ERROR_ACCESS_DENIED);
        OpenEditor(page, kPrinterRefuses);
    }
    for (int i = 0; i < kNewWatermarks; ++i) OpenEditor(page, kOneMore);
    OpenEditor(page, kListFull);
}

// A printer whose first list of watermarks cannot be stored.
void Album::TakeDefaultsMessage() {
    const EditorScene scene = {nullptr, {"message-defaults-not-loaded.png"}, ""};
    With(scene, [&] {
        const platform::FailurePlan refused("SetPrinterDataW", 0, ERROR_ACCESS_DENIED);
        const PageSession page(kOffice, PageKind::Document);
    });
}

void Album::TakeScalingConflict() {
    With({nullptr, {"message-scaling-conflict.png"}, ""}, [&] {
        Apply(kOffice, PageKind::Document, {"Scaling=150", "N-up=4"});
    });
}

void Album::TakePaperMessages() {
    Install(kStudio, "U");
    {
        const oemui::UniquePrinter printer = OpenNamedPrinter(kStudio, PRINTER_ALL_ACCESS);
        for (const char* form : {"Banner=210x900", "Card=120x150", "Square=210x210"}) {
            AddForm(printer.Get(), form);
        }
    }
    const struct {
        const char* picture;
        std::vector<const char*> settings;
    } rows[] = {
        {"message-paper-too-long.png", {"Paper Size=Banner", "Media Type=Glossy"}},
        {"message-paper-too-short.png", {"Paper Size=Card", "Media Type=Plain Paper"}},
        {"message-paper-too-short-for-duplex.png", {"Paper Size=Square", "Duplex=Long Edge"}},
    };
    for (const auto& row : rows) {
        With({nullptr, {row.picture}, ""},
             [&] { Apply(kStudio, PageKind::Document, row.settings); });
    }
}

}  // namespace

void SavePictures(const fs::path& folder, const PackageSource& source, std::ostream& out) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw Failure(folder.native() + " cannot be made: " + error.message());
    // The same pictures whatever screen there is, and no windows that come and go on it.
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    platform::EnsureApplication();
    const PassingMachine machine;
    Album(fs::absolute(folder), source, out).TakeAll();
}

}  // namespace host
