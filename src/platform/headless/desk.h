#pragma once

#include "platform/autostart.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/instance.h"
#include "platform/localserver.h"
#include "platform/power.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace zvr {

struct Dialogs::State {
    std::vector<std::string> critical;  ///< texts shown so far
    std::vector<std::string> plain;
    std::vector<std::string> asked;
    bool closedItself = false;                       ///< the last plain one: it had become needless
    bool yes = false;                                ///< what each question is answered with
    std::function<void(const std::string&)> onShow;  ///< runs while a box is open
};

struct Instance::State {
    bool otherRuns = false;
};

struct Desktop::State {
    bool taskbarShown = true;
};

struct Power::State {
    bool canHibernate = false;
    int hibernations = 0;
    int reboots = 0;
};

struct Autostart::State {
    std::map<std::string, std::string> entries;  ///< program files by name
};

struct LocalServer::State {
    std::string path;
    bool listening = false;
    std::map<Client, std::vector<std::string>> answers;  ///< what the program sent to each client
    std::set<Client> gone;
};

}  // namespace zvr
