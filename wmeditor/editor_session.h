/// What the watermark editor works on from its opening to its end. No other file changes it.
#pragma once

#include <type_traits>

#include "common/current_printer.h"
#include "watermark/default_watermarks.h"
#include "watermark/watermark_angle.h"

namespace oemui {

/// There is one session in a process, that of the editor opened last; everything happens on the
/// thread that runs its dialog. The list being edited is `WorkingWatermarkList`.
class EditorSession {
public:
    /// The session of the editor that was opened last.
    [[nodiscard]] static EditorSession& Current();

    /// Takes a copy of the caller's list that is safe to index, with the defaults when it is empty
    /// and every entry in use, and takes up its selected entry. The list is the current printer's,
    /// whatever printer becomes that later. Everything but the preset chosen last is set anew.
    /// \param caller  written back by `Save` alone.
    void Open(HWND dialog, WatermarkList* caller);

    /// Whether this is the dialog's session: it is until its window goes away, or another editor
    /// opens.
    [[nodiscard]] bool BelongsTo(HWND dialog) const { return dialog_ == dialog; }
    /// Whether commands of this dialog are to be carried out: from its opening until it is saved or
    /// cancelled. Message boxes leave the editor usable, so it may have ended when one is answered.
    [[nodiscard]] bool IsOpenIn(HWND dialog) const { return isOpen_ && BelongsTo(dialog); }

    [[nodiscard]] HWND Dialog() const { return dialog_; }
    /// The list as it was when the dialog opened, after defaults were loaded.
    [[nodiscard]] const WatermarkList& Opening() const { return opening_; }
    /// The settings of the entry being edited or added, as the controls show them.
    [[nodiscard]] const WatermarkRecord& Edited() const { return edited_; }
    /// What the preview draws; kept in step with `Edited` field by field.
    [[nodiscard]] const WatermarkRecord& Preview() const { return preview_; }
    /// The page that the preview draws, as the caller's list has it.
    [[nodiscard]] PageOrientation Orientation() const { return orientation_; }
    /// The entry being edited, 0..15. It need not be listed.
    [[nodiscard]] INT32 CurrentIndex() const { return currentIndex_; }
    /// Whether an entry is being added: between New and the end of the dialog.
    [[nodiscard]] bool IsAdding() const { return isAdding_; }
    /// Degrees from which a user angle starts: those of the preset chosen last since the module was
    /// loaded.
    [[nodiscard]] INT32 UserAngleStart() const { return userAngleStart_; }

    /// Sets a field of the edited record, of the preview's, or of both; texts are cut to the field.
    void SetEdited(auto WatermarkRecord::*field, const auto& value) {
        Assign(edited_.*field, value);
    }
    void SetPreview(auto WatermarkRecord::*field, const auto& value) {
        Assign(preview_.*field, value);
    }
    void SetBoth(auto WatermarkRecord::*field, const auto& value) {
        SetEdited(field, value);
        SetPreview(field, value);
    }
    void SetColor(UINT32 colorIndex);
    void SetPreviewColor(UINT32 colorIndex);
    void SetPreviewRecord(const WatermarkRecord& record) { CopyWatermark(&preview_, record); }
    /// Remembers a preset of the angle list; "User Define" is none.
    void RememberPreset(AngleKind kind);

    /// Makes an entry of the list the edited one, with the page's angle if it is diagonal.
    /// \param index  a listed index; with an empty list 0, which then stands for a cleared record.
    void TakeUp(INT32 index);
    /// Selects an entry and takes it up, the first one when there is no such entry. Settings of the
    /// entry before that were not confirmed are dropped.
    void Select(INT32 index);
    /// Starts a new entry from the settings of entry 0.
    void StartAdding();
    /// Removes the current entry; the one before it becomes the current.
    void RemoveCurrent();
    /// Adds a record to the list, selects it and edits it.
    void Add(const WatermarkRecord& record);
    /// Replaces an entry of the list by the edited one, selects it and edits it.
    void Overwrite(INT32 index);
    /// Puts the edited settings into the current entry.
    void StoreEdited();
    /// Brings the edited size into its range. A size that nobody has changed stays as the list has
    /// it, whatever it is.
    void ClampEditedSize();
    /// Brings back the entry that was selected at the opening, as it was then.
    /// \return its index; the current one when a deletion has removed or moved that entry.
    [[nodiscard]] INT32 RestoreOpeningSelection();

    /// Shows a message box from the string table.
    /// \return the button's ID; 0 when the editor has been closed or taken to another entry
    ///         meanwhile, so that the answer is about nothing any more, and when the box cannot be
    ///         shown.
    [[nodiscard]] int Ask(UINT textId, UINT captionId, UINT type) const;

    /// Stores the list with this selection as the printer's and writes it back to the caller; ends
    /// the dialog with 1, also when the list cannot be stored, of which the user is told.
    void Save(INT32 selection);
    /// Brings back the opening list and ends the dialog with 0.
    void Cancel();
    /// The dialog's window goes away: nothing is stored any more. Nothing when the session is
    /// another dialog's.
    void Leave(HWND dialog);

private:
    template <typename Field>
    static void Assign(Field& field, const auto& value) {
        if constexpr (std::is_array_v<Field>) {
            CopyText(field, value);
        } else {
            field = static_cast<Field>(value);
        }
    }
    void Edit(INT32 index);
    void End(HWND dialog, INT_PTR result);

    HWND dialog_ = nullptr;
    bool isOpen_ = false;
    bool isAdding_ = false;
    INT32 currentIndex_ = 0;
    INT32 userAngleStart_ = 0;
    PageOrientation orientation_{};
    WatermarkList* caller_ = nullptr;
    PrinterName printer_;
    WatermarkRecord edited_{};
    WatermarkRecord preview_{};
    WatermarkList opening_{};
};

}  // namespace oemui
