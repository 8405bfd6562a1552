/// The surroundings of a test of the plug-in's own operations: the module recorded, a model chosen,
/// nothing of an earlier test left.
#pragma once

#include "tests/support/machine_fixture.h"
#include "tests/support/text.h"

namespace tests {

/// Chooses the model by the letter of the module's name.
void BecomeModel(char letter);

/// What the platform does when it loads the module of model T.
void LoadPlugin();

/// A test of the plug-in.
class PluginTest : public MachineTest {
protected:
    PluginTest();
};

}  // namespace tests
