#include "host/windows/property_sheet.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "host/errors/failure.h"
#include "host/windows/item_reason.h"
#include "platform/text/text_encoding.h"
#include "platform/user/user.h"

namespace host {
namespace {

// So that either page fits without scrolling.
constexpr int kDocumentRows = 19;
constexpr int kPrinterRows = 9;
constexpr int kStatusLines = 2;

/// Its text wraps in the room that the window has, and never makes it larger.
QLabel* MakeStatus(QWidget* parent) {
    auto* status = new QLabel(parent);
    status->setTextFormat(Qt::PlainText);
    status->setWordWrap(true);
    status->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    status->setFixedHeight(status->fontMetrics().lineSpacing() * kStatusLines);
    return status;
}

QString TitleOf(const std::string& printerName, PageKind kind) {
    return QString::fromStdString(printerName) +
           (kind == PageKind::Document ? " Document Properties" : " Properties");
}

}  // namespace

/// The window shows that it waits for as long as this lives: the words are on the screen before
/// anything blocks.
class PropertySheet::Waiting {
public:
    explicit Waiting(PropertySheet& sheet) : sheet_(sheet) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        sheet_.status_->setText("Asking the printer...");
        sheet_.status_->repaint();
    }
    ~Waiting() {
        sheet_.status_->clear();
        QApplication::restoreOverrideCursor();
    }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    PropertySheet& sheet_;
};

PropertySheet::PropertySheet(std::string printerName, PageKind kind)
    : printerName_(std::move(printerName)),
      kind_(kind),
      handle_(*this),
      tree_(new ItemTreeView(this, kind == PageKind::Document ? kDocumentRows : kPrinterRows)),
      panel_(new ItemPanel(this, Actions())),
      status_(MakeStatus(this)) {
    setWindowTitle(TitleOf(printerName_, kind_));
    auto* settings = new QLabel("Se&ttings:", this);
    settings->setBuddy(tree_);
    auto* column = new QVBoxLayout(this);
    column->addWidget(settings);
    column->addWidget(tree_, 1);
    column->addWidget(panel_);
    MakeButtons();
    connect(tree_, &QTreeWidget::currentItemChanged, this, [this] {
        const QString refusal = panel_->Settle();
        ShowChosen();
        if (!refusal.isEmpty()) status_->setText(refusal);
    });
    auto* help = new QShortcut(Qt::Key_F1, this);
    connect(help, &QShortcut::activated, this, [this] { ShowItemHelp(); });
    tree_->setFocus();
}

PropertySheet::~PropertySheet() = default;

void PropertySheet::MakeButtons() {
    ok_ = new QPushButton("OK", this);
    ok_->setDefault(true);
    auto* cancel = new QPushButton("Cancel", this);
    apply_ = new QPushButton("&Apply", this);
    auto* help = new QPushButton("&Help", this);
    defaults_ = new QPushButton("Restore &Defaults", this);  // the last that Tab comes to
    for (QPushButton* button : {defaults_, ok_}) button->setEnabled(false);
    auto* above = new QHBoxLayout;
    above->addWidget(status_, 1);
    above->addWidget(defaults_);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (QPushButton* button : {ok_, cancel, apply_, help}) row->addWidget(button);
    connect(defaults_, &QPushButton::clicked, this, [this] { RestoreDefaults(); });
    connect(ok_, &QPushButton::clicked, this, [this] { accept(); });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(apply_, &QPushButton::clicked, this, [this] { static_cast<void>(Apply()); });
    connect(help, &QPushButton::clicked, this, [this] { ShowItemHelp(); });
    auto* column = static_cast<QVBoxLayout*>(layout());
    column->addLayout(above);
    column->addLayout(row);
    apply_->setEnabled(false);
}

ItemActions PropertySheet::Actions() {
    // Only the printer page asks the printer again when something on it changes.
    const bool mayAsk = kind_ == PageKind::Printer;
    return {[this, mayAsk](PageItem& item, std::size_t choice) {
                Act(mayAsk, [&] {
                    session_->Choose(item, choice);
                    return true;
                });
            },
            [this, mayAsk](PageItem& item, LONG number) {
                Act(mayAsk, [&] {
                    session_->SetNumber(item, number);
                    return true;
                });
            },
            [this](PageItem& item) {
                const std::string idle = WhyButtonIdle(item);
                Act(false, [&] { return session_->PressButton(item) != CPSUICB_ACTION_NONE; });
                if (!idle.empty()) status_->setText(QString::fromStdString(idle));
            },
            [this] { status_->setText(panel_->Settle()); }};
}

