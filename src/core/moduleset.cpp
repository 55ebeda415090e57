#include "core/moduleset.h"

namespace zvr {
namespace {

void EraseAll(std::string& text, const std::string& piece) {
    for (auto at = text.find(piece); at != std::string::npos && !piece.empty(); at = text.find(piece, at)) {
        text.erase(at, piece.size());
    }
}

}  // namespace

bool ModuleSet::isModuleEnabled(std::string_view name) const {
    return usedModules.find(name) != std::string::npos;
}

bool ModuleSet::isModuleActive(std::string_view name) const {
    return currentlyUsedModules.find(name) != std::string::npos;
}

void ModuleSet::addModule(std::string_view name) {
    if (!isModuleEnabled(name)) {
        usedModules += "[" + std::string(name) + "]";
    }
}

void ModuleSet::removeModule(std::string_view name) {
    EraseAll(usedModules, "[" + std::string(name) + "]");
    EraseAll(usedModules, std::string(name));
}

void ModuleSet::FixForThisRun() {
    currentlyUsedModules = std::string(alwaysPresent) + usedModules;
    if (isModuleActive("phone")) {
        currentlyUsedModules += "[smsbox]";
    }
    if (isModuleActive("externalapps")) {
        currentlyUsedModules += "[quickbardocked][quickbarfloating]";
    }
}

}  // namespace zvr
