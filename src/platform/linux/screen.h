#pragma once

#include "platform/linux/eventloop.h"
#include "platform/linux/formview.h"
#include "platform/linux/input.h"
#include "platform/linux/signals.h"
#include "platform/screen.h"

#include <QTimer>

#include <map>

namespace zvr {

/// The desktop's session manager ends its programs through the toolkit, which would close the windows as a user does.
class SessionEnd : public QObject {
public:
    explicit SessionEnd(std::function<void()> onEnd);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> onEnd;
};

struct Screen::State {
    EventLoop* loop = nullptr;
    Stage* stage = nullptr;
    std::unique_ptr<EndSignals> endSignals;
    std::unique_ptr<SessionEnd> sessionEnd;
    std::unique_ptr<Input> input;
    ListIcons icons;
    std::map<const Form*, std::unique_ptr<FormView>> views;  ///< of forms that have been shown
    std::vector<const Form*> stackedForms;                   ///< the order that the widgets lie in
    const Form* leftForm = nullptr;                          ///< hidden last, its pictures still decoded; null for none
    QTimer leftFormTimer;
    QString title;
    bool frame = false;
    bool pointerHidden = false;
    double dim = 0;                                ///< share by which the windows are darkened
    bool changed = false;                          ///< something on the stage, since the last sync
    WindowState shownState = WindowState::normal;  ///< of the root, when it isn't minimized
    bool minimized = false;
    WindowState reportedState = WindowState::normal;  ///< what the root form was told last
    std::function<void(bool)> onCloseRequest;
    QMetaObject::Connection screenWatch;

    void Sync();
    void SyncForm(Form& form, bool shown);
    void ForgetRemovedForms();
    void SyncStacking();
    void SyncVideoMasks();
    void SyncDim();
    void SyncFocus();
    void LeaveForm(const Form& form);
    void ReleaseLeft();
    /// Fully behind one other form, so that nothing of it can be seen.
    [[nodiscard]] bool IsCovered(const Form& form) const;

    // The windows
    [[nodiscard]] Form* RootForm() const;
    [[nodiscard]] FormView* RootView() const;
    FormView* ViewOf(Form& form);  ///< made when missing; null for a child as long as there is no root
    [[nodiscard]] FormView* ViewAround(QWidget* widget) const;
    void PrepareWindow(FormView& view);
    void SyncWindow(FormView& view);
    void ShowRoot();
    void ApplyRootFrame();
    bool RootEvent(QEvent& event);
    void RootResized();
    void RootStateChanged();
};

}  // namespace zvr
