#include "platform/linux/textwidget.h"

#include "platform/linux/paint.h"
#include "platform/linux/picture.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace zvr {
namespace {

int CodePoints(QStringView text) {
    return static_cast<int>(std::count_if(text.begin(), text.end(), [](QChar c) { return !c.isLowSurrogate(); }));
}

int Utf16Index(const QString& text, int codePoints) {
    qsizetype at = 0;
    for (; at < text.size() && codePoints > 0; --codePoints) {
        at += text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
    }
    return static_cast<int>(at);
}

Qt::Alignment ToQt(Align align) {
    switch (align) {
        case Align::left:
            break;
        case Align::center:
            return Qt::AlignHCenter | Qt::AlignVCenter;
        case Align::right:
            return Qt::AlignRight | Qt::AlignVCenter;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

/// A text of several lines that a finger drags, with the mark of the lists in place of a scroll bar.
class TextArea : public QPlainTextEdit {
public:
    explicit TextArea(QWidget* parent) : QPlainTextEdit(parent) {
        setFrameShape(QFrame::NoFrame);
        setTabChangesFocus(true);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        // The mark has another place then, also where no line of text has.
        QObject::connect(verticalScrollBar(), &QScrollBar::valueChanged, viewport(), qOverload<>(&QWidget::update));
        QObject::connect(verticalScrollBar(), &QScrollBar::rangeChanged, viewport(), qOverload<>(&QWidget::update));
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPlainTextEdit::paintEvent(event);
        const QScrollBar& bar = *verticalScrollBar();
        const ScrollMark mark{bar.maximum() + bar.pageStep(), bar.pageStep(), bar.value()};
        QPainter painter(viewport());
        PaintScrollMark(painter, mark, viewport()->size(), palette().color(QPalette::Text));
    }
    void mousePressEvent(QMouseEvent* event) override {
        pressedAt = event->position().y();
        firstLine = verticalScrollBar()->value();
        QPlainTextEdit::mousePressEvent(event);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        // The bar counts in lines.
        if (verticalScrollBar()->maximum() == 0) {
            QPlainTextEdit::mouseMoveEvent(event);
        } else {
            const double lines = (pressedAt - event->position().y()) / fontMetrics().lineSpacing();
            verticalScrollBar()->setValue(firstLine + static_cast<int>(lines));
        }
    }

private:
    double pressedAt = 0;
    int firstLine = 0;
};

}  // namespace

TextWidget::TextWidget(QWidget* parent, Control& control, Stage& stage)
    : QWidget(parent), control(control), stage(stage) {
    if (control.text->multiline) {
        area = new TextArea(this);
        connect(area, &QPlainTextEdit::textChanged, this, [this] { Report(); });
        connect(area, &QPlainTextEdit::cursorPositionChanged, this, [this] { Report(); });
        connect(area, &QPlainTextEdit::selectionChanged, this, [this] { Report(); });
    } else {
        line = new QLineEdit(this);
        line->setFrame(false);
        line->setTextMargins(textBoxMargin, 0, textBoxMargin, 0);
        line->installEventFilter(this);
        connect(line, &QLineEdit::textChanged, this, [this] { Report(); });
        connect(line, &QLineEdit::cursorPositionChanged, this, [this] { Report(); });
        connect(line, &QLineEdit::selectionChanged, this, [this] { Report(); });
    }
    // A menu of small words is nothing for a finger.
    Editor()->setContextMenuPolicy(Qt::NoContextMenu);
    Sync();
}

void TextWidget::Detach() {
    Editor()->disconnect(this);
}

QWidget* TextWidget::Editor() const {
    return line != nullptr ? static_cast<QWidget*>(line) : area;
}

void TextWidget::resizeEvent(QResizeEvent* event) {
    Editor()->resize(size());
    QWidget::resizeEvent(event);
}

bool TextWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched != line || event->type() != QEvent::Paint || line->hasFocus() ||
        line->fontMetrics().horizontalAdvance(line->text()) <= line->width() - 2 * textBoxMargin) {
        return QWidget::eventFilter(watched, event);
    }
    // Nobody types: both ends show. The toolkit would cut it.
    QPainter painter(line);
    PaintTextBox(painter, control, line->rect());
    return true;
}

