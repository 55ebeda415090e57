#include "platform/power.h"

#include "platform/log.h"

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

/// The reason of a call that got no answer, or the answer "no".
void NoteRefusal(const char* method, const QDBusError& error) {
    Log::Warning("the session manager refuses {}: {}", method, error.message().toStdString());
}

}  // namespace

struct Power::State {
    QObject context;
    bool canHibernate = false;

    void Send(const char* method, bool argument) {
        QDBusMessage call = LoginManager(method);
        call << argument;
        auto* const watcher =
            new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(call, longestReply), &context);
        const auto look = [method](QDBusPendingCallWatcher* done) {
            if (done->isError()) {
                NoteRefusal(method, done->error());
            }
            done->deleteLater();
        };
        if (watcher->isFinished()) {
            look(watcher);  // without a bus it never says so
        } else {
            QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context, look);
        }
    }

    void Ask() {
        auto* const watcher = new QDBusPendingCallWatcher(
            QDBusConnection::systemBus().asyncCall(LoginManager("CanHibernate"), longestReply), &context);
        QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context, [this](QDBusPendingCallWatcher* done) {
            const QDBusPendingReply<QString> reply = *done;
            canHibernate = reply.isValid() && reply.value() == "yes";
            if (!reply.isValid()) {
                NoteRefusal("CanHibernate", reply.error());
            }
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
    state->Send("Hibernate", false);
}

void Power::Reboot() {
    state->Send("Reboot", false);
}

}  // namespace zvr
