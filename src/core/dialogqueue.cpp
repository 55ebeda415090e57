#include "core/dialogqueue.h"

#include "platform/log.h"
#include "ui/stage.h"

#include <algorithm>
#include <utility>

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
    const auto givesWay = [](const DialogRequest* other) { return other->givesWay; };
    requests.insert(request.givesWay ? requests.end() : std::find_if(requests.begin(), requests.end(), givesWay),
                    &request);
    const Guard guard([this, &request] { Drop(request); });
    if (Open() == &request) {
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
    End(*requests.front(), answer);
}

void DialogQueue::End(DialogRequest& ended, std::string_view answer) {
    const bool wasOpen = Open() == &ended;
    if (std::erase(requests, &ended) == 0) {
        return;
    }
    ended.answer = answer;
    ended.settled = true;
    if (wasOpen && !requests.empty()) {
        OpenFirst();
        stage.DeafFor(deafAfterAnother);
    }
    // The next one first: between two dialogs no screen comes to the front.
    if (requests.empty() || &requests.front()->form != &ended.form) {
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

bool DialogQueue::IsOpenBelow(const Form& form) const {
    return std::any_of(below.begin(), below.end(), [&form](const auto& open) { return open.first == &form; });
}

void DialogQueue::OpenBelow(Form& form, std::function<void()> fill) {
    if (loop.IsQuitting() || !form.loaded || modalBoxOpen() || IsOpenBelow(form)) {
        return;
    }
    below.emplace_back(&form, std::move(fill));
    stage.ShowModal(form);
    below.back().second();
}

void DialogQueue::CloseBelow(Form& form) {
    if (IsOpenBelow(form)) {
        std::erase_if(below, [&form](const auto& open) { return open.first == &form; });
        stage.CloseModal(form);
    }
}

bool DialogQueue::HasNews(std::string_view text) const {
    return !text.empty() && std::any_of(requests.begin(), requests.end(),
                                        [text](const DialogRequest* request) { return request->news == text; });
}

void DialogQueue::Refill() {
    for (const auto& open : below) {
        open.second();
    }
    if (!requests.empty()) {
        requests.front()->fill();
    }
}

}  // namespace zvr
