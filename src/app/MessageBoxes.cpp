// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MessageBoxes.h"

#include <QApplication>
#include <QInputDialog>
#include <QMainWindow>

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
    auto* const dialog = new QInputDialog(parentWindow());
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
        iconFor(waiting.box.sign), waiting.box.title, waiting.box.text, waiting.buttons, parentWindow());
    box->setAttribute(Qt::WA_DeleteOnClose);
    // What is told of may come from a server or a file, which has no say in how it looks.
    box->setTextFormat(Qt::PlainText);
    connect(box, &QMessageBox::finished, this, [this, box, waiting](int button) {
        disconnect(box, &QObject::destroyed, this, nullptr);
        finish(waiting, button == QMessageBox::Yes);
    });
    // Whatever takes the box away must not leave the others waiting for ever.
    connect(box, &QObject::destroyed, this, [this, waiting] { finish(waiting, false); });
    box->open();
}

void MessageBoxes::finish(const Waiting& waiting, bool yes)
{
    waiting.answered(yes);
    showNext();
}

QWidget* MessageBoxes::parentWindow()
{
    QWidget* window = QApplication::activeWindow();
    while (window && window->testAttribute(Qt::WA_DeleteOnClose))
        window = window->parentWidget();
    if (!window)
        window = m_parent;
    // Before any window was active: the main one.
    for (QWidget* const candidate : QApplication::topLevelWidgets()) {
        if (!window && candidate->isVisible() && qobject_cast<QMainWindow*>(candidate))
            window = candidate;
    }
    m_parent = window;
    return window;
}
