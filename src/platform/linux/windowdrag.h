#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWidget>

namespace zvr {

/// A window that follows the pointer until it lifts: for those that no window manager moves. Deletes itself then.
class WindowDrag : public QObject {
public:
    explicit WindowDrag(QWidget& window);  ///< whose child it is

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MoveTo(QPoint pointer);

    QWidget& window;
    QPoint fromPointer;  ///< to the window's top left corner
};

}  // namespace zvr
