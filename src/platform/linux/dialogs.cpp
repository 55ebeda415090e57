#include "platform/dialogs.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>

namespace zvr {
namespace {

constexpr QSize fingerSize{140, 56};
constexpr int betweenQuestions = 500;  // milliseconds

QMessageBox::StandardButton ShowBox(QMessageBox::Icon icon, const std::string& text,
                                    QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                    const std::function<bool()>& needless = {}) {
    // Before everything: the splash stands on top of all other windows.
    QMessageBox box(icon, "zVR", QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), buttons, nullptr,
                    Qt::Dialog | Qt::WindowStaysOnTopHint);
    box.setTextFormat(Qt::PlainText);
    QFont font = box.font();
    font.setPixelSize(18);
    box.setFont(font);
    for (QAbstractButton* button : box.buttons()) {
        button->setMinimumSize(fingerSize);
    }
    box.adjustSize();
    box.move(QGuiApplication::primaryScreen()->geometry().center() - box.rect().center());
    QTimer question;
    QObject::connect(&question, &QTimer::timeout, &box, [&] {
        if (needless()) {
            box.accept();
        }
    });
    if (needless) {
        question.start(betweenQuestions);
    }
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

struct Dialogs::State {};

Dialogs::Dialogs() : state(std::make_unique<State>()) {}
Dialogs::~Dialogs() = default;

void Dialogs::ShowCritical(const std::string& text) {
    ShowBox(QMessageBox::Critical, text);
}

void Dialogs::ShowPlain(const std::string& text, const std::function<bool()>& needless) {
    ShowBox(QMessageBox::NoIcon, text, QMessageBox::Ok, needless);
}

bool Dialogs::AskPlain(const std::string& text) {
    return ShowBox(QMessageBox::NoIcon, text, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace zvr
