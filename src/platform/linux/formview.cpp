#include "platform/linux/formview.h"

#include <QPaintEvent>
#include <QPainter>
#include <QWindow>

#include <algorithm>

namespace zvr {
namespace {

class GridWidget : public QWidget {
public:
    GridWidget(QWidget* parent, const Control& control, ListIcons& icons)
        : QWidget(parent), control(control), icons(icons) {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        const Rect whole = control.Place();
        const QPoint cut = pos() - QPoint(whole.x, whole.y);  // what the container hides above and left
        QPainter painter(this);
        painter.translate(-cut);
        PaintGrid(painter, control, event->rect().translated(cut), icons);
    }

private:
    const Control& control;
    ListIcons& icons;
};

class VideoWidget : public QWidget {
public:
    VideoWidget(QWidget* parent, const Control& control) : QWidget(parent), control(control) {
        setAttribute(Qt::WA_DontCreateNativeAncestors);
        setAttribute(Qt::WA_NativeWindow);
        setAttribute(Qt::WA_OpaquePaintEvent);
        setMouseTracking(true);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter(this).fillRect(event->rect(), ToQColor(control.backColor));
    }

private:
    const Control& control;
};

/// Lies over everything else in a window; what is touched is what lies below.
class DimLayer : public QWidget {
public:
    explicit DimLayer(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_TransparentForMouseEvents); }

    void SetShare(double next) {
        if (share != next) {
            share = next;
            update();
        }
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter(this).fillRect(event->rect(), QColor::fromRgbF(0, 0, 0, static_cast<float>(share)));
    }

private:
    double share = 0;
};

bool IsNative(const Control& control) {
    return control.kind == ControlKind::grid || control.kind == ControlKind::textBox ||
           control.kind == ControlKind::video;
}

}  // namespace

FormWidget::FormWidget(QWidget* parent, const Form& form) : QWidget(parent), form(form) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

bool FormWidget::event(QEvent* event) {
    return (onEvent && onEvent(*event)) || QWidget::event(event);
}

void FormWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    PaintForm(painter, form, event->region());
}

FormView::FormView(Form& form, QWidget* parent, Stage& stage, ListIcons& icons)
    : form(form), widget(new FormWidget(parent, form)), stage(stage), icons(icons) {
    form.dirty = true;
}

FormView::~FormView() {
    if (widget != nullptr) {
        widget->onEvent = nullptr;
        widget->hide();
        // Its own event may be on the stack.
        widget->deleteLater();
    }
}

void FormView::Sync() {
    const std::vector<Control*> dirty = std::move(form.dirtyControls);
    form.dirtyControls.clear();
    const bool all = form.dirty;
    form.dirty = false;
    for (Control* control : dirty) {
        control->dirty = false;
    }
    if (all) {
        widget->update();
    }
    // What lies in a box moves and hides with it, without being dirty itself.
    const bool boxes = std::any_of(dirty.begin(), dirty.end(),
                                   [](const Control* control) { return control->kind == ControlKind::picture; });
    QRegion stale;
    for (Control* control : dirty) {
        const Rect place = control->VisiblePlace();
        if (!all && (!IsNative(*control) || control->kind == ControlKind::video)) {
            stale += ToQRect(control->painted);
            stale += ToQRect(place);
        }
        control->painted = place;
        SyncNative(*control);
    }
    if (all || boxes) {
        for (Control* control : form.Controls()) {
            control->painted = control->VisiblePlace();
            SyncNative(*control);
        }
    }
    SyncNativeOrder();
    if (!stale.isEmpty()) {
        widget->repaint(stale);
    }
}

void FormView::ForgetControls() {
    for (const auto& [control, native] : natives) {
        if (control->kind == ControlKind::textBox) {
            static_cast<TextWidget*>(native)->Detach();
        }
        // Hidden it paints no more, and what paints it may be on the stack.
        native->hide();
        native->deleteLater();
    }
    natives.clear();
    nativeOrder.clear();
    videos = 0;
}

