// Each call of each scenario fails once, and from it on for ever. Whatever fails, the scenario
// comes to its end, leaves nothing open and the stored list as it was or as a whole new one.

#include <algorithm>
#include <stdexcept>

#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "tests/hard/scenarios.h"
#include "tests/hard/sections.h"

namespace hard {
namespace {

using platform::Failing;
using platform::FailurePlan;

struct Way {
    DWORD error;
    Failing failing;
    const char* name;
};
constexpr Way kWays[] = {
    {ERROR_NOT_ENOUGH_MEMORY, Failing::kOnce, "once 8"},
    {ERROR_INSUFFICIENT_BUFFER, Failing::kOnce, "once 122"},
    {ERROR_MORE_DATA, Failing::kOnce, "once 234"},
    {ERROR_NOT_ENOUGH_MEMORY, Failing::kForEver, "for-ever 8"},
    {ERROR_INSUFFICIENT_BUFFER, Failing::kForEver, "for-ever 122"},
    {ERROR_MORE_DATA, Failing::kForEver, "for-ever 234"},
};

class Sweep : public CaseSet {
public:
    explicit Sweep(std::unique_ptr<Scenario> scenario) : scenario_(std::move(scenario)) {
        // The first run fills what is kept for the life of a process.
        for (int times = 0; times < 2; ++times) {
            scenario_->Restore();
            before_ = NamesIn(scenario_->StoredList());
            const FailurePlan counting;
            if (!scenario_->Run()) throw std::runtime_error("fails without a failure");
            points_ = counting.Passed();
        }
        after_ = NamesIn(scenario_->StoredList());
    }

    std::size_t Count() const override { return points_.size() * std::size(kWays); }
    std::string NameOf(std::size_t place) const override {
        return std::to_string(CallAt(place)) + ' ' + WayAt(place).name;
    }
    std::string Run(std::size_t place) override {
        scenario_->Restore();
        const auto open = platform::LiveObjects();
        {
            const FailurePlan plan(CallAt(place), WayAt(place).error, WayAt(place).failing);
            scenario_->Run();
        }
        const std::string& point = points_[place / std::size(kWays)];
        const std::string wrong = ChangeSince(open) + WrongWithStored(point);
        return wrong.empty() ? wrong : point + ": " + wrong;
    }

private:
    static int CallAt(std::size_t place) { return static_cast<int>(place / std::size(kWays)) + 1; }
    static const Way& WayAt(std::size_t place) { return kWays[place % std::size(kWays)]; }

    std::string WrongWithStored(std::string_view point) const {
        const std::string stored = scenario_->StoredList();
        const std::string names = NamesIn(stored);
        // A list that cannot be read counts as missing: the defaults, none here, take its place.
        if (point == "GetPrinterDataW" && names.empty()) return {};
        if (names == before_ || names == after_) return WrongWith(stored);
        return "neither the old list nor the new one: " + names;
    }

    std::unique_ptr<Scenario> scenario_;
    std::vector<std::string> points_;
    std::string before_;
    std::string after_;
};

}  // namespace

Tally SweepFailures(const Choice& choice) {
    Tally all;
    for (const ScenarioRow& row : Scenarios()) {
        if (!choice.only.empty() && !choice.only.starts_with(row.name + " ")) continue;
        const Tally tally = RunCases(
            row.name, [&] { return std::make_unique<Sweep>(row.make()); }, choice);
        all.tried += tally.tried;
        all.violations += tally.violations;
    }
    return all;
}

}  // namespace hard