bool PropertySheet::Run() {
    loadWhenPainted_ = true;
    status_->setText("Asking the printer...");
    const int result = exec();
    if (loadFailure_) std::rethrow_exception(loadFailure_);
    return result == Accepted;
}

void PropertySheet::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    if (!loadWhenPainted_) return;
    loadWhenPainted_ = false;
    // Behind this round of painting, controls included.
    QTimer::singleShot(0, this, [this] { LoadOrEnd(); });
}

// Nothing may be thrown through the event loop.
void PropertySheet::LoadOrEnd() {
    try {
        Load();
    } catch (...) {
        loadFailure_ = std::current_exception();
        reject();
    }
}

void PropertySheet::Load() {
    {
        const Waiting waiting(*this);
        session_ = std::make_unique<PageSession>(printerName_, kind_, handle_.Handle());
    }
    KeepSelections();
    tree_->ShowItems(session_->Items());
    for (QPushButton* button : {defaults_, ok_}) button->setEnabled(true);
    Refresh();
}

void PropertySheet::Refresh() {
    tree_->Refresh(kept_);
    ShowChosen();
}

void PropertySheet::ShowChosen() {
    PageItem* item = tree_->Chosen();
    panel_->ShowItem(item);
    status_->setText(item != nullptr ? QString::fromStdString(WhyUnavailable(*item)) : "");
}

void PropertySheet::Act(bool mayAsk, const std::function<bool()>& action) {
    try {
        const auto waiting = mayAsk ? std::make_unique<Waiting>(*this) : nullptr;
        if (action()) apply_->setEnabled(true);
    } catch (const Failure& failure) {
        Tell(failure.what());
    }
    Refresh();
}

bool PropertySheet::Apply() {
    const QString refusal = panel_->Settle();
    if (!refusal.isEmpty()) {
        panel_->ReturnToNumber();
        status_->setText(refusal);
        return false;
    }
    bool applied = false;
    try {
        applied = session_->Apply();
    } catch (const Failure& failure) {
        Tell(failure.what());
    }
    if (applied) {
        KeepSelections();
        apply_->setEnabled(false);
    }
    Refresh();
    return applied;
}

// The rows stay bold where the settings that are kept are others.
void PropertySheet::RestoreDefaults() {
    Act(true, [&] {
        const PageItem* chosen = tree_->Chosen();
        const auto place = chosen != nullptr ? chosen - session_->Items().data() : 0;
        std::unique_ptr<PageSession> before = std::exchange(session_, session_->WithDefaults());
        std::vector<PageItem>& items = session_->Items();
        kept_.resize(items.size());
        tree_->ShowItems(items);
        if (std::cmp_less(place, items.size()))
            tree_->Choose(items[static_cast<std::size_t>(place)]);
        return true;
    });
}

void PropertySheet::accept() {
    if (session_ && Apply()) QDialog::accept();
}

void PropertySheet::KeepSelections() {
    kept_.clear();
    for (const PageItem& item : session_->Items()) kept_.push_back(item.Record().Sel);
}

void PropertySheet::Tell(const std::string& text) {
    platform::CurrentUser().AnswerMessageBox(
        {handle_.Handle(), platform::Utf16(text), windowTitle().toStdU16String(), MB_OK});
}

void PropertySheet::ShowItemHelp() {
    const PageItem* item = tree_->Chosen();
    const OIEXT* help = item != nullptr ? item->Help() : nullptr;
    if (help == nullptr || help->pHelpFile == nullptr) {
        status_->setText(item != nullptr ? "There is no help for this setting." : "");
        return;
    }
    ::WinHelpW(handle_.Handle(), help->pHelpFile, HELP_CONTEXTPOPUP, item->Record().HelpIndex);
}

}  // namespace host