QWidget& FormView::WidgetFor(const Control& control) {
    QWidget*& native = natives[&control];
    if (native == nullptr) {
        switch (control.kind) {
            case ControlKind::textBox:
                native = new TextWidget(widget, *form.Find(control.name, control.index), stage);
                break;
            case ControlKind::video:
                native = new VideoWidget(widget, control);
                ++videos;
                break;
            default:
                native = new GridWidget(widget, control, icons);
                break;
        }
        native->hide();
    }
    return *native;
}

void FormView::SyncNative(Control& control) {
    if (!IsNative(control)) {
        return;
    }
    const QRect place = ToQRect(control.VisiblePlace());
    if (place.isEmpty() && !natives.contains(&control)) {
        return;
    }
    QWidget& native = WidgetFor(control);
    if (place.isEmpty()) {
        native.hide();
        return;
    }
    native.setGeometry(place);
    if (control.kind == ControlKind::textBox) {
        static_cast<TextWidget&>(native).Sync();
    } else {
        native.update();
    }
    native.show();
}

void FormView::SyncNativeOrder() {
    std::vector<QWidget*> order;
    for (const Control* control : form.Controls()) {
        if (const auto native = natives.find(control); native != natives.end()) {
            order.push_back(native->second);
        }
    }
    if (order != nativeOrder) {
        for (QWidget* native : order) {
            native->raise();
        }
        nativeOrder = std::move(order);
    }
}

void FormView::PlaceVideos() {
    if (videos == 0) {
        return;
    }
    // The toolkit moves what it paints itself, but no native window further in.
    for (const auto& [control, native] : natives) {
        if (QWindow* const window = native->windowHandle(); control->kind == ControlKind::video && window != nullptr) {
            window->setGeometry(QRect(native->mapTo(native->window(), QPoint()), native->size()));
        }
    }
    widget->update();
}

void FormView::MaskVideos(const QRegion& coveredByForms) {
    const std::vector<Control*>& controls = form.Controls();
    for (auto video = controls.begin(); video != controls.end(); ++video) {
        const QRect visible = (*video)->kind == ControlKind::video ? ToQRect((*video)->VisiblePlace()) : QRect();
        const auto native = natives.find(*video);
        if (visible.isEmpty() || native == natives.end()) {
            continue;
        }
        QRegion seen = QRegion(visible) - coveredByForms;
        for (auto front = video + 1; front != controls.end(); ++front) {
            if ((*front)->kind != ControlKind::label && (*front)->kind != ControlKind::video) {
                if (const QRect place = ToQRect((*front)->VisiblePlace()); place.intersects(visible)) {
                    seen -= place;
                }
            }
        }
        if (seen == QRegion(visible)) {
            native->second->clearMask();
        } else {
            // An empty mask would mean none.
            native->second->setMask(seen.isEmpty() ? QRegion(-2, -2, 1, 1) : seen.translated(-visible.topLeft()));
        }
    }
}

void FormView::Dim(double share) {
    if (share == 0) {
        if (dimLayer != nullptr) {
            dimLayer->hide();
        }
        return;
    }
    if (dimLayer == nullptr) {
        dimLayer = new DimLayer(widget);
    }
    static_cast<DimLayer*>(dimLayer)->SetShare(share);
    dimLayer->setGeometry(widget->rect());
    dimLayer->raise();
    dimLayer->show();
}

TextWidget* FormView::TextAt(const Control* control) const {
    const auto native = natives.find(control);
    return native == natives.end() || control->kind != ControlKind::textBox ? nullptr
                                                                            : static_cast<TextWidget*>(native->second);
}

QWidget* FormView::WidgetOf(const QObject* window) const {
    if (widget == nullptr) {
        return nullptr;
    }
    if (widget->isWindow() && widget->windowHandle() == window) {
        return widget;
    }
    for (const auto& [control, native] : natives) {
        if (control->kind == ControlKind::video && native->windowHandle() == window) {
            return native;
        }
    }
    return nullptr;
}

}  // namespace zvr