TextWidget::Content TextWidget::Shown() const {
    if (line != nullptr) {
        const bool selected = line->hasSelectedText();
        return {line->text(), selected ? line->selectionStart() : line->cursorPosition(),
                selected ? static_cast<int>(line->selectedText().size()) : 0};
    }
    const QTextCursor cursor = area->textCursor();
    // The raw text: the plain one turns non-breaking spaces into blanks.
    return {area->document()->toRawText().replace(QChar::ParagraphSeparator, u'\n'), cursor.selectionStart(),
            cursor.selectionEnd() - cursor.selectionStart()};
}

void TextWidget::Show(const Content& content) {
    const Content shown = Shown();
    if (line != nullptr) {
        if (shown.text != content.text) {
            line->setText(content.text);
        }
        if (content.length > 0) {
            line->setSelection(content.start, content.length);
        } else {
            line->setCursorPosition(content.start);
        }
        return;
    }
    if (shown.text != content.text) {
        area->setPlainText(content.text);
    }
    const int last = std::max(0, area->document()->characterCount() - 1);
    QTextCursor cursor = area->textCursor();
    cursor.setPosition(std::min(content.start, last));
    cursor.setPosition(std::min(content.start + content.length, last), QTextCursor::KeepAnchor);
    area->setTextCursor(cursor);
}

void TextWidget::Sync() {
    syncing = true;
    SyncLook();
    const TextBox& box = *control.text;
    Content content{ToQString(box.text)};
    if (Multiline()) {
        content.text.replace("\r\n", "\n");
    }
    content.start = Utf16Index(content.text, box.selectionStart);
    content.length = Utf16Index(content.text, box.selectionStart + box.selectionLength) - content.start;
    const Content shown = Shown();
    if (shown.text != content.text || shown.start != content.start || shown.length != content.length) {
        Show(content);
    }
    syncing = false;
}

void TextWidget::SyncLook() {
    QWidget* const editor = Editor();
    if (const QFont font = ToQFont(control.font); editor->font() != font) {
        editor->setFont(font);
    }
    QPalette palette = editor->palette();
    palette.setColor(QPalette::Base, ToQColor(control.backColor));
    palette.setColor(QPalette::Text, ToQColor(control.foreColor));
    // Selected text in exchanged colours: these two are the ones that are known to go together.
    palette.setColor(QPalette::Highlight, ToQColor(control.foreColor));
    palette.setColor(QPalette::HighlightedText, ToQColor(control.backColor));
    if (palette != editor->palette()) {
        editor->setPalette(palette);
    }
    const bool readOnly = control.text->readOnly;
    if (line != nullptr && line->isReadOnly() != readOnly) {
        line->setReadOnly(readOnly);
    } else if (area != nullptr && area->isReadOnly() != readOnly) {
        area->setReadOnly(readOnly);
    }
    if (line != nullptr && line->alignment() != ToQt(control.align)) {
        line->setAlignment(ToQt(control.align));
    }
    if (area != nullptr) {
        QTextOption option = area->document()->defaultTextOption();
        if (const Qt::Alignment wanted = ToQt(control.align) & Qt::AlignHorizontal_Mask; option.alignment() != wanted) {
            option.setAlignment(wanted);
            area->document()->setDefaultTextOption(option);
        }
    }
}

void TextWidget::Report() {
    if (syncing) {
        return;
    }
    const Content shown = Shown();
    const QByteArray text = shown.text.toUtf8();
    const int start = CodePoints(QStringView(shown.text).left(shown.start));
    const int length = CodePoints(QStringView(shown.text).mid(shown.start, shown.length));
    const std::string_view view(text.constData(), static_cast<std::size_t>(text.size()));
    const TextBox& box = *control.text;
    if (box.text != view || box.selectionStart != start || box.selectionLength != length) {
        stage.TextEdited(control, view, start, length);
    }
}

}  // namespace zvr
