#pragma once

#include "zvr_osk/keyboard.h"
#include "zvr_osk/linux/painting.h"
#include "zvr_osk/linux/presence.h"
#include "zvr_osk/linux/typist.h"
#include "zvr_osk/linux/zvrlink.h"

#include <QElapsedTimer>
#include <QRasterWindow>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>
#include <optional>

namespace zvr::osk {

/// The keyboard on the screen: above all other windows, and never with the focus.
class Window : public QRasterWindow {
public:
    explicit Window(Presence& presence);

    void Appear();  ///< in the look of zvr, if that runs

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void touchEvent(QTouchEvent* event) override;

private:
    [[nodiscard]] Keyboard::Events Wiring();
    [[nodiscard]] Keyboard::Time Now() const { return Keyboard::Time(clock.elapsed()); }
    [[nodiscard]] Rect FreeArea() const;
    void FollowScreen();
    void Place();
    void Show(const ZvrLook& look);
    void ReadZvr();
    void Strike(Act act);
    void Hide();
    void SetTimer();

    Presence& presence;
    ZvrLink zvr;
    Typist typist;
    Painting painting;
    std::optional<Keyboard> keyboard;
    Edge edge = Edge::bottom;
    int topBeforeDrag = 0;
    ZvrLook look;
    QElapsedTimer clock;
    QTimer repeat;
    QTimer boxGone;
    QTimer lingers;  ///< hidden, and not yet at its end
    std::unique_ptr<QSocketNotifier> zvrNews;
    std::unique_ptr<QSocketNotifier> presenceNews;
};

}  // namespace zvr::osk
