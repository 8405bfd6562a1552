/// Plays sessions and writes what each action changed.
#pragma once

#include <memory>
#include <ostream>
#include <vector>

#include "tests/sessions/session.h"

namespace sessions {

/// A machine with a printer and a person, for any number of sessions one after the other. Each
/// begins as a fresh process with a fresh printer does.
class Player {
public:
    explicit Player(std::ostream* trace);
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    /// Writes all that can be seen before the first action, then a line for each action with the
    /// parts that show something else after it. Where an action left the editor open with the focus
    /// on no usable control, the trace says so.
    /// \param kept  the places of the actions that are played; the others are left out.
    void Play(const Session& session, const std::vector<std::size_t>& kept);

private:
    class Machine;
    class Performance;

    std::ostream* trace_;
    std::unique_ptr<Machine> machine_;
};

}  // namespace sessions
