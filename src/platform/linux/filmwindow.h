#pragma once

#include "ui/geometry.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <cstdint>

namespace zvr {

/// The window inside of a video area that the media engine draws a film into and takes touches of its menus from. The
/// engine wants the presses of its window for itself, so it can't be the area's own: a pane without a picture lies over
/// it, and lets what a finger does through to the area. What the area decides to pass on is sent.
class FilmWindow : public QObject {
public:
    FilmWindow() = default;
    ~FilmWindow() override;

    /// As large as the video area from now on; the engine's until the area goes or another one is named. 0 for none.
    [[nodiscard]] std::uintptr_t Inside(std::uintptr_t area);
    /// Nobody draws into it any more.
    void Leave();
    /// A press and its end at that pixel, as the engine would have seen it.
    void Press(Point p) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> widget;  ///< the area's
    std::uint32_t film = 0;
    std::uint32_t pane = 0;
};

}  // namespace zvr
