#include "platform/power.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QObject>
#include <QTimer>

namespace zvr {
namespace {

constexpr int askAfter = 3000;      ///< ms: nobody asks in the first seconds, and the start is worth more
constexpr int longestReply = 5000;  ///< ms

QDBusMessage LoginManager(const char* method) {
    return QDBusMessage::createMethodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                          "org.freedesktop.login1.Manager", method);
}

void Send(const char* method, bool argument) {
    QDBusMessage call = LoginManager(method);
    call << argument;
    QDBusConnection::systemBus().asyncCall(call, longestReply);
}

}  // namespace

struct Power::State {
    QObject context;
    bool canHibernate = false;

    void Ask() {
        auto* const watcher = new QDBusPendingCallWatcher(
            QDBusConnection::systemBus().asyncCall(LoginManager("CanHibernate"), longestReply), &context);
        QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context, [this](QDBusPendingCallWatcher* done) {
            const QDBusPendingReply<QString> reply = *done;
            canHibernate = reply.isValid() && reply.value() == "yes";
            done->deleteLater();
        });
    }
};

Power::Power() : state(std::make_unique<State>()) {
    QTimer::singleShot(askAfter, &state->context, [this] { state->Ask(); });
}

Power::~Power() = default;

bool Power::CanHibernate() const {
    return state->canHibernate;
}

void Power::Hibernate() {
    Send("Hibernate", false);
}

void Power::Reboot() {
    Send("Reboot", false);
}

}  // namespace zvr
