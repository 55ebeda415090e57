#include "platform/linux/loginmanager.h"

#include "platform/log.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>
#include <cstdlib>
#include <string>
#include <thread>

namespace zvr {
namespace {

constexpr int longestReply = 5000;  ///< ms
constexpr const char* service = "org.freedesktop.login1";
constexpr const char* path = "/org/freedesktop/login1";
constexpr const char* manager = "org.freedesktop.login1.Manager";

QDBusMessage Method(const char* name) {
    return QDBusMessage::createMethodCall(service, path, manager, name);
}

std::string SystemBusFile() {
    const char* const address = std::getenv("DBUS_SYSTEM_BUS_ADDRESS");
    const std::string named = address == nullptr ? "" : address;
    constexpr std::string_view head = "unix:path=";
    return named.starts_with(head) ? named.substr(head.size(), named.find_first_of(",;") - head.size())
                                   : "/run/dbus/system_bus_socket";
}

/// A bus that accepts and then says nothing would hold the tool kit up for 45 s, also the thread that other parts of it
/// wait for. So it has to say something first.
bool BusAnswers() {
    const std::string file = SystemBusFile();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (file.size() >= sizeof address.sun_path) {
        return false;
    }
    file.copy(address.sun_path, file.size());
    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const timeval patience{longestReply / 1000, 0};
    setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    constexpr std::string_view hello("\0AUTH\r\n", 7);
    char answer = 0;
    const bool answers = connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                         send(connection, hello.data(), hello.size(), MSG_NOSIGNAL) > 0 &&
                         recv(connection, &answer, 1, 0) == 1;
    close(connection);
    return answers;
}

}  // namespace

void LoginManager::Connect() {
    std::thread([own = shared_from_this()] { own->Listen(); }).detach();
}

/// On the thread: to subscribe asks the bus who owns the name, and waits for it.
void LoginManager::Listen() {
    if (!BusAnswers()) {
        Log::Warning("the system bus doesn't answer, so no sleep and no restart");
        return;
    }
    QDBusConnection connected = QDBusConnection::systemBus();
    if (connected.isConnected()) {
        connected.connect(service, path, manager, "PrepareForSleep", this, SLOT(PrepareForSleep(bool)));
        connected.connect(service, path, manager, "PrepareForShutdown", this, SLOT(PrepareForShutdown(bool)));
        connected.connect("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged",
                          {service}, {}, this, SLOT(NameOwnerChanged(QString, QString, QString)));
    }
    QMetaObject::invokeMethod(
        this, [this, connected] { Connected(connected); }, Qt::QueuedConnection);
}

void LoginManager::Connected(const QDBusConnection& connected) {
    if (!connected.isConnected()) {
        Log::Warning("there is no system bus, so no sleep and no restart: {}",
                     connected.lastError().message().toStdString());
        return;
    }
    bus = connected;
    CameUp();
}

void LoginManager::CameUp() {
    Call(Method("CanHibernate"),
         [this](const QDBusMessage& reply) { canHibernate = reply.arguments().value(0).toString() == "yes"; });
    Inhibit();
}

void LoginManager::Inhibit() {
    if (inhibitor.isValid()) {
        return;
    }
    QDBusMessage call = Method("Inhibit");
    call << "sleep:shutdown"
         << "zVR"
         << "Saving what plays and the settings"
         << "delay";
    Call(call, [this](const QDBusMessage& reply) {
        inhibitor = reply.arguments().value(0).value<QDBusUnixFileDescriptor>();
    });
}

void LoginManager::Send(const char* method, bool argument) {
    QDBusMessage call = Method(method);
    call << argument;
    if (!bus) {
        Log::Warning("{} is asked for without a system bus", method);
        return;
    }
    Call(call, [](const QDBusMessage&) {});
}

void LoginManager::Call(const QDBusMessage& call, const std::function<void(const QDBusMessage&)>& onReply) {
    auto* const watcher = new QDBusPendingCallWatcher(bus->asyncCall(call, longestReply), this);
    const auto look = [onReply, method = call.member().toStdString()](QDBusPendingCallWatcher* done) {
        if (done->isError()) {
            Log::Warning("the login service refuses {}: {}", method, done->error().message().toStdString());
        } else {
            onReply(done->reply());
        }
        done->deleteLater();
    };
    if (watcher->isFinished()) {
        look(watcher);  // a bus that went away: it never says so
    } else {
        connect(watcher, &QDBusPendingCallWatcher::finished, this, look);
    }
}

void LoginManager::PrepareForSleep(bool begins) {
    if (begins) {
        onSleep();
        inhibitor = {};
        return;
    }
    CameUp();  // swap for the next sleep may have come or gone
    onWake();
}

void LoginManager::PrepareForShutdown(bool begins) {
    if (begins) {
        onShutdown();
        inhibitor = {};
    } else {
        Inhibit();
    }
}

void LoginManager::NameOwnerChanged(const QString&, const QString&, const QString& now) {
    inhibitor = {};
    canHibernate = false;
    if (!now.isEmpty() && bus) {
        CameUp();
    }
}

}  // namespace zvr
