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
/// Controls are told by their labels, case ignored, or by their numbers. Blank lines and lines that
/// begin with '#' are skipped.
#pragma once

#include <windef.h>

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace host {

class EditScript {
public:
    /// \param text  UTF-8. Throws `UsageFailure` with the line's number for a line that is not
    ///        understood.
    [[nodiscard]] static EditScript Parse(const std::string& text);
    /// The same from a file.
    [[nodiscard]] static EditScript Read(const std::filesystem::path& file);

    /// Carries out the lines in a dialog that is on screen, as a user with mouse and keys. Stops
    /// when the lines are at their end or one of them cannot be done.
    void Work(HWND dialog);

    /// The answer that the line after the current one gives to a message box.
    /// \param type  MB_OK, MB_OKCANCEL or MB_YESNO. \return IDOK...; 0 when the script says nothing
    ///        or an answer that the box does not have.
    [[nodiscard]] int TakeAnswer(UINT type);

    /// What went wrong, with the line's number; empty when every line was carried out.
    [[nodiscard]] std::string Error() const;

private:
    struct Verb;
    struct Action {
        const Verb* verb;
        int line;            ///< from 1
        int number;          ///< control, key or button, by the verb
        std::string object;  ///< as written, for messages
        std::string value;   ///< a choice, a text or a number of steps
    };

    static std::span<const Verb> Verbs();
    static Action ParseLine(const std::string& line, int number);

    std::vector<Action> actions_;
    std::size_t next_ = 0;
    std::string error_;
};

}  // namespace host
