#include "platform/headless/desk.h"

namespace zvr {

Dialogs::Dialogs() : state(std::make_unique<State>()) {}
Dialogs::~Dialogs() = default;

void Dialogs::ShowCritical(const std::string& text) {
    state->critical.push_back(text);
    if (state->onShow) {
        state->onShow(text);
    }
}

void Dialogs::ShowPlain(const std::string& text, const std::function<bool()>& needless) {
    state->plain.push_back(text);
    if (state->onShow) {
        state->onShow(text);
    }
    state->closedItself = needless && needless();
}

bool Dialogs::AskPlain(const std::string& text) {
    state->asked.push_back(text);
    if (state->onShow) {
        state->onShow(text);
    }
    return state->yes;
}

Instance::Instance() : state(std::make_unique<State>()) {}
Instance::~Instance() = default;

bool Instance::Claim() {
    return !state->otherRuns;
}

Desktop::Desktop() : state(std::make_unique<State>()) {}
Desktop::~Desktop() = default;

void Desktop::HideTaskbar() {
    state->taskbarShown = false;
}

void Desktop::ShowTaskbar() {
    state->taskbarShown = true;
}

Power::Power() : state(std::make_unique<State>()) {}
Power::~Power() = default;

bool Power::CanHibernate() const {
    return state->canHibernate;
}

void Power::Hibernate() {
    ++state->hibernations;
}

void Power::Reboot() {
    ++state->reboots;
}

Autostart::Autostart() : state(std::make_unique<State>()) {}
Autostart::~Autostart() = default;

bool Autostart::IsSet(const std::string& name) const {
    return state->entries.contains(name);
}

void Autostart::Set(const std::string& name, const std::string& programFile) {
    if (programFile.find('%') == std::string::npos) {
        state->entries[name] = programFile;
    }
}

void Autostart::Clear(const std::string& name) {
    state->entries.erase(name);
}

LocalServer::LocalServer(EventLoop&) : state(std::make_unique<State>()) {}
LocalServer::~LocalServer() = default;

bool LocalServer::Listen(const std::string& path) {
    state->path = path;
    state->listening = true;
    return true;
}

void LocalServer::Close() {
    state->listening = false;
}

void LocalServer::Send(Client client, std::string_view line) {
    state->answers[client].emplace_back(line);
}

bool LocalServer::Reaches(Client client) const {
    return !state->gone.contains(client);
}

void LocalServer::Drop(Client client) {
    if (onGone) {
        onGone(client);
    }
}

std::string ControlSocketPath() {
    return "/nowhere/zvr.sock";
}

}  // namespace zvr
