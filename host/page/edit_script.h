/// A script that works in the watermark editor, one action a line:
///
///     choose Watermark List = Copy     picks from a list
///     type Name "Zebra"                replaces an edit's text; the quotes may be left out
///     press New                        clicks a button, check box or radio button
///     step Size -2                     clicks an up-down's arrow up (or down) so many times
///     key Enter                        presses a key: Enter, Escape, Tab, F1, Up, Down
///     answer Yes                       answers the message box that the line before brings up
///     close                            clicks the close box
///
/// Controls are told by their labels, items by their texts, case ignored, or controls by their
/// numbers. Blank lines and lines that begin with '#' are skipped. A message box that the script
/// does not foresee, or that tells an error, ends it and cancels the editor.
#pragma once

#include <windef.h>

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "platform/user/user.h"

namespace host {

class EditScript {
public:
    /// \param text  UTF-8, with or without a byte order mark. Throws `UsageFailure` with the line's
    ///        number for a line that is not understood, or when the text is in another encoding.
    [[nodiscard]] static EditScript Parse(std::string_view text);
    /// The same from a file.
    [[nodiscard]] static EditScript Read(const std::filesystem::path& file);
    /// One that selects a watermark by its name and closes with OK. It answers no question: an
    /// entry that OK would change stays as it is, and the script fails.
    [[nodiscard]] static EditScript Selecting(const std::string& watermark);

    /// The caption of message boxes that tell an error.
    void EndAt(const std::u16string& errorCaption) { errorCaption_ = errorCaption; }

    /// Carries out the lines in a dialog that is on screen, as a user with mouse and keys. Stops
    /// when the lines are at their end or one of them cannot be done.
    void Work(HWND dialog);

    /// Answers a message box with what the line after the current one says. A box that comes up
    /// before the dialog gets the harmless answer.
    /// \return the button's ID.
    [[nodiscard]] int Answer(const platform::MessageBoxRequest& box);

    /// What went wrong, with the line's number; empty when every line was carried out.
    [[nodiscard]] const std::string& Error() const { return error_; }

    /// Whether the last dialog was still open behind the last line.
    [[nodiscard]] bool LeavesOpen() const { return leavesOpen_; }

private:
    struct Verb;
    struct Action {
        const Verb* verb;
        int line;            ///< from 1; 0 of a script without lines
        int number;          ///< control, key or button, by the verb
        std::string object;  ///< as written, for messages
        std::string value;   ///< a choice, a text or a number of steps
    };

    static std::span<const Verb> Verbs();
    static const Verb& VerbNamed(std::string_view name);
    static Action ParseLine(const std::string& line, int number);

    [[nodiscard]] bool AtAnswer() const;
    [[nodiscard]] std::string ObjectionTo(const platform::MessageBoxRequest& box) const;
    void Stop(const std::string& why);

    std::vector<Action> actions_;
    std::size_t next_ = 0;
    bool leavesOpen_ = false;
    HWND dialog_ = nullptr;
    std::u16string errorCaption_;
    std::string error_;
};

}  // namespace host
