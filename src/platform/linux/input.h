#pragma once

#include "platform/linux/formview.h"

#include <QObject>

#include <functional>

class QKeyEvent;
class QMouseEvent;

namespace zvr {

/// Takes touches and keys at the door of the program's windows, before the toolkit looks for a widget:
/// what lies under a finger is the stage's to say. Only text boxes get theirs from the toolkit.
class Input : public QObject {
public:
    Input(Stage& stage, std::function<FormView*(QWidget*)> viewOf, std::function<QWidget*(QObject*)> widgetOf,
          std::function<void()> syncFocus);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Mouse(QWidget& widget, const QMouseEvent& event);
    bool Key(QWidget& widget, const QKeyEvent& event);
    bool Wheel(QWidget& widget, const QPoint& place, int steps);

    Stage& stage;
    std::function<FormView*(QWidget*)> viewOf;   ///< the window that a widget is part of
    std::function<QWidget*(QObject*)> widgetOf;  ///< null for windows of the toolkit's own
    std::function<void()> syncFocus;
    bool pressed = false;
    bool pressInText = false;  ///< the toolkit has seen the press and must see its end
};

}  // namespace zvr
