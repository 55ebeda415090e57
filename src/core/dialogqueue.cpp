#include "core/dialogqueue.h"

#include "platform/log.h"
#include "ui/stage.h"

#include <algorithm>

namespace zvr {
namespace {

/// The second of two quick taps was meant for the dialog before.
constexpr Milliseconds deafAfterAnother{300};

/// Takes the request out again, whatever ends the wait for it.
class Guard {
public:
    explicit Guard(std::function<void()> atEnd) : atEnd(std::move(atEnd)) {}
    ~Guard() { atEnd(); }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

private:
    std::function<void()> atEnd;
};

}  // namespace

DialogQueue::DialogQueue(EventLoop& loop, Stage& stage) : loop(loop), stage(stage) {}

bool DialogQueue::Show(DialogRequest& request) {
    if (loop.IsQuitting() || !request.form.loaded) {
        return false;
    }
    if (requests.size() >= most) {
        ++refused;
        Log::Warning("the dialog {} is not shown: {} wait already", request.form.name, most);
        return false;
    }
    requests.push_back(&request);
    const Guard guard([this, &request] { Drop(request); });
    if (requests.size() == 1) {
        OpenFirst();
    }
    waitForMessageBox(request);
    return request.settled && !loop.IsQuitting();
}

void DialogQueue::OpenFirst() {
    DialogRequest& request = *requests.front();
    stage.ShowModal(request.form);
    request.fill();
}

void DialogQueue::waitForMessageBox(const DialogRequest& request) {
    loop.WaitUntil(request.form.name, [&request] { return request.settled; });
}

void DialogQueue::Settle(const Form& form, std::string_view answer) {
    if (requests.empty() || &requests.front()->form != &form) {
        return;
    }
    DialogRequest& ended = *requests.front();
    ended.answer = answer;
    ended.settled = true;
    requests.erase(requests.begin());
    if (!requests.empty()) {
        OpenFirst();
        stage.DeafFor(deafAfterAnother);
    }
    // The next one first: between two dialogs no screen comes to the front.
    if (requests.empty() || &requests.front()->form != &form) {
        stage.CloseModal(ended.form);
    }
}

void DialogQueue::Drop(const DialogRequest& request) {
    const bool wasOpen = Open() == &request;
    std::erase(requests, &request);
    if (wasOpen) {
        stage.Hide(request.form);
    }
}

bool DialogQueue::HasNews(std::string_view text) const {
    return !text.empty() && std::any_of(requests.begin(), requests.end(),
                                        [text](const DialogRequest* request) { return request->news == text; });
}

void DialogQueue::Refill() {
    if (!requests.empty()) {
        requests.front()->fill();
    }
}

}  // namespace zvr
