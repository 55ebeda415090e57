#include "apps/externalappsctl.h"
#include "support/bench.h"

#include <algorithm>
#include <cstdlib>

using namespace zvr;

// Anybody may write the list by hand. No two programs share a name, and what is saved is what was loaded.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static Bench bench;
    static Program program(bench.platform, {bench.folder.path, "zvr"});
    static ExternalAppsCtl list(program);
    bench.folder.Write("externalapps.dat", std::string_view(reinterpret_cast<const char*>(data), size));
    list.LoadAppList();
    const std::vector<ExternalApp> loaded = list.externalApps;
    for (const ExternalApp& app : loaded) {
        if (std::count_if(loaded.begin(), loaded.end(), [&](const auto& other) { return other.name == app.name; }) !=
            1) {
            std::abort();
        }
    }
    list.SaveAppList();
    list.LoadAppList();
    const auto same = [](const ExternalApp& a, const ExternalApp& b) {
        return a.name == b.name && a.command == b.command && a.docked == b.docked && a.maximized == b.maximized;
    };
    if (!std::equal(loaded.begin(), loaded.end(), list.externalApps.begin(), list.externalApps.end(), same)) {
        std::abort();
    }
    return 0;
}
