#include "host/windows/pictures.h"

#include <memory>

#include "host/commands/commands.h"

namespace host {

void AddPicturesCommand(CLI::App& app, CommandContext& context) {
    CLI::App* command = app.add_subcommand("pictures", "write pictures of every window as PNG");
    auto folder = std::make_shared<std::string>();
    command->add_option("folder", *folder, "folder for the pictures")->required();
    command->callback([folder, &context] { SavePictures(*folder, context.source, context.out); });
}

}  // namespace host
