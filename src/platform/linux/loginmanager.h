#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace zvr {

/// The system's login service, which lets the machine sleep, on the system's bus. Nothing here waits: it is
/// connected to by a thread, and each call has its time limit.
class LoginManager : public QObject, public std::enable_shared_from_this<LoginManager> {
    Q_OBJECT

public:
    LoginManager() = default;

    void Connect();  ///< the rest follows from the event loop
    void Send(const char* method, bool argument);

    bool canHibernate = false;
    std::function<void()> onSleep;
    std::function<void()> onWake;
    std::function<void()> onShutdown;

public slots:
    void PrepareForSleep(bool begins);
    void PrepareForShutdown(bool begins);
    void NameOwnerChanged(const QString& name, const QString& before, const QString& now);

private:
    void Listen();
    void Connected(const QDBusConnection& connected);
    void CameUp();
    void Call(const QDBusMessage& call, const std::function<void(const QDBusMessage&)>& onReply);
    void Inhibit();

    std::optional<QDBusConnection> bus;  ///< once it is connected
    /// As long as it is open the machine waits with sleeping and going down, a few seconds at most.
    QDBusUnixFileDescriptor inhibitor;
};

}  // namespace zvr
