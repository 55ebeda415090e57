#include "platform/headless/dvdcontrol.h"

namespace zvr {

DvdControl::DvdControl(EventLoop&) : state(std::make_unique<State>()) {}
DvdControl::~DvdControl() = default;

DvdState DvdControl::PlayState() const {
    return state->current;
}

void DvdControl::SetDVDDirectory(const std::string& path) {
    state->path = path;
}

void DvdControl::SetVideoWindow(std::uintptr_t) {}

void DvdControl::SetDim(double) {}

files::ErrorText DvdControl::Play() {
    state->asked.emplace_back("play");
    if (state->error.empty()) {
        state->current = DvdState::running;
    }
    return state->error;
}

void DvdControl::Pause() {
    if (state->current == DvdState::running) {
        state->asked.emplace_back("pause");
        state->current = DvdState::paused;
    }
}

void DvdControl::Stop() {
    state->asked.emplace_back("stop");
    state->current = DvdState::stopped;
}

void DvdControl::PlayForwards(double) {
    state->PlayOn("forwards");
}

void DvdControl::PlayBackwards(double) {
    state->PlayOn("backwards");
}

void DvdControl::PlayNextChapter() {
    state->PlayOn("next chapter");
}

void DvdControl::PlayPrevChapter() {
    state->PlayOn("previous chapter");
}

void DvdControl::ShowRootMenu() {
    state->PlayOn("menu");
}

void DvdControl::Zoom(int, int, double ratio) {
    state->asked.emplace_back(ratio > 1 ? "zoom in" : "zoom out");
}

void DvdControl::Touch(Point) {
    state->asked.emplace_back("touch");
}

}  // namespace zvr
