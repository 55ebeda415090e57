// zvr_osk: a keyboard on the screen that types into whatever window has the focus.

#include "zvr_osk/linux/presence.h"
#include "zvr_osk/linux/window.h"

#include <QGuiApplication>
#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace {

/// A descriptor that is readable once one of these has come: the end is the same as that by the hide key.
int EndSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&set, signal);
    }
    sigprocmask(SIG_BLOCK, &set, nullptr);
    return signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
}

}  // namespace

int main(int argc, char** argv) {
    const int endSignals = EndSignals();
    // Keys are typed as X11 knows them, and pixels are the screen's own.
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    setenv("QT_ENABLE_HIGHDPI_SCALING", "0", 1);
    unsetenv("QT_SCALE_FACTOR");
    zvr::osk::Presence presence;
    if (!presence.Claim()) {
        return EXIT_SUCCESS;
    }
    const QGuiApplication application(argc, argv);
    const QSocketNotifier ends(endSignals, QSocketNotifier::Read);
    QObject::connect(&ends, &QSocketNotifier::activated, &application, [] { QGuiApplication::quit(); });
    zvr::osk::Window window(presence);
    window.Appear();
    return QGuiApplication::exec();
}
