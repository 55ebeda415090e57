#include "zvr_osk/linux/window.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTouchEvent>

#include <xkbcommon/xkbcommon-keysyms.h>

#include <cmath>
#include <cstdlib>
#include <string_view>

namespace zvr::osk {
namespace {

using namespace std::chrono_literals;
constexpr auto firstAnswer = 60ms;
/// From one box to another there may be a moment without any.
constexpr auto boxStaysAway = 350ms;
/// The driver may ask for the keyboard just when it goes, and zvr doesn't start one while one is there.
constexpr auto beforeEnd = 700ms;
constexpr int mouse = -1;  ///< a finger of its own

std::string_view UserLanguage() {
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (const char* const value = std::getenv(name); value != nullptr && *value != '\0') {
            return value;
        }
    }
    return {};
}

Point ToPoint(QPointF p) {
    return {static_cast<int>(std::floor(p.x())), static_cast<int>(std::floor(p.y()))};
}

}  // namespace

Window::Window(Presence& presence) : presence(presence) {
    // A window of the kind that no window manager touches: it takes no focus, and lies above full-screen programs too.
    setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus |
             Qt::X11BypassWindowManagerHint);
    setTitle("zVR keyboard");
    clock.start();
    repeat.setSingleShot(true);
    repeat.setTimerType(Qt::PreciseTimer);
    QObject::connect(&repeat, &QTimer::timeout, this, [this] {
        keyboard->TimePassed(Now());
        SetTimer();
    });
    boxGone.setSingleShot(true);
    boxGone.setInterval(boxStaysAway);
    QObject::connect(&boxGone, &QTimer::timeout, this, [this] {
        hide();
        lingers.start();
    });
    lingers.setSingleShot(true);
    lingers.setInterval(beforeEnd);
    QObject::connect(&lingers, &QTimer::timeout, this, [this] { Hide(); });
}

void Window::Appear() {
    const auto first = zvr.Open(firstAnswer);
    keyboard.emplace(Wiring(), LayoutOfLanguage(first ? first->language : std::string(UserLanguage())));
    FollowScreen();
    Show(first.value_or(look));
    QObject::connect(screen(), &QScreen::availableGeometryChanged, this, [this] { FollowScreen(); });
    show();
    presence.Watch(winId());
    presenceNews = std::make_unique<QSocketNotifier>(presence.Descriptor(), QSocketNotifier::Read);
    QObject::connect(presenceNews.get(), &QSocketNotifier::activated, this, [this] { this->presence.Read(); });
    if (zvr.Descriptor() >= 0) {
        zvrNews = std::make_unique<QSocketNotifier>(zvr.Descriptor(), QSocketNotifier::Read);
        QObject::connect(zvrNews.get(), &QSocketNotifier::activated, this, [this] { ReadZvr(); });
    }
    typist.ReleaseAll();
    // Once it shows: the keymap is large, and the first tap comes later.
    QTimer::singleShot(0, this, [this] { typist.Prepare(SignsOf(keyboard->PresentLayout())); });
}

Keyboard::Events Window::Wiring() {
    Keyboard::Events events;
    events.type = [this](char32_t character) { typist.Type(character); };
    events.strike = [this](Act act) { Strike(act); };
    events.hide = [this] { Hide(); };
    events.otherEdge = [this] {
        edge = Other(edge);
        Place();
    };
    events.drag = [this](int way) {
        const Rect area = FreeArea();
        setPosition(area.x, std::clamp(topBeforeDrag + way, area.y, area.y + area.height - height()));
    };
    events.drop = [this] {
        edge = NearestEdge(y(), FreeArea(), height());
        Place();
    };
    events.otherLayout = [this] { typist.Prepare(SignsOf(keyboard->PresentLayout())); };
    events.changed = [this] { update(); };
    return events;
}

