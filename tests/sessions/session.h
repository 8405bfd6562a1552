/// A session at the document page and in the watermark editor, made of a seed: what the printer and
/// the document bring along, then what a person does.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "devmode/private_devmode.h"
#include "tests/support/text.h"

namespace sessions {

/// What the driver has on its page.
struct DriverItem {
    BYTE publicId;
    LONG selection;
};

/// What there is before the first action.
struct Opening {
    char model = 'T';
    std::string storedList;  ///< bytes; empty for none
    oemui::PrivateDevmode block = {};
    SHORT copies = 1;
    SHORT collate = 0;
    SHORT color = 0;
    std::vector<DriverItem> driverItems;
    std::vector<std::pair<std::string, std::string>> settings;  ///< the driver's features
};

enum class Verb {
    // at the page
    kReport,  ///< a reason of the page's callback
    kSelect,  ///< a plug-in's item: `number` is its place, `value` the selection
    kDriver,  ///< a driver's item: `number` is its public ID
    kCopies,  ///< `number` copies, collated or not (`value`)
    kColor,   ///< `number` is the public devmode's colour
    kEdit,    ///< the watermark's "Edit" button, after the watermark was switched on
    // in the editor; `number` is the control
    kClick,     ///< a button
    kReplace,   ///< marks an edit's text and types
    kChoose,    ///< opens a list and clicks the item at `value`
    kStep,      ///< clicks an up-down's arrow `value` times
    kType,      ///< types to whatever has the focus
    kPaste,     ///< pastes into the edit that has the focus
    kKey,       ///< `number` is the virtual key
    kDrop,      ///< opens the list with the focus, goes `number` items on, Enter or Escape
    kMnemonic,  ///< Alt and the letter `number`
    kClose,     ///< the close box
};

struct Action {
    Verb verb;
    int number = 0;
    int value = 0;
    tests::Text text = {};
    bool agrees = true;  ///< to the boxes that the action brings up

    [[nodiscard]] std::string Describe() const;
};

struct Session {
    Opening opening;
    std::vector<Action> actions;
};

/// The same session for the same seed, on every platform.
[[nodiscard]] Session MakeSession(std::uint64_t seed);

/// The lists' part: mostly well-formed, sometimes foreign, sometimes no list at all.
class Dice;
[[nodiscard]] std::string MakeStoredList(Dice* dice);
[[nodiscard]] oemui::WatermarkRecord MakeRecord(Dice* dice);

}  // namespace sessions
