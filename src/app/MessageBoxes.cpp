// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MessageBoxes.h"

#include <QApplication>
#include <QInputDialog>

#include <utility>

namespace {

QMessageBox::Icon iconFor(Messages::Sign sign)
{
    switch (sign) {
    case Messages::Sign::Information:
        return QMessageBox::Information;
    case Messages::Sign::Question:
        return QMessageBox::Question;
    case Messages::Sign::Warning:
        return QMessageBox::Warning;
    }
    return QMessageBox::NoIcon;
}

} // namespace

void MessageBoxes::tell(const Box& box, std::function<void()> closed)
{
    enqueue({ box, QMessageBox::Ok, [closed = std::move(closed)](bool) {
                 closed();
             } });
}

void MessageBoxes::ask(const Box& box, std::function<void(bool yes)> answered)
{
    enqueue({ box, QMessageBox::Yes | QMessageBox::No, std::move(answered) });
}

void MessageBoxes::input(const QString& title, const QString& prompt, const QString& text,
    std::function<void(const QString& typed)> answered)
{
    auto* const dialog = new QInputDialog(QApplication::activeWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    dialog->setLabelText(prompt);
    dialog->setTextValue(text);
    connect(dialog, &QInputDialog::finished, this, [dialog, answered = std::move(answered)](int result) {
        answered(result == QDialog::Accepted ? dialog->textValue() : QString());
    });
    dialog->open();
}

void MessageBoxes::enqueue(Waiting waiting)
{
    m_waiting.enqueue(std::move(waiting));
    if (!m_isShowing)
        showNext();
}

void MessageBoxes::showNext()
{
    m_isShowing = !m_waiting.isEmpty();
    if (!m_isShowing)
        return;
    const Waiting waiting = m_waiting.dequeue();
    auto* const box = new QMessageBox(
        iconFor(waiting.box.sign), waiting.box.title, waiting.box.text, waiting.buttons, QApplication::activeWindow());
    box->setAttribute(Qt::WA_DeleteOnClose);
    // What is told of may come from a server or a file, which has no say in how it looks.
    box->setTextFormat(Qt::PlainText);
    connect(box, &QMessageBox::finished, this, [this, answered = waiting.answered](int button) {
        answered(button == QMessageBox::Yes);
        showNext();
    });
    box->open();
}
