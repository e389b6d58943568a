// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MessageBoxes.h"

#include "base/allgemein.h"

#include <QApplication>
#include <QInputDialog>
#include <QMainWindow>
#include <QRegularExpression>

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

/// A box wraps its lines at blanks only, and would cut off a long URL.
QString withBrokenWords(const QString& line)
{
    static const QRegularExpression longWord(QStringLiteral("(\\S{50})(?=\\S)"));
    return QString(line).replace(longWord, QStringLiteral("\\1\n"));
}

/// A message names files and URLs from outside; only its own line ends are kept as they are.
QString shownText(const QString& message)
{
    QStringList lines = message.split(u'\n');
    for (QString& line : lines)
        line = withBrokenWords(allgemein::withVisibleControls(line));
    return lines.join(u'\n');
}

QMessageBox::StandardButton buttonFor(Messages::Answer answer)
{
    switch (answer) {
    case Messages::Answer::Ok:
        return QMessageBox::Ok;
    case Messages::Answer::Yes:
        return QMessageBox::Yes;
    case Messages::Answer::No:
        return QMessageBox::No;
    case Messages::Answer::Save:
        return QMessageBox::Save;
    case Messages::Answer::Discard:
        return QMessageBox::Discard;
    case Messages::Answer::Cancel:
        return QMessageBox::Cancel;
    }
    return QMessageBox::NoButton;
}

void addButtons(QMessageBox& box, const Messages::Choices& choices)
{
    for (const Messages::Answer answer : choices.answers)
        box.addButton(buttonFor(answer));
    box.setDefaultButton(buttonFor(choices.usual));
    box.setEscapeButton(buttonFor(choices.harmless));
}

/// The answer of a box's button.
Messages::Answer answerOf(int button, const Messages::Choices& choices)
{
    for (const Messages::Answer answer : choices.answers) {
        if (buttonFor(answer) == button)
            return answer;
    }
    return choices.harmless;
}

} // namespace

void MessageBoxes::tell(const Box& box, std::function<void()> closed)
{
    enqueue({ box, { { Answer::Ok }, Answer::Ok, Answer::Ok }, [closed = std::move(closed)](Answer) {
                 closed();
             } });
}

void MessageBoxes::ask(const Box& box, const Choices& choices, std::function<void(Answer answer)> answered)
{
    enqueue({ box, choices, std::move(answered) });
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
    auto* const box = new QMessageBox(iconFor(waiting.box.sign), waiting.box.title, shownText(waiting.box.text),
        QMessageBox::NoButton, parentWindow());
    addButtons(*box, waiting.choices);
    box->setAttribute(Qt::WA_DeleteOnClose);
    // The text may come from a server or a file; it must not be read as HTML.
    box->setTextFormat(Qt::PlainText);
    connect(box, &QMessageBox::finished, this, [this, box, waiting](int button) {
        disconnect(box, &QObject::destroyed, this, nullptr);
        finish(waiting, answerOf(button, waiting.choices));
    });
    // A box that is destroyed unanswered counts as closed, or the boxes behind it would wait for ever.
    connect(box, &QObject::destroyed, this, [this, waiting] { finish(waiting, waiting.choices.harmless); });
    box->open();
}

void MessageBoxes::finish(const Waiting& waiting, Answer answer)
{
    waiting.answered(answer);
    showNext();
}

QWidget* MessageBoxes::parentWindow()
{
    // An application-modal window, such as the URL picker, blocks the boxes of all other windows: nobody could close
    // them.
    for (QWidget* const candidate : QApplication::topLevelWidgets()) {
        if (candidate->isVisible() && candidate->windowModality() == Qt::ApplicationModal)
            return candidate;
    }
    QWidget* window = QApplication::activeWindow();
    while (window && window->testAttribute(Qt::WA_DeleteOnClose))
        window = window->parentWidget();
    if (!window)
        window = m_parent;
    // Before any window was active, take the main window.
    for (QWidget* const candidate : QApplication::topLevelWidgets()) {
        if (!window && candidate->isVisible() && qobject_cast<QMainWindow*>(candidate))
            window = candidate;
    }
    m_parent = window;
    return window;
}
