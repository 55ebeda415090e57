#include "platform/dialogs.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

namespace zvr {
namespace {

constexpr QSize fingerSize{140, 56};

void ShowBox(QMessageBox::Icon icon, const std::string& text) {
    // Before everything: the splash stands on top of all other windows.
    QMessageBox box(icon, "zVR", QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), QMessageBox::Ok,
                    nullptr, Qt::Dialog | Qt::WindowStaysOnTopHint);
    box.setTextFormat(Qt::PlainText);
    QFont font = box.font();
    font.setPixelSize(18);
    box.setFont(font);
    box.button(QMessageBox::Ok)->setMinimumSize(fingerSize);
    box.adjustSize();
    box.move(QGuiApplication::primaryScreen()->geometry().center() - box.rect().center());
    box.exec();
}

}  // namespace

struct Dialogs::State {};

Dialogs::Dialogs() : state(std::make_unique<State>()) {}
Dialogs::~Dialogs() = default;

void Dialogs::ShowCritical(const std::string& text) {
    ShowBox(QMessageBox::Critical, text);
}

void Dialogs::ShowPlain(const std::string& text) {
    ShowBox(QMessageBox::NoIcon, text);
}

}  // namespace zvr
