/// A property page in a window: the tree of its items, the control of the chosen one, a line that
/// says why something is as it is, Restore Defaults, OK, Cancel, Apply and Help. For the
/// user-interface thread only;
/// `platform::EnsureApplication` comes first.
#pragma once

#include <QDialog>
#include <QLabel>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/page/session.h"
#include "host/windows/item_panel.h"
#include "host/windows/item_tree_view.h"
#include "platform/gui/windows/owner_window.h"

namespace host {

class PropertySheet : public QDialog {
public:
    /// \param printerName  UTF-8.
    PropertySheet(std::string printerName, PageKind kind);
    ~PropertySheet() override;

    /// Shows the window, loads the page as soon as the window is painted, and waits for its end.
    /// Throws `Failure` when the page cannot be had. \return whether it ended with OK.
    [[nodiscard]] bool Run();

    /// Builds the page. It may ask the printer: the window shows that it waits. Throws `Failure`.
    void Load();

    /// The page; after `Load` only.
    [[nodiscard]] PageSession& Page() { return *session_; }
    /// Chooses an item in the tree as a click on its row does.
    void ChooseItem(const PageItem& item) { tree_->Choose(item); }
    /// Shows the page anew after something else changed it.
    void Refresh();
    /// Shows the help of the chosen item.
    void ShowItemHelp();

    void accept() override;  ///< OK: applies, and closes unless the page refuses

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Waiting;

    ItemActions Actions();
    void MakeButtons();
    void LoadOrEnd();
    void ShowChosen();
    /// \param action  answers whether there is something to apply now.
    void Act(bool mayAsk, const std::function<bool()>& action);
    [[nodiscard]] bool Apply();
    void RestoreDefaults();
    void KeepSelections();
    void Tell(const std::string& text);

    std::string printerName_;
    PageKind kind_;
    bool loadWhenPainted_ = false;
    std::exception_ptr loadFailure_;
    platform::OwnerWindow handle_;
    ItemTreeView* tree_;
    ItemPanel* panel_;
    QLabel* status_;
    QPushButton* defaults_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* apply_ = nullptr;
    std::vector<LONG> kept_;  ///< the selections at opening or the last apply
    std::unique_ptr<PageSession> session_;
};

}  // namespace host
