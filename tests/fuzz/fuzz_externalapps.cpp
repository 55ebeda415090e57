#include "target.h"

#include "apps/externalappsctl.h"
#include "support/bench.h"

#include <algorithm>

using namespace zvr;

// Anybody may write the list by hand. No two programs share a name, and what is saved is what was loaded.
void zvr::Try(std::string_view input) {
    static Bench bench;
    static Program program(bench.platform, {bench.folder.path, "zvr"});
    static ExternalAppsCtl list(program);
    bench.folder.Write("externalapps.dat", input);
    list.LoadAppList();
    const std::vector<ExternalApp> loaded = list.externalApps;
    for (const ExternalApp& app : loaded) {
        Require(std::count_if(loaded.begin(), loaded.end(), [&](const auto& one) { return one.name == app.name; }) ==
                1);
    }
    list.SaveAppList();
    list.LoadAppList();
    const auto same = [](const ExternalApp& a, const ExternalApp& b) {
        return a.name == b.name && a.command == b.command && a.docked == b.docked && a.maximized == b.maximized;
    };
    Require(std::equal(loaded.begin(), loaded.end(), list.externalApps.begin(), list.externalApps.end(), same));
}
