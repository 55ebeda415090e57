#include "platform/power.h"

#include "platform/linux/loginmanager.h"

#include <QTimer>

namespace zvr {
namespace {

constexpr int connectAfter = 1500;  ///< ms: nobody sleeps in the first seconds, and the start is worth more

}  // namespace

/// Shared with the thread that connects, which may outlive the rest.
struct Power::State {
    std::shared_ptr<LoginManager> manager = std::make_shared<LoginManager>();
};

Power::Power() : state(std::make_unique<State>()) {
    const auto tell = [this](std::function<void()> Power::*handler) {
        return [this, handler] {
            if (this->*handler) {
                (this->*handler)();
            }
        };
    };
    state->manager->onSleep = tell(&Power::onSleep);
    state->manager->onWake = tell(&Power::onWake);
    state->manager->onShutdown = tell(&Power::onShutdown);
    QTimer::singleShot(connectAfter, state->manager.get(), [manager = state->manager.get()] { manager->Connect(); });
}

Power::~Power() {
    state->manager->onSleep = state->manager->onWake = state->manager->onShutdown = [] {};
}

bool Power::CanHibernate() const {
    return state->manager->canHibernate;
}

void Power::Hibernate() {
    state->manager->Send("Hibernate", false);
}

void Power::Reboot() {
    state->manager->Send("Reboot", false);
}

}  // namespace zvr