/// Beside panels and bars that keep a strip of the screen: the way back to zvr is one of them.
Rect Window::FreeArea() const {
    const QRect area = screen()->availableGeometry();
    return {area.x(), area.y(), area.width(), area.height()};
}

void Window::FollowScreen() {
    const Rect area = FreeArea();
    const Measures measures = MeasuresFor(screen()->geometry().height());
    resize(area.width, measures.height);
    keyboard->Fit(measures, area.width);
    Place();
    update();
}

void Window::Place() {
    const Rect place = KeyboardPlace(FreeArea(), height(), edge);
    setPosition(place.x, place.y);
    topBeforeDrag = place.y;
    update();
}

void Window::Show(const ZvrLook& newLook) {
    const bool otherLanguage = newLook.language != look.language && !look.language.empty();
    const bool otherBox = newLook.box && newLook.box != look.box;
    // Where nothing is typed it would only lie over what is asked.
    if (newLook.box) {
        boxGone.stop();
        if (lingers.isActive()) {
            lingers.stop();
            show();
        }
    } else if (look.box || newLook.dialog || (newLook.shown && !look.shown)) {
        boxGone.start();
    }
    look = newLook;
    if (otherLanguage) {
        keyboard->UseLayout(LayoutOfLanguage(look.language));
        typist.Prepare(SignsOf(keyboard->PresentLayout()));
    }
    painting.Wear(look);
    if (otherBox) {
        keyboard->UsePage(look.digits ? Page::signs : Page::letters);
        edge = EdgeClearOf(*look.box, FreeArea(), height(), edge);
        Place();
    }
    update();
}

void Window::ReadZvr() {
    const auto news = zvr.Read();
    if (news) {
        Show(*news);
    }
    if (zvr.Descriptor() < 0) {
        // The program that it belongs to has ended.
        zvrNews.reset();
        Hide();
    }
}

void Window::Strike(Act act) {
    switch (act) {
        case Act::backspace:
            return typist.Strike(XKB_KEY_BackSpace);
        case Act::enter:
            return typist.Strike(XKB_KEY_Return);
        case Act::left:
            return typist.Strike(XKB_KEY_Left);
        case Act::right:
            return typist.Strike(XKB_KEY_Right);
        default:
            return;
    }
}

void Window::Hide() {
    hide();
    QGuiApplication::quit();
}

void Window::SetTimer() {
    if (const auto next = keyboard->NextTime()) {
        repeat.start(std::max(*next - Now(), 0ms));
    } else {
        repeat.stop();
    }
}

void Window::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painting.Paint(painter, *keyboard, event->rect(), edge);
    painter.fillRect(event->rect(), QColor::fromRgbF(0, 0, 0, static_cast<float>(look.dim)));
}

void Window::mousePressEvent(QMouseEvent* event) {
    keyboard->Down(mouse, ToPoint(event->position()), ToPoint(event->globalPosition()).y, Now());
    SetTimer();
}

void Window::mouseMoveEvent(QMouseEvent* event) {
    keyboard->Move(mouse, ToPoint(event->position()), ToPoint(event->globalPosition()).y);
    SetTimer();
}

void Window::mouseReleaseEvent(QMouseEvent*) {
    keyboard->Up(mouse);
    SetTimer();
}

void Window::touchEvent(QTouchEvent* event) {
    if (event->type() == QEvent::TouchCancel) {
        keyboard->Cancel();
    }
    for (const QEventPoint& point : event->points()) {
        const Point at = ToPoint(point.position());
        const int screenY = ToPoint(point.globalPosition()).y;
        switch (point.state()) {
            case QEventPoint::Pressed:
                keyboard->Down(point.id(), at, screenY, Now());
                break;
            case QEventPoint::Updated:
                keyboard->Move(point.id(), at, screenY);
                break;
            case QEventPoint::Released:
                keyboard->Up(point.id());
                break;
            default:
                break;
        }
    }
    SetTimer();
    event->accept();
}

}  // namespace zvr::osk
