#include "platform/linux/eventloop.h"

#include "platform/linux/sessionmanager.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include <malloc.h>

namespace zvr {
namespace {

constexpr qint64 shortestPause = 5;  ///< milliseconds between two turns for long work

/// Environment variables set for a while: programs that are started later must not inherit them.
class EnvironmentForStart {
public:
    void Set(const char* name, const char* value) {
        const char* const before = std::getenv(name);
        saved.push_back({name, before == nullptr ? std::nullopt : std::optional<std::string>(before)});
        if (value == nullptr) {
            unsetenv(name);
        } else {
            setenv(name, value, 1);
        }
    }
    EnvironmentForStart() = default;
    EnvironmentForStart(const EnvironmentForStart&) = delete;
    EnvironmentForStart& operator=(const EnvironmentForStart&) = delete;
    ~EnvironmentForStart() {
        for (const auto& [name, value] : saved) {
            if (value) {
                setenv(name, value->c_str(), 1);
            } else {
                unsetenv(name);
            }
        }
    }

private:
    struct Variable {
        const char* name;
        std::optional<std::string> value;
    };
    std::vector<Variable> saved;
};

/// Every thread could have a heap of its own, and the media engine starts ten for each item. Each heap keeps what its
/// worst item needed: 10 MB more after a few hundred. What is as large as a picture is kept out of it: after the first
/// picture of a screen the library would put all others into the heap, and what is freed there stays.
void ShareOneHeap() {
#ifdef M_ARENA_MAX
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_MMAP_THRESHOLD, 256 * 1024);
#endif
}

/// The toolkit takes what was posted for delivered once it has begun with it. A task that waits would hold up the ones
/// behind it until something new is posted.
void RemindOfPosted() {
    QAbstractEventDispatcher::instance()->wakeUp();
}

}  // namespace

EventLoop::State::State() {
    ShareOneHeap();
    EnvironmentForStart environment;
    // Skins count in device pixels: whatever the desktop says of scaling does not concern them.
    environment.Set("QT_ENABLE_HIGHDPI_SCALING", "0");
    environment.Set("QT_SCALE_FACTOR", nullptr);
    environment.Set("QT_SCREEN_SCALE_FACTORS", nullptr);
    if (std::getenv("QT_QPA_PLATFORM") == nullptr) {
        environment.Set("QT_QPA_PLATFORM", "xcb");
    }
    if (!sessionmanager::Answers()) {
        environment.Set("SESSION_MANAGER", nullptr);
    }
    sessionmanager::Outlive();
    QApplication::setDesktopSettingsAware(false);
    // A video's native window shall not pull every control beside it out of the form's one painted surface.
    QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    application = std::make_unique<QApplication>(argumentCount, arguments.data());
    QApplication::setQuitOnLastWindowClosed(false);
    std::setlocale(LC_NUMERIC, "C");
    // The toolkit's own loops, of its boxes, know of no Turn.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &receiver,
                     [this] { Rest(); });
    sinceTurn.start();
}

void EventLoop::State::Rest() const {
    if (beforeRest) {
        beforeRest();
    }
}

void EventLoop::State::Turn() {
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    Rest();
}

EventLoop::EventLoop() : state(std::make_unique<State>()) {}
EventLoop::~EventLoop() = default;

int EventLoop::Run() {
    WaitUntil("run", [] { return false; });
    return state->exitCode;
}

void EventLoop::Quit(int exitCode) {
    if (state->quitting) {
        return;
    }
    state->quitting = true;
    state->exitCode = exitCode;
    QCoreApplication::exit(exitCode);  // ends the boxes of the toolkit, which wait by themselves
}

bool EventLoop::IsQuitting() const {
    return state->quitting;
}

void EventLoop::Post(std::function<void()> task) {
    QMetaObject::invokeMethod(&state->receiver, std::move(task), Qt::QueuedConnection);
}

void EventLoop::Wait(Milliseconds duration) {
    bool over = false;
    QTimer end;
    end.setSingleShot(true);
    end.setTimerType(Qt::PreciseTimer);
    QObject::connect(&end, &QTimer::timeout, [&over] { over = true; });
    end.start(std::max(duration, Milliseconds{0}));
    WaitUntil("wait", [&over] { return over; });
}

bool EventLoop::WaitUntil(std::string_view what, const std::function<bool()>& done) {
    (void)what;
    RemindOfPosted();
    while (!state->quitting && !done()) {
        state->Turn();
    }
    return !state->quitting;
}

void EventLoop::LetPendingEventsRun() {
    if (state->quitting || state->sinceTurn.elapsed() < shortestPause) {
        return;
    }
    RemindOfPosted();
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
    state->Rest();
    state->sinceTurn.restart();
}

Milliseconds EventLoop::Monotonic() const {
    return std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

LocalTime EventLoop::Now() const {
    const auto sinceEpoch =
        std::chrono::duration_cast<Milliseconds>(std::chrono::system_clock::now().time_since_epoch()).count();
    const std::time_t seconds = sinceEpoch / 1000;
    if (const std::time_t minute = seconds / 60; state->zoneMinute != minute) {
        state->zoneMinute = minute;
        tzset();  // a car crosses time zones while it runs
        std::tm local{};
        localtime_r(&seconds, &local);
        state->zoneOffset = local.tm_gmtoff;
    }
    return {sinceEpoch + state->zoneOffset * 1000};
}

struct Timer::State {
    QTimer timer;
    std::shared_ptr<std::function<void()>> onTimer;
};

Timer::Timer(EventLoop&, std::function<void()> onTimer) : state(std::make_unique<State>()) {
    state->timer.setTimerType(Qt::PreciseTimer);
    state->timer.setInterval(1);
    state->onTimer = std::make_shared<std::function<void()>>(std::move(onTimer));
    // The handler may end its own timer's life and still has to come to its end.
    QObject::connect(&state->timer, &QTimer::timeout, [handler = state->onTimer] {
        const auto keep = handler;
        (*keep)();
    });
}

Timer::~Timer() = default;

Milliseconds Timer::Interval() const {
    return state->timer.intervalAsDuration();
}

void Timer::SetInterval(Milliseconds value) {
    state->timer.setInterval(std::max(value, Milliseconds{1}));
}

void Timer::Start() {
    if (!state->timer.isActive()) {
        state->timer.start();
    }
}

void Timer::Stop() {
    state->timer.stop();
}

bool Timer::Enabled() const {
    return state->timer.isActive();
}

}  // namespace zvr
