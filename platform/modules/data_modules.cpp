#include "platform/modules/data_modules.h"

#include <memory>
#include <utility>
#include <vector>

#include "platform/base/fail.h"
#include "platform/base/handles.h"
#include "platform/modules/module_file.h"

namespace platform {
namespace {

struct DataModule {
    explicit DataModule(std::vector<unsigned char> read)
        : resources(std::move(read)), image{resources.data(), resources.size(), nullptr, nullptr} {}

    std::vector<unsigned char> resources;
    ModuleImage image;
};

HandleTable<DataModule>& DataModules() {
    static HandleTable<DataModule> modules("module");
    return modules;
}

}  // namespace

HMODULE OpenDataModule(const std::filesystem::path& file) {
    auto module = std::make_shared<DataModule>(ReadModuleResources(file));
    if (module->resources.empty()) return Fail<HMODULE>(ERROR_BAD_EXE_FORMAT);
    return static_cast<HMODULE>(DataModules().Insert(std::move(module)));
}

bool CloseDataModule(HMODULE module) {
    return DataModules().Remove(module) != nullptr;
}

const ModuleImage* FindDataModule(HMODULE module) {
    const std::shared_ptr<DataModule> found = DataModules().Find(module);
    return found == nullptr ? nullptr : &found->image;
}

}  // namespace platform
