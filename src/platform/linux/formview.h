#pragma once

#include "platform/linux/paint.h"
#include "platform/linux/textwidget.h"
#include "platform/linux/topstrip.h"
#include "ui/stage.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace zvr {

/// The one widget that paints a form.
class FormWidget : public QWidget {
public:
    FormWidget(QWidget* parent, const Form& form);
    std::function<bool(QEvent&)> onEvent;  ///< looks at each event first; true keeps it from the widget

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const Form& form;
};

/// A form on the screen: its widget, and in it a widget each for lists, text boxes and video areas.
class FormView {
public:
    FormView(Form& form, QWidget* parent, Stage& stage, ListIcons& icons);
    ~FormView();
    FormView(const FormView&) = delete;
    FormView& operator=(const FormView&) = delete;

    void Sync();            ///< asks for repaints of what is dirty, and clears the marks
    void ForgetControls();  ///< they are about to be destroyed
    [[nodiscard]] bool OwnsVideo() const { return videos > 0; }
    void PlaceVideos();  ///< after the form itself has moved
    /// Cuts out of the video areas what lies before them: they are windows, and would cover it.
    void MaskVideos(const QRegion& coveredByForms);
    void Dim(double share);                                    ///< darkens the whole window that the form is
    [[nodiscard]] QWidget& WidgetFor(const Control& control);  ///< lists, text boxes and video areas only
    [[nodiscard]] TextWidget* TextAt(const Control* control) const;
    /// The widget that this native window belongs to: the form's, or that of a video area.
    [[nodiscard]] QWidget* WidgetOf(const QObject* window) const;

    Form& form;
    QPointer<FormWidget> widget;
    std::unique_ptr<TopStrip> strip;  ///< that a bar keeps free of other windows

private:
    void SyncNative(Control& control);
    void SyncNativeOrder();

    Stage& stage;
    ListIcons& icons;
    std::unordered_map<const Control*, QWidget*> natives;
    std::vector<QWidget*> nativeOrder;
    QWidget* dimLayer = nullptr;  ///< made when it is first needed
    int videos = 0;
};

}  // namespace zvr
