#pragma once

#include "platform/eventloop.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zvr {

class Form;
class Stage;

/// One dialog that somebody asks for. It lies on his stack and holds his answer: whoever else asks meanwhile has a
/// record of his own.
struct DialogRequest {
    Form& form;                  ///< on the stage, hidden
    std::function<void()> fill;  ///< puts the question into the form and places it; may come again while it is open
    std::string news{};          ///< text of a message that has nothing to choose; empty for everything else
    std::string answer{};        ///< what the driver chose, empty when he closed it without a choice
    bool settled = false;
    /// Tells how something goes on that takes its time: whoever has something to ask comes before it.
    bool givesWay = false;
};

/// All dialogs of the program go through here, one on the screen at a time, in the order in which they were asked for,
/// those that give way last.
///
/// Every asker waits inside `Show`, with events running, so the askers stand on each other's shoulders: the latest is
/// the only one whose wait turns the loop. That one shows and settles the dialogs of all of them, and each finds his
/// answer in his own record when the ones above him are gone.
class DialogQueue {
public:
    static constexpr std::size_t most = 32;  ///< that are open or wait; each costs a turn of the loop within a turn

    DialogQueue(EventLoop& loop, Stage& stage);
    DialogQueue(const DialogQueue&) = delete;
    DialogQueue& operator=(const DialogQueue&) = delete;

    /// Waits until the driver has settled the request. False when he was not asked: the program ends, maybe in the
    /// middle of the question, or too many wait. What the asker knew before may be out of date afterwards either way.
    [[nodiscard]] bool Show(DialogRequest& request);
    /// The dialog that is open has its answer and leaves the screen to the next. Nothing if another form is open.
    void Settle(const Form& form, std::string_view answer);
    /// The request has its answer, whether it is open or not. Nothing if it has ended already.
    void End(DialogRequest& request, std::string_view answer);

    /// A form that keeps the screen from everything but the dialogs, which come up over it, and others of its kind that
    /// are opened later. Doesn't wait. `fill` as in a request. Nothing while a dialog or it is open.
    void OpenBelow(Form& form, std::function<void()> fill);
    void CloseBelow(Form& form);  ///< nothing if it isn't open
    [[nodiscard]] bool IsOpenBelow(const Form& form) const;

    /// A dialog of the program has the screen.
    [[nodiscard]] bool modalBoxOpen() const { return !requests.empty(); }
    /// The one that has it, null for none.
    [[nodiscard]] const DialogRequest* Open() const { return requests.empty() ? nullptr : requests.front(); }
    [[nodiscard]] unsigned Refused() const { return refused; }  ///< requests so far that found too many before them
    /// Equal news are shown already or wait to be.
    [[nodiscard]] bool HasNews(std::string_view text) const;

    /// A skin was loaded, or the room has another size: the open dialog is filled and placed anew.
    void Refill();

private:
    void OpenFirst();
    void waitForMessageBox(const DialogRequest& request);
    void Drop(const DialogRequest& request);

    EventLoop& loop;
    Stage& stage;
    std::vector<DialogRequest*> requests;                        ///< in order; the first is on the screen
    std::vector<std::pair<Form*, std::function<void()>>> below;  ///< forms under the dialogs, and their fills
    unsigned refused = 0;
};

}  // namespace zvr
