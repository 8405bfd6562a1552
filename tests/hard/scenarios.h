/// What the failure sweep runs: operations of the plug-in and commands of the host.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/hard/plugin_machine.h"

namespace hard {

class Scenario {
public:
    virtual ~Scenario() = default;
    /// Puts the machine back as it was before the first run.
    virtual void Restore() = 0;
    /// \return whether it succeeded, as far as the scenario tells.
    virtual bool Run() = 0;
    /// The printer's list; empty when there is none.
    [[nodiscard]] virtual std::string StoredList() const = 0;
};

struct ScenarioRow {
    std::string name;
    std::function<std::unique_ptr<Scenario>()> make;
};

/// All of them; none is made yet.
[[nodiscard]] std::vector<ScenarioRow> Scenarios();

/// The commands among them.
[[nodiscard]] std::vector<ScenarioRow> CommandScenarios();

}  // namespace hard
