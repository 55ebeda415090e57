#pragma once

#include "ui/stage.h"

#include <QWidget>

class QLineEdit;
class QPlainTextEdit;

namespace zvr {

/// The toolkit's text box for a control, kept equal to it in both directions.
class TextWidget : public QWidget {
public:
    TextWidget(QWidget* parent, Control& control, Stage& stage);

    void Detach();                          ///< from here on it leaves the control alone
    void Sync();                            ///< takes look, text and selection from the control
    [[nodiscard]] QWidget* Editor() const;  ///< what has the keyboard focus
    [[nodiscard]] bool Multiline() const { return area != nullptr; }

    Control& control;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Content {
        QString text;
        int start = 0;  ///< of the selection, or the caret; in UTF-16 units
        int length = 0;
    };
    [[nodiscard]] Content Shown() const;
    void Show(const Content& content);
    void Report();
    void SyncLook();

    Stage& stage;
    QLineEdit* line = nullptr;  ///< one of the two is set
    QPlainTextEdit* area = nullptr;
    bool syncing = false;
};

}  // namespace zvr
